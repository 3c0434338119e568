// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileKind.h"
#include "document/DocumentServices.h"
#include "io/RecordBatch.h"
#include "io/RecordFiles.h"
#include "io/TableReaders.h"
#include "io/TableRecords.h"
#include "model/FieldDefinition.h"

#include <QStringList>

namespace tavrin {

class DatafileDocument;
class DatafileSettingsData;

/// The kinds of delimited text that are imported.
enum class TableKind { Csv, Ssv, Tab, Custom, Standard };

/// Where imported records go.
enum class ImportDestination {
    NewDatafile,
    Append, ///< Behind the records of a datafile.
    Merge,  ///< The same, and duplicate records go.
};

/// What a person chose for an import.
struct ImportOptions
{
    TableKind kind = TableKind::Csv;
    ImportDestination destination = ImportDestination::NewDatafile;
    bool namesInFirstRecord = false;
    QString delimiter = {}; ///< For Custom.
    char separator = ',';   ///< For Standard.
    char quote = '"';       ///< For Standard.
};

/// What an import did.
struct ImportOutcome
{
    quint64 imported = 0;
    quint64 malformed = 0; ///< Instances of extra or missing fields.
    quint64 dropped = 0;   ///< Values for which the datafile has no field.
    quint64 removed = 0;   ///< Duplicates, of a merge.
};

/// Reads the text as the kind wants it.
Result<ReadTable>
readTable(const TextContent &text, const ImportOptions &options, qint64 mostRows, Progress &progress);

/// The fields that a new datafile gets for the table.
QStringList importedFieldNames(const ReadTable &table, const ImportOptions &options);

/// How many fields the rows have: as many as the first one or, by the standard, as the longest one.
quint32 fieldCountOf(const ReadTable &table, TableKind kind);

/// Whether the rows fit into a datafile of so many fields, as far as that matters to the kind.
bool fitsFieldCount(const ReadTable &table, TableKind kind, qsizetype fieldCount);
/// What to say when they do not.
Error fieldCountMismatch(const ReadTable &table, TableKind kind, qsizetype fieldCount);

/// What becomes of the columns in a datafile of those fields: column j goes to field j.
TableMapping
usualMapping(const ReadTable &table, const ImportOptions &options, const QList<FieldDefinition> &fields);

/// How many values of the table have no field there.
quint64 droppedCount(const ReadTable &table, const TableMapping &mapping);

/// New records of the rows, stamped as modified now by the environment's user. Io: too little memory.
Result<RecordBatch>
recordsOfTable(const ReadTable &table, const TableMapping &mapping, const Environment &environment);

/// A new datafile with a field for each name and no records; it counts as changed.
std::unique_ptr<DatafileDocument>
newDatafileForImport(const DocumentServices &services, DatafileKind kind, const QStringList &fieldNames);

/// Makes records of the rows and puts them into the datafile, column j into field j. See addToDatafile().
/// Corrupt when there is nothing to import.
Result<ImportOutcome> importTable(DatafileDocument &document,
                                  const ReadTable &table,
                                  const ImportOptions &options,
                                  Progress &progress);

/// The same of records that were read from files. Values go into the fields of their names or, where not all
/// names are fields, into the fields in their order; what has no field is dropped.
Result<ImportOutcome> importRecords(DatafileDocument &document,
                                    const ReadRecords &records,
                                    ImportDestination destination,
                                    Progress &progress);

/// What such records need of a datafile to be made. A new one takes the name of the text, too.
RecordsGoal goalOf(DatafileDocument &document, const ReadRecords &records, ImportDestination destination);

/// Puts records behind the others and selects all. When the datafile is no new one it is one step of Undo,
/// with the removal of duplicates that belongs to merging. How many were removed. When it fails (Cancelled),
/// the datafile is as it was.
Result<quint64> addToDatafile(DatafileDocument &document,
                              const RecordBatch &batch,
                              ImportDestination destination,
                              Progress &progress);

/// "No records were imported." with its detail.
Error nothingImported();
/// The same for a file that could not be cut into rows.
Error wrongFormat(const QString &fileName, TableKind kind);

/// What an alert says after an import that mended rows: the message, and the text below it.
QString malformedMessage();
QString malformedInformativeText(quint64 count);

} // namespace tavrin
