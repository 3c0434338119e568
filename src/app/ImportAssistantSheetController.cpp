// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportAssistantSheetController.h"

#include "io/DialectDetection.h"

#include <QLocale>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype previewSize = qsizetype(256) << 10;
constexpr qint64 mostPreviewRows = 12;

} // namespace

ImportAssistantSheetController::ImportAssistantSheetController(const QString &fileName,
                                                               TextContent content,
                                                               ImportTarget target)
    : g_fileName(fileName)
    , g_content(std::move(content))
    , g_target(std::move(target))
    , g_separatorItems({{tr("Comma"), ','},
                        {tr("Semicolon"), ';'},
                        {tr("Tab"), '\t'},
                        {tr("Vertical bar"), '|'},
                        {tr("Colon"), ':'}})
    , g_quoteItems({{tr("Double quotes"), '"'}, {tr("Single quotes"), '\''}, {tr("None"), 0}})
{
    g_options.kind = TableKind::Standard;
    const DetectedDialect detected = detectDialect(g_content);
    g_options.separator = detected.dialect.separator;
    g_options.quote = detected.dialect.quote;
    g_options.namesInFirstRecord = detected.hasNames;
    readPreview();
    mapColumns();
}

qsizetype ImportAssistantSheetController::separator() const
{
    return indexOfCode(g_separatorItems, g_options.separator);
}

qsizetype ImportAssistantSheetController::quote() const
{
    return indexOfCode(g_quoteItems, g_options.quote);
}

void ImportAssistantSheetController::update()
{
    readPreview();
    mapColumns();
    Q_EMIT changed();
}

void ImportAssistantSheetController::setSeparator(qsizetype item)
{
    g_options.separator = static_cast<char>(g_separatorItems[item].code);
    update();
}

void ImportAssistantSheetController::setQuote(qsizetype item)
{
    g_options.quote = static_cast<char>(g_quoteItems[item].code);
    update();
}

void ImportAssistantSheetController::setEncoding(TextEncoding encoding)
{
    if (const Result<TextContent> content = textContent(g_content.source, encoding))
        g_content = *content;
    update();
}

void ImportAssistantSheetController::setNamesInFirstRecord(bool on)
{
    g_options.namesInFirstRecord = on;
    update();
}

void ImportAssistantSheetController::setDestination(Destination destination)
{
    if (destination != Destination::NewDatafile && !hasTarget())
        return;
    g_destination = destination;
    mapColumns();
    Q_EMIT changed();
}

void ImportAssistantSheetController::setTarget(qsizetype column, qsizetype item)
{
    // A field takes one column: the other one that had it goes nowhere.
    const bool isField = !isNew() && item < fieldTargetCount();
    for (Column &other : g_columns) {
        if (isField && other.target == item)
            other.target = nothingTarget();
    }
    g_columns[column].target = item;
    Q_EMIT changed();
}

void ImportAssistantSheetController::setKeyColumn(qsizetype column)
{
    g_keyColumn = column;
    Q_EMIT changed();
}

QStringList ImportAssistantSheetController::targetItems(qsizetype column) const
{
    return targetNames(tr("Field “%1”").arg(g_columns[column].name));
}

QStringList ImportAssistantSheetController::targetNames(const QString &newField) const
{
    QStringList items;
    if (isNew())
        items.append(newField);
    else
        for (const FieldDefinition &field : g_target.fields)
            items.append(field.name());
    return items + QStringList{tr("Text of the record"), tr("Nothing")};
}

QStringList ImportAssistantSheetController::targetSummaries() const
{
    QStringList items = targetNames(tr("A field of its own"));
    for (qsizetype target = 0; target < items.size(); ++target) {
        QStringList names;
        for (const Column &column : g_columns) {
            if (column.target == target)
                names.append(column.name);
        }
        if (!names.isEmpty())
            items[target] += u" \u2190 "_s + names.join(u", "_s);
    }
    return items;
}

