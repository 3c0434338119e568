// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentChange.h"
#include "document/StoredTexts.h"
#include "io/TableImport.h"

namespace tavrin {

class WorkSteps;

/// What a row says otherwise than the record of its key.
struct RowDifference
{
    QString key;
    QString fieldName;
    QString oldContent;
    QString newContent;
};

/// The updating of records from the rows of a table that have the same key, in three steps: it is made and
/// applied on the document's thread, and runs in between on any. Rows without a record become new ones.
class RecordUpdating
{
public:
    /// `keyField` is the identifier of one of the mapping's fields. Locked records stay as they are. Where
    /// several records have the key of a row, the first one is meant; where several rows have one key, the
    /// last one counts.
    RecordUpdating(const DatafileDocument &document,
                   ReadTable table,
                   TableMapping mapping,
                   const QString &keyField);

    /// Once.
    void run(Progress &progress);

    bool wasCancelled() const { return g_wasCancelled; }
    /// The first thousand of them.
    const QList<RowDifference> &differences() const { return g_differences; }
    qsizetype changedCount() const { return g_changedCount; }
    qsizetype newCount() const { return static_cast<qsizetype>(g_newRows.size()); }
    qsizetype unchangedCount() const { return g_unchangedCount; }
    qsizetype lockedCount() const { return g_lockedCount; }
    /// Rows that do not count because a later one has their key.
    qsizetype repeatedCount() const { return g_repeatedCount; }

    /// Changes and adds, as one step of Undo. Io: too little memory; nothing has happened then.
    Result<> apply(DatafileDocument &document);

private:
    QHash<QString, quint32> recordsByKey(WorkSteps &steps) const;
    QHash<QString, quint32> lastRowsByKey(WorkSteps &steps) const;
    void compareRow(quint32 row, quint32 record);
    void compareText(quint32 row, const RecordView &view, ContentChange::Record &change);
    void noteDifference(quint32 row, const QString &name, const QString &before, const QString &after);
    QString content(quint32 row, const TableMapping::FieldColumn &field) const;

    ReadTable g_table;
    TableMapping g_mapping;
    const TableMapping::FieldColumn *g_key = nullptr;
    StoredTexts g_texts;
    std::vector<quint32> g_records;
    QHash<QString, QString> g_fieldNames;
    QString g_textName;
    std::vector<ContentChange::Record> g_changes;
    std::vector<quint32> g_newRows;
    QList<RowDifference> g_differences;
    qsizetype g_changedCount = 0;
    qsizetype g_unchangedCount = 0;
    qsizetype g_lockedCount = 0;
    qsizetype g_repeatedCount = 0;
    bool g_wasCancelled = false;
};

} // namespace tavrin
