// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableImport.h"

#include "base/FilledIn.h"
#include "document/DatafileArrangement.h"
#include "document/DatafileDocument.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// A wrong file may look like a table of any width; no person has so many fields.
constexpr quint32 mostFields = 10000;

QString tr(const char *text)
{
    return QCoreApplication::translate("Import", text);
}

QStringList numbers(quint32 first, quint32 last)
{
    QStringList texts;
    for (quint32 number = first; number <= last; ++number)
        texts.append(QString::number(number));
    return texts;
}

/// Names for every column of a regular table: those without one get their number.
QStringList completedNames(QStringList names, quint32 width)
{
    while (names.size() < static_cast<qsizetype>(width))
        names.append(QString());
    for (qsizetype column = 0; column < names.size(); ++column) {
        if (names[column].isEmpty())
            names[column] = QString::number(column + 1);
    }
    return names;
}

/// Where values of those names go: into the fields of the names if all are there, else by their order.
QStringList fieldIdentifiersFor(const QStringList &names, const DatafileSettingsData &settings)
{
    QStringList byName;
    QStringList byOrder;
    QSet<QString> used;
    for (const FieldDefinition &field : settings.fields())
        byOrder.append(field.identifier());
    for (const QString &name : names) {
        const auto found = std::ranges::find_if(settings.fields(), [&](const FieldDefinition &field) {
            return field.name() == name && !used.contains(field.identifier());
        });
        if (found == settings.fields().end())
            return byOrder;
        used.insert(found->identifier());
        byName.append(found->identifier());
    }
    return byName;
}

} // namespace

Result<ReadTable>
readTable(const TextContent &text, const ImportOptions &options, qint64 mostRows, Progress &progress)
{
    Result<ReadTable> table = Error{};
    switch (options.kind) {
    case TableKind::Csv:
        table = readSeparated(text, ',', mostRows, progress);
        break;
    case TableKind::Ssv:
        table = readSeparated(text, ';', mostRows, progress);
        break;
    case TableKind::Tab:
        table = readTabDelimited(text, mostRows, progress);
        break;
    case TableKind::Custom:
        table = readCustomDelimited(text, options.delimiter, progress);
        break;
    case TableKind::Standard:
        table = readStandard(text, {options.separator, options.quote}, mostRows, progress);
        break;
    }
    if (table && fieldCountOf(*table, options.kind) > mostFields)
        return Error{Error::Kind::Unsupported, tr("The file has more than 10,000 values in a row."), {}};
    return table;
}

QStringList importedFieldNames(const ReadTable &table, const ImportOptions &options)
{
    const bool hasNames = options.namesInFirstRecord && table.table->rowCount() > 0;
    const quint32 count = table.incomingFieldCount();
    switch (options.kind) {
    case TableKind::Csv:
    case TableKind::Ssv:
        // One more than there are fields, for what the person wants to add to each record.
        return hasNames ? table.table->row(0) : numbers(0, count);
    case TableKind::Tab:
        if (hasNames)
            return count > 1 ? table.table->row(0) : QStringList();
        return numbers(1, count);
    case TableKind::Custom:
        return {};
    case TableKind::Standard:
        return completedNames(hasNames ? table.table->row(0) : QStringList(), table.table->width());
    }
    return {};
}

quint32 fieldCountOf(const ReadTable &table, TableKind kind)
{
    return kind == TableKind::Standard ? table.table->width() : table.incomingFieldCount();
}

bool fitsFieldCount(const ReadTable &table, TableKind kind, qsizetype fieldCount)
{
    return kind == TableKind::Custom || static_cast<qsizetype>(fieldCountOf(table, kind)) == fieldCount;
}

Error fieldCountMismatch(const ReadTable &table, TableKind kind, qsizetype fieldCount)
{
    return {Error::Kind::Refused,
            QCoreApplication::translate("Import", "The rows of the file have %1 fields, the datafile has %2.")
                .arg(fieldCountOf(table, kind))
                .arg(fieldCount),
            {}};
}

TableMapping
usualMapping(const ReadTable &table, const ImportOptions &options, const QList<FieldDefinition> &fields)
{
    TableMapping mapping;
    mapping.cleansValues = options.kind == TableKind::Standard;
    if (options.kind == TableKind::Custom) {
        mapping.textColumns = {0};
        return mapping;
    }
    const bool skipsFirst = options.kind == TableKind::Tab || options.kind == TableKind::Standard
                            || options.destination == ImportDestination::NewDatafile;
    mapping.firstRow = options.namesInFirstRecord && skipsFirst && table.table->rowCount() > 0 ? 1 : 0;
    const auto columns = static_cast<qsizetype>(fieldCountOf(table, options.kind));
    for (qsizetype column = 0; column < std::min(columns, fields.size()); ++column)
        mapping.fields.push_back({fields[column].identifier(), static_cast<quint32>(column)});
    return mapping;
}