void ImportAssistantSheetController::readPreview()
{
    Progress progress;
    const Result<ReadTable> table =
        readTable(g_content.head(previewSize), g_options, mostPreviewRows + 200, progress);
    g_previewRows.clear();
    g_columns.clear();
    if (!table)
        return;
    g_irregularCount = table->malformedCount;
    for (const QString &name : importedFieldNames(*table, g_options))
        g_columns.append({name});
    const quint32 first = g_options.namesInFirstRecord ? 1 : 0;
    const quint32 last = std::min<quint32>(table->table->rowCount(), mostPreviewRows);
    for (quint32 row = first; row < last; ++row)
        g_previewRows.append(table->table->row(row));
}

void ImportAssistantSheetController::mapColumns()
{
    if (isNew()) {
        for (Column &column : g_columns)
            column.target = 0;
        return;
    }
    const auto fieldNamed = [this](const QString &name) {
        const auto found = std::ranges::find_if(g_target.fields, [&name](const FieldDefinition &field) {
            return field.name().compare(name.trimmed(), Qt::CaseInsensitive) == 0;
        });
        return found - g_target.fields.begin();
    };
    const bool byName =
        g_options.namesInFirstRecord && std::ranges::any_of(g_columns, [&](const Column &column) {
            return fieldNamed(column.name) < g_target.fields.size();
        });
    QList<bool> isTaken(g_target.fields.size());
    for (qsizetype i = 0; i < g_columns.size(); ++i) {
        const qsizetype field = byName ? fieldNamed(g_columns[i].name) : i;
        const bool isFree = field < isTaken.size() && !isTaken[field];
        g_columns[i].target = isFree ? field : nothingTarget();
        if (isFree)
            isTaken[field] = true;
    }
}

QString ImportAssistantSheetController::problem() const
{
    if (g_previewRows.isEmpty())
        return tr("There are no rows in this file.");
    const bool hasGoal = std::ranges::any_of(
        g_columns, [this](const Column &column) { return column.target != nothingTarget(); });
    if (!hasGoal)
        return tr("No column goes anywhere.");
    if (g_destination == Destination::Update && keyField().isEmpty())
        return tr("The column by which records are found has to go to a field.");
    return {};
}

QString ImportAssistantSheetController::note() const
{
    if (const QString text = problem(); !text.isEmpty())
        return text;
    if (g_irregularCount > 0)
        return tr("Some rows have another number of values than the first one.");
    return {};
}

QStringList ImportAssistantSheetController::fieldNames() const
{
    QStringList names;
    for (const Column &column : g_columns) {
        if (isNew() && column.target == 0)
            names.append(column.name);
    }
    return names;
}

TableMapping ImportAssistantSheetController::mapping(const QList<FieldDefinition> &fields) const
{
    TableMapping mapping;
    mapping.cleansValues = true;
    mapping.firstRow = g_options.namesInFirstRecord ? 1 : 0;
    for (qsizetype i = 0; i < g_columns.size(); ++i) {
        const auto column = static_cast<quint32>(i);
        const qsizetype target = g_columns[i].target;
        if (target == textTarget())
            mapping.textColumns.push_back(column);
        else if (target < textTarget())
            mapping.fields.push_back(
                {fields[isNew() ? static_cast<qsizetype>(mapping.fields.size()) : target].identifier(),
                 column});
    }
    return mapping;
}

QString ImportAssistantSheetController::keyField() const
{
    const qsizetype target = g_keyColumn < g_columns.size() ? g_columns[g_keyColumn].target : nothingTarget();
    return !isNew() && target < g_target.fields.size() ? g_target.fields[target].identifier() : QString();
}

ImportDifferencesSheetController::ImportDifferencesSheetController(const RecordUpdating &updating)
    : g_differences(updating.differences())
    , g_changesAnything(updating.changedCount() + updating.newCount() > 0)
{
    const QLocale locale;
    QStringList parts = {tr("Records that change: %1").arg(locale.toString(updating.changedCount())),
                         tr("new: %1").arg(locale.toString(updating.newCount())),
                         tr("unchanged: %1").arg(locale.toString(updating.unchangedCount()))};
    if (updating.lockedCount() > 0)
        parts.append(tr("locked and left unchanged: %1").arg(locale.toString(updating.lockedCount())));
    if (updating.repeatedCount() > 0)
        parts.append(tr("passed over because their key comes again: %1")
                         .arg(locale.toString(updating.repeatedCount())));
    g_summary = parts.join(u", "_s) + u'.';
}

} // namespace tavrin
