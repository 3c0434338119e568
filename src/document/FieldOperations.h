// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "document/ContentWork.h"
#include "document/StoredRecords.h"
#include "document/StoredTexts.h"
#include "model/FieldDefinition.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <utility>

namespace tavrin {

class DatafileDocument;

/// Other field definitions, with the settings that point to fields and the contents that go with them.
class FieldFormatChange : public SteppedChange
{
public:
    /// Values by key; a null one is none. Settings that are not among them stay as they are.
    using Settings = QList<std::pair<QString, plist::Value>>;

    FieldFormatChange(const QString &name,
                      Settings otherSettings,
                      std::vector<ContentChange::Record> contents);

    QString name() const override { return g_contents.name(); }
    size_t partCount() const override { return g_contents.partCount(); }
    size_t reversiblePartCount() const override { return g_contents.reversiblePartCount(); }
    void makeParts(DatafileDocument &document, size_t from, size_t to) override
    {
        g_contents.makeParts(document, from, to);
    }
    /// Announces it.
    void conclude(DatafileDocument &document) override;

private:
    Settings g_otherSettings;
    ContentChange g_contents;
};

/// What records hold in fields that are to go, omitted and locked ones too. It runs on any thread.
class FieldContents
{
public:
    FieldContents(const DatafileDocument &document, const QStringList &fields);
    /// Once.
    void run(Progress &progress);

    bool wasCancelled() const { return g_wasCancelled; }
    /// The document has changed since this was made: it is to be done anew.
    bool isStale() const { return g_watch.hasChanged(); }
    /// What empties the fields.
    std::vector<ContentChange::Record> takeContents() { return std::exchange(g_contents, {}); }

private:
    ChangeWatch g_watch;
    StoredRecords g_stored;
    std::vector<FieldKey> g_fields;
    std::vector<quint32> g_records;
    std::vector<ContentChange::Record> g_contents;
    bool g_wasCancelled = false;
};

/// The fields of a document: which there are, in which order, and which are shown as columns. Each operation
/// is one step of Undo and marks the document as changed; what changes nothing is none of this.
class FieldOperations
{
    Q_DECLARE_TR_FUNCTIONS(FieldOperations)

public:
    /// The document outlives it.
    explicit FieldOperations(DatafileDocument &document) : g_document(document) {}

    /// Refused for an empty name.
    Result<QString> add(const QString &name); ///< The identifier of the new field, which is the last.
    Result<> rename(const QString &identifier, const QString &name);
    /// With its contents in all records, locked and omitted ones too.
    void remove(const QString &identifier);
    /// The index counts without the field itself; past the end means the end.
    void move(const QString &identifier, qint64 toIndex);
    void setShown(const QString &identifier, bool shown);

    /// All at once: other definitions, of which those with a known identifier are the same fields, and the
    /// name of the text, where that is not empty. Refused when one has no name.
    Result<> setFields(const QList<FieldDefinition> &fields, const QString &textName, const QString &name);
    /// Which of the fields would go with that.
    QStringList removedBy(const QList<FieldDefinition> &fields) const;
    /// The change that does it, and puts the contents into the records, to be made and remembered by the
    /// caller; null when all stays as it is.
    std::unique_ptr<SteppedChange> changeTo(const QList<FieldDefinition> &fields,
                                            const QString &textName,
                                            std::vector<ContentChange::Record> contents,
                                            const QString &name) const;

private:
    void change(const QList<FieldDefinition> &fields, const QString &textName, const QString &name);

    DatafileDocument &g_document;
};

/// A new field with the same text in every selected record; locked ones have nothing in it.
class AddFieldWithContent : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(AddFieldWithContent)

public:
    AddFieldWithContent(const DatafileDocument &document, const QString &name, const QString &content);

    QString field() const { return g_field.identifier(); }

private:
    void change(const RecordView &record, Change &change) override;
    bool isWorthwhile() const override { return true; }
    std::unique_ptr<SteppedChange>
    changeOf(DatafileDocument &document, const QString &name, std::vector<Change> changes) override;

    FieldDefinition g_field;
    QString g_content;
};

/// How many records hold something in each field, omitted records too. It runs on any thread.
class FieldUse
{
public:
    explicit FieldUse(const DatafileDocument &document);
    /// Once.
    void run(Progress &progress);
    bool wasCancelled() const { return g_wasCancelled; }
    /// By field identifier.
    const QHash<QString, qint64> &counts() const { return g_counts; }
    /// Those of them that are locked.
    const QHash<QString, qint64> &lockedCounts() const { return g_lockedCounts; }

private:
    StoredTexts g_texts;
    std::vector<quint32> g_records;
    QHash<QString, qint64> g_counts;
    QHash<QString, qint64> g_lockedCounts;
    bool g_wasCancelled = false;
};

} // namespace tavrin
