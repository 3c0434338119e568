// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"
#include "plist/Writer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace tavrin {

using namespace Qt::StringLiterals;

/// A window as a document sees it: the test says what it permits, and reads what it was asked.
class EditingDouble : public DatafileEditing
{
public:
    void storeRecordBeingEdited() override
    {
        if (g_store)
            g_store();
    }
    void endListEditing() override {}
    bool canSaveChanges() const override { return g_permitsSaving; }
    bool nowSyncing() const override { return g_syncing; }
    void markCurrentRecordClean() override { g_clean = true; }
    void setNowSaving(bool saving) override { g_nowSaving = saving; }

    std::function<void()> g_store;
    bool g_permitsSaving = true;
    bool g_syncing = false;
    bool g_clean = false;
    bool g_nowSaving = false;
};

/// A folder of its own, and datafiles to put into it.
class DatafileFixture
{
public:
    QString path(const QString &name) const { return g_folder.filePath(name); }

    /// The names of all files in the folder: a temporary file left behind shows.
    QStringList names() const
    {
        return QDir(g_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }

    QString make(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("a test file cannot be written");
        return path(name);
    }
    QString make(const QString &name, const plist::Dictionary &root) const
    {
        return make(name, plist::toXml(root));
    }

    /// Records "r0", "r1", ... whose field "f" holds "value 0", ...; the catalog lists them in reverse.
    static plist::Dictionary root(int recordCount)
    {
        plist::Dictionary records;
        plist::Array catalog;
        for (int i = 0; i < recordCount; ++i) {
            const QString identifier = u"r%1"_s.arg(i);
            records.insert(identifier,
                           plist::Dictionary{{u"RecordIdentifier"_s, identifier},
                                             {u"Fields"_s, plist::Dictionary{{u"f"_s, u"value %1"_s.arg(i)}}},
                                             {u"TextString"_s, u"text %1"_s.arg(i)}});
            catalog.prepend(plist::Dictionary{{u"Identifier"_s, identifier},
                                              {u"CurrentlySelected"_s, true},
                                              {u"PreviouslySelected"_s, true}});
        }
        const plist::Array fields{plist::Dictionary{{u"Identifier"_s, u"f"_s}, {u"Name"_s, u"Field"_s}}};
        return {{u"Settings"_s, plist::Dictionary{{u"DataFormat"_s, 1}, {u"Fields"_s, fields}}},
                {u"Records"_s, records},
                {u"Catalog"_s, catalog}};
    }

    /// The root with a setting.
    static plist::Dictionary
    withSetting(plist::Dictionary root, const QString &key, const plist::Value &value)
    {
        plist::Dictionary settings = *root.value(u"Settings"_s).dictionary();
        settings.insert(key, value);
        root.insert(u"Settings"_s, settings);
        return root;
    }

    static DocumentServices services()
    {
        const auto now = [] { return Date{700'000'000}; };
        return {{now, universallyUniqueIdentifier, u"Test Person"_s}, nullptr};
    }

    /// Fails the test, and gives null, when the file cannot be opened.
    static std::unique_ptr<DatafileDocument> opened(const QString &path)
    {
        auto document = DatafileDocument::open(services(), path, SelectionOnOpening::AsStored);
        if (!document) {
            QTest::qFail(qPrintable(document.error().message + document.error().detail), __FILE__, __LINE__);
            return nullptr;
        }
        return std::move(*document);
    }

    /// What the file holds in the field of a record.
    static QString storedValue(const QString &path, const QString &identifier)
    {
        const std::unique_ptr<DatafileDocument> document = opened(path);
        const RecordData *record =
            document ? document->datafileRecords().recordForIdentifier(identifier) : nullptr;
        return record ? record->fieldValue(u"f"_s) : u"(no such record)"_s;
    }

private:
    QTemporaryDir g_folder;
};

} // namespace tavrin