quint64 droppedCount(const ReadTable &table, const TableMapping &mapping)
{
    quint64 dropped = 0;
    if (!mapping.textColumns.empty())
        return dropped;
    const auto taken = static_cast<quint32>(mapping.fields.size());
    for (quint32 row = mapping.firstRow; row < table.table->rowCount(); ++row)
        dropped += std::max(table.table->cellCount(row), taken) - taken;
    return dropped;
}

Result<RecordBatch>
recordsOfTable(const ReadTable &table, const TableMapping &mapping, const Environment &environment)
{
    RecordData pattern(environment);
    pattern.modified(environment);
    const Result<SharedBytes> identifiers = newIdentifiers(rowCountOf(*table.table, mapping), environment);
    if (!identifiers)
        return identifiers.error();
    return RecordBatch{
        std::make_shared<const TableRecords>(table.table, mapping, pattern.dictionary(), *identifiers),
        *identifiers};
}

std::unique_ptr<DatafileDocument>
newDatafileForImport(const DocumentServices &services, DatafileKind kind, const QStringList &fieldNames)
{
    std::unique_ptr<DatafileDocument> document = DatafileDocument::newDocument(services, kind);
    document->addFieldNamesToDocument(fieldNames);
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    return document;
}

Result<ImportOutcome> importTable(DatafileDocument &document,
                                  const ReadTable &table,
                                  const ImportOptions &options,
                                  Progress &progress)
{
    const TableMapping mapping = usualMapping(table, options, document.datafileSettings().fields());
    if (table.table->rowCount() <= mapping.firstRow)
        return nothingImported();
    const Result<RecordBatch> batch = recordsOfTable(table, mapping, document.services().environment);
    if (!batch)
        return batch.error();
    const Result<quint64> removed = addToDatafile(document, *batch, options.destination, progress);
    if (!removed)
        return removed.error();
    return ImportOutcome{.imported = batch->count(),
                         .malformed = table.malformedCount,
                         .dropped = droppedCount(table, mapping),
                         .removed = *removed};
}

RecordsGoal goalOf(DatafileDocument &document, const ReadRecords &records, ImportDestination destination)
{
    DatafileSettingsData &settings = document.datafileSettings();
    RecordsGoal goal{{}, {}, document.services().environment};
    if (destination != ImportDestination::NewDatafile) {
        const QStringList identifiers = document.datafileRecords().allIdentifiers();
        goal.taken = QSet<QString>(identifiers.begin(), identifiers.end());
    } else if (!records.textName.isEmpty()) {
        settings.setTextName(records.textName);
    }
    goal.fields = fieldIdentifiersFor(records.fieldNames, settings);
    return goal;
}

Result<ImportOutcome> importRecords(DatafileDocument &document,
                                    const ReadRecords &records,
                                    ImportDestination destination,
                                    Progress &progress)
{
    const Result<RecordBatch> batch = records.make(goalOf(document, records, destination), progress);
    if (!batch)
        return batch.error();
    if (batch->count() == 0)
        return nothingImported();
    const Result<quint64> removed = addToDatafile(document, *batch, destination, progress);
    if (!removed)
        return removed.error();
    return ImportOutcome{.imported = batch->count(), .malformed = 0, .dropped = 0, .removed = *removed};
}

Error nothingImported()
{
    return {Error::Kind::Corrupt,
            tr("No records were imported."),
            tr("Either the file was empty, or it had the wrong format.")};
}

Error wrongFormat(const QString &fileName, TableKind kind)
{
    const QString detail = kind == TableKind::Ssv ? tr("%@ does not have the correct SSV format.")
                                                  : tr("%@ does not have the correct CSV format.");
    return {Error::Kind::Corrupt, tr("No records were imported."), filledIn(detail, {fileName})};
}

QString malformedMessage()
{
    return tr("The imported file contained some malformed data.");
}

QString malformedInformativeText(quint64 count)
{
    return filledIn(tr("There were %lu instances of extra or missing fields.\n\nSearch on \"<EXTRA FIELD>\" "
                       "and \"<MISSING FIELD>\" to see them."),
                    {QString::number(count)});
}

} // namespace tavrin
