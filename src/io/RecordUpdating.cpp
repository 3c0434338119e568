// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/RecordUpdating.h"

#include "document/DatafileArrangement.h"
#include "document/DatafileDocument.h"
#include "document/RecordChanges.h"
#include "io/ImportChange.h"
#include "model/FieldText.h"
#include "sorting/WorkSteps.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace tavrin {

RecordUpdating::RecordUpdating(const DatafileDocument &document,
                               ReadTable table,
                               TableMapping mapping,
                               const QString &keyField)
    : g_table(std::move(table))
    , g_mapping(std::move(mapping))
    , g_texts(document.datafileRecords(), document.datafileSettings())
{
    for (const TableMapping::FieldColumn &field : g_mapping.fields) {
        if (field.field.text == keyField)
            g_key = &field;
    }
    g_textName = document.datafileSettings().textName();
    for (const FieldDefinition &field : document.datafileSettings().fields())
        g_fieldNames.insert(field.identifier(), field.name());
    document.datafileRecords().forEach(
        [this](quint32 record, const RecordView &) { g_records.push_back(record); });
}

QString RecordUpdating::content(quint32 row, const TableMapping::FieldColumn &field) const
{
    return singleLineFieldText(g_table.table->cell(row, field.column).toString());
}

QHash<QString, quint32> RecordUpdating::recordsByKey(WorkSteps &steps) const
{
    QHash<QString, quint32> records;
    for (const quint32 record : g_records) {
        if (!steps.goOn())
            break;
        const QString key = g_texts.view(record).fieldValue(g_key->field).toString();
        if (!key.isEmpty() && !records.contains(key))
            records.insert(key, record);
    }
    return records;
}

QHash<QString, quint32> RecordUpdating::lastRowsByKey(WorkSteps &steps) const
{
    QHash<QString, quint32> rows;
    for (quint32 row = g_mapping.firstRow; row < g_table.table->rowCount() && steps.goOn(); ++row)
        rows.insert(content(row, *g_key), row);
    return rows;
}

void RecordUpdating::run(Progress &progress)
{
    if (!g_key)
        return;
    const quint32 rows = g_table.table->rowCount();
    WorkSteps steps(progress, g_records.size() + 2 * size_t(rows - g_mapping.firstRow));
    const QHash<QString, quint32> recordOfKey = recordsByKey(steps);
    const QHash<QString, quint32> lastRowOfKey = lastRowsByKey(steps);
    for (quint32 row = g_mapping.firstRow; row < rows && steps.goOn(); ++row) {
        const QString key = content(row, *g_key);
        const auto found = recordOfKey.constFind(key);
        if (!key.isEmpty() && lastRowOfKey.value(key) != row)
            ++g_repeatedCount;
        else if (found == recordOfKey.constEnd())
            g_newRows.push_back(row);
        else
            compareRow(row, *found);
    }
    g_wasCancelled = steps.isStopped();
}

void RecordUpdating::noteDifference(quint32 row,
                                    const QString &name,
                                    const QString &before,
                                    const QString &after)
{
    constexpr qsizetype mostDifferences = 1000;
    if (g_differences.size() < mostDifferences)
        g_differences.append({content(row, *g_key), name, before, after});
}

void RecordUpdating::compareRow(quint32 row, quint32 record)
{
    const RecordView view = g_texts.view(record);
    ContentChange::Record change{record, {}, {}};
    for (const TableMapping::FieldColumn &field : g_mapping.fields) {
        if (g_table.table->cell(row, field.column).isAbsent())
            continue;
        const QString newContent = content(row, field);
        const QString oldContent = view.fieldValue(field.field).toString();
        if (newContent == oldContent || (newContent.isEmpty() && oldContent.isEmpty()))
            continue;
        change.fields.append({field.field.text, newContent});
        if (!view.recordLocked())
            noteDifference(row, g_fieldNames.value(field.field.text), oldContent, newContent);
    }
    compareText(row, view, change);
    if (change.isEmpty())
        ++g_unchangedCount;
    else if (view.recordLocked())
        ++g_lockedCount;
    else
        g_changes.push_back(std::move(change));
    g_changedCount = std::ssize(g_changes);
}

void RecordUpdating::compareText(quint32 row, const RecordView &view, ContentChange::Record &change)
{
    const bool hasText = std::ranges::any_of(
        g_mapping.textColumns, [&](quint32 column) { return !g_table.table->cell(row, column).isAbsent(); });
    if (!hasText)
        return;
    const RecordText before{view.textString().toString(), view.textRTFD()};
    const QString text = textOfRow(*g_table.table, row, g_mapping.textColumns).toString();
    if (text == before.plain || (text.isEmpty() && before.plain.isEmpty()))
        return;
    // It looks as the one before it did.
    change.text = withReplaced(before, {0, before.plain.size()}, text).value_or(RecordText{text, {}});
    if (!view.recordLocked())
        noteDifference(row, g_textName, before.plain, text);
}

Result<> RecordUpdating::apply(DatafileDocument &document)
{
    std::unique_ptr<PresenceChange> added;
    if (!g_newRows.empty()) {
        TableMapping mapping = g_mapping;
        mapping.rows = g_newRows;
        const Result<RecordBatch> batch = recordsOfTable(g_table, mapping, document.services().environment);
        if (!batch)
            return batch.error();
        added = PresenceChange::added(addBatch(document, *batch), {});
    }
    auto contents = std::make_unique<ContentChange>(QString(), std::exchange(g_changes, {}));
    contents->exchange(document);
    auto change = std::make_unique<ImportChange>(document);
    change->append(std::move(contents));
    if (added)
        change->append(std::move(added));
    DatafileArrangement(document).selectAll();
    document.undoHistory().push(std::move(change));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    return {};
}

} // namespace tavrin
