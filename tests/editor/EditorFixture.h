// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/BasicTableModel.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/ListTableModel.h"
#include "model/Preferences.h"
#include "plist/Writer.h"
#include "support/FakeEditorView.h"
#include "support/ScriptedSheetHost.h"
#include "support/TestEnvironment.h"
#include "support/WorkDouble.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace tavrin {

using namespace Qt::StringLiterals;

/// A datafile in a folder of its own, and a window on it. Fill in what differs, then open().
class EditorFixture
{
public:
    struct Entry
    {
        QString value; ///< Of the field "a".
        QString text = {};
        QByteArray rtfd = {};
        bool locked = false;
        bool selected = true;
        QString other = {}; ///< Of the field "b".
    };

    QList<Entry> entries; ///< "r0", "r1" and so on, in catalog order.
    QStringList fields{u"a"_s, u"b"_s};
    QStringList hiddenFields;
    plist::Dictionary settings;
    QString name = u"Test.tv3"_s;
    SelectionOnOpening selection = SelectionOnOpening::AsStored;

    explicit EditorFixture(const QStringList &values = {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
    {
        for (const QString &value : values)
            entries.append({value});
    }

    QString path() const { return folder.filePath(name); }

    void writeFile() const { write(path()); }

    /// With the permission to save, where no password stands before it.
    void open(const QString &firstRecord = {})
    {
        writeFile();
        auto opened = DatafileDocument::open({environment, &preferences}, path(), selection);
        if (!opened)
            qFatal("%s", qPrintable(opened.error().detail));
        use(std::move(*opened), firstRecord);
        if (document->datafileSettings().password().isEmpty())
            window->setCanSaveChanges();
    }

    void use(std::unique_ptr<DatafileDocument> newDocument, const QString &firstRecord = {})
    {
        window.reset();
        document = std::move(newDocument);
        window = std::make_unique<EditorWindowController>(*document, sheets, work, preferences);
        window->attachView(view);
        window->prepare(firstRecord);
    }

    void close()
    {
        window->windowWillClose();
        window.reset();
        document.reset();
    }

    RecordData &record(const QString &identifier) const
    {
        RecordData *found = document->datafileRecords().recordForIdentifier(identifier);
        if (!found)
            qFatal("there is no record %s", qPrintable(identifier));
        return *found;
    }
    QString shown() const
    {
        return window->currentRecord() ? window->currentRecord()->identifier() : u"none"_s;
    }
    QStringList identifiers() const { return document->datafileCatalog().selectedIdentifiers(); }
    QString valueIn(const QString &identifier) const { return record(identifier).fieldValue(u"a"_s); }

    QAbstractItemModel &basic() const { return window->tableController().basicTableModel(); }
    QAbstractItemModel &list() const { return window->tableController().listTableModel(); }

    /// What the file holds in a record's field "a", once the document has written it.
    QString onDisk(const QString &identifier) const
    {
        if (document)
            document->waitForSaving();
        const auto read = DatafileDocument::open({environment, &preferences}, path(), selection);
        const RecordData *found = read ? (*read)->datafileRecords().recordForIdentifier(identifier) : nullptr;
        return found ? found->fieldValue(u"a"_s) : u"no record"_s;
    }

    void write(const QString &filePath) const
    {
        QFile file(filePath);
        const QByteArray bytes = plist::toXml(root());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("a test file cannot be written");
    }

    QTemporaryDir folder;
    TestEnvironment environment;
    Preferences preferences;
    ScriptedSheetHost sheets;
    WorkDouble work;
    FakeEditorView view;
    std::unique_ptr<DatafileDocument> document;
    std::unique_ptr<EditorWindowController> window;

private:
    plist::Dictionary root() const
    {
        plist::Dictionary records;
        plist::Array catalog;
        for (const Entry &entry : entries) {
            const QString identifier = u"r%1"_s.arg(catalog.size());
            plist::Dictionary values;
            if (!entry.value.isEmpty())
                values.insert(u"a"_s, entry.value);
            if (!entry.other.isEmpty())
                values.insert(u"b"_s, entry.other);
            records.insert(identifier,
                           plist::Dictionary{{u"RecordIdentifier"_s, identifier},
                                             {u"RecordLocked"_s, entry.locked},
                                             {u"Fields"_s, values},
                                             {u"TextString"_s, entry.text},
                                             {u"TextRTFD"_s, entry.rtfd}});
            catalog.append(plist::Dictionary{{u"Identifier"_s, identifier},
                                             {u"CurrentlySelected"_s, entry.selected},
                                             {u"PreviouslySelected"_s, entry.selected}});
        }
        plist::Array definitions;
        for (const QString &field : fields) {
            definitions.append(plist::Dictionary{{u"Identifier"_s, field},
                                                 {u"Name"_s, field.toUpper()},
                                                 {u"Show"_s, !hiddenFields.contains(field)}});
        }
        plist::Dictionary stored = settings;
        stored.insert(u"Fields"_s, definitions);
        return {{u"Settings"_s, stored}, {u"Records"_s, records}, {u"Catalog"_s, catalog}};
    }
};

} // namespace tavrin
