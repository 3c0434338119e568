// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/TerminalProgress.h"
#include "io/FolderFiles.h"
#include "io/TableImport.h"

#include <limits>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Where the records go: one of -o, --append-to and --merge-into.
const QString &targetOption(const Arguments &arguments)
{
    static const QStringList targets = {u"-o"_s, u"--append-to"_s, u"--merge-into"_s};
    static const QString none;
    const QString *found = &none;
    for (const QString &target : targets) {
        if (!arguments.has(target))
            continue;
        if (!found->isEmpty())
            return none;
        found = &target;
    }
    return *found;
}

std::optional<TableKind> kindNamed(const QString &name)
{
    if (name == u"csv")
        return TableKind::Csv;
    if (name == u"ssv")
        return TableKind::Ssv;
    if (name == u"tab")
        return TableKind::Tab;
    if (name == u"custom")
        return TableKind::Custom;
    return {};
}

char separatorOf(TableKind kind)
{
    return kind == TableKind::Ssv ? ';' : kind == TableKind::Tab ? '\t' : ',';
}

/// What the options say; null when they contradict each other.
QString faultOfOptions(const Arguments &arguments, std::optional<TableKind> kind)
{
    if (arguments.has(u"--delimiter"_s) != (kind == TableKind::Custom))
        return Cli::tr("--delimiter belongs to custom, and custom needs it.");
    const bool isTable = kind && kind != TableKind::Custom;
    if (!isTable && arguments.has(u"--standard"_s))
        return Cli::tr("--standard goes with csv, ssv and tab.");
    return {};
}

ImportOptions optionsOf(const Arguments &arguments, TableKind kind, const QString &target)
{
    ImportOptions options;
    options.kind = arguments.has(u"--standard"_s) ? TableKind::Standard : kind;
    options.separator = separatorOf(kind);
    options.delimiter = arguments.value(u"--delimiter"_s);
    options.namesInFirstRecord = arguments.has(u"--names-in-first-record"_s);
    options.destination = target == u"--append-to"    ? ImportDestination::Append
                          : target == u"--merge-into" ? ImportDestination::Merge
                                                      : ImportDestination::NewDatafile;
    return options;
}

void writeOutcome(Call &call, const ImportOutcome &outcome, const DatafileDocument &document)
{
    const auto number = [](quint64 count) { return static_cast<qint64>(count); };
    if (call.wantsJson()) {
        writeJson(call.output,
                  {{u"imported"_s, number(outcome.imported)},
                   {u"malformed"_s, number(outcome.malformed)},
                   {u"removed"_s, number(outcome.removed)},
                   {u"records"_s, qint64(document.datafileRecords().count())},
                   {u"dropped"_s, number(outcome.dropped)}});
        return;
    }
    call.output.writeLine(Cli::tr("Records imported: %1").arg(outcome.imported));
    if (outcome.removed > 0)
        call.output.writeLine(Cli::tr("Duplicate records removed: %1").arg(outcome.removed));
    if (outcome.malformed > 0)
        call.output.message(malformedMessage() + u' '
                            + malformedInformativeText(outcome.malformed).section(u'\n', 0, 0));
    if (outcome.dropped > 0)
        call.output.message(Cli::tr("Values without a field, which were dropped: %1").arg(outcome.dropped));
}

/// Fills a datafile with what was read.
using Fill = std::function<Result<ImportOutcome>(DatafileDocument &document)>;

ExitStatus importIntoNew(Call &call, const QStringList &fieldNames, const Fill &fill)
{
    const QString path = call.arguments.value(u"-o"_s);
    if (const Result<> allowed = mayCreate(call, path); !allowed)
        return call.failed(allowed.error());
    const DatafileKind kind = call.kind().value_or(datafileKindOfPath(path).value_or(DatafileKind::Pro));
    const auto document = newDatafileForImport(call.services, kind, fieldNames);
    const Result<ImportOutcome> outcome = fill(*document);
    if (!outcome)
        return call.failed(outcome.error());
    if (const Result<> written = document->writeToURL(path, typeNameOf(kind)); !written)
        return call.failed(written.error());
    writeOutcome(call, *outcome, *document);
    return ExitStatus::Done;
}

ExitStatus importIntoExisting(Call &call, const QString &path, const Fill &fill)
{
    Result<DatafileEdit> edit = DatafileEdit::open(call, path);
    if (!edit)
        return call.failed(edit.error());
    const Result<ImportOutcome> outcome = fill(edit->document());
    if (!outcome)
        return call.failed(outcome.error());
    if (const Result<> written = edit->write(); !written)
        return call.failed(written.error());
    writeOutcome(call, *outcome, edit->document());
    return ExitStatus::Done;
}

ExitStatus importInto(Call &call, const QStringList &fieldNames, const Fill &fill)
{
    const QString target = targetOption(call.arguments);
    return target == u"-o" ? importIntoNew(call, fieldNames, fill)
                           : importIntoExisting(call, call.arguments.value(target), fill);
}

ExitStatus importTableFile(Call &call, const ImportOptions &options)
{
    TerminalProgress progress(call.arguments);
    const Result<TextContent> text = readTextFile(call.arguments.operand(1), {}, progress);
    if (!text)
        return call.failed(text.error());
    const Result<ReadTable> table = readTable(*text, options, std::numeric_limits<qint64>::max(), progress);
    if (!table)
        return call.failed(table.error());
    const auto fill = [&](DatafileDocument &document) -> Result<ImportOutcome> {
        const qsizetype fieldCount = document.datafileSettings().fields().size();
        const bool isNew = options.destination == ImportDestination::NewDatafile;
        if (!isNew && !fitsFieldCount(*table, options.kind, fieldCount))
            return fieldCountMismatch(*table, options.kind, fieldCount);
        return importTable(document, *table, options, progress);
    };
    return importInto(call, importedFieldNames(*table, options), fill);
}

ExitStatus importOthers(Call &call, const Result<ReadRecords> &records, ImportDestination destination)
{
    if (!records)
        return call.failed(records.error());
    const auto fill = [&](DatafileDocument &document) {
        TerminalProgress progress(call.arguments);
        return importRecords(document, *records, destination, progress);
    };
    if (records->skippedCount > 0)
        call.output.message(Cli::tr("Files passed over: %1").arg(records->skippedCount));
    return importInto(call, records->fieldNames, fill);
}

Result<ReadRecords> readRichText(const QString &path, const QString &delimiter)
{
    const Result<richtext::AttributedText> text = readRichTextFile(path);
    if (!text)
        return text.error();
    return cutRichText(*text, delimiter);
}

Result<ReadRecords> readOthers(const Arguments &arguments)
{
    TerminalProgress progress(arguments);
    const QString path = arguments.operand(1);
    if (arguments.operand(0) == u"json") {
        const Result<TextContent> text = readTextFile(path, {}, progress);
        if (!text)
            return text.error();
        return readJson(text->utf8);
    }
    if (arguments.operand(0) == u"markdown")
        return readMarkdownFolder(path, progress);
    const FolderImportOptions options{.includingSubfolders = arguments.has(u"--subfolders"_s),
                                      .includingFileNames = arguments.has(u"--file-names"_s)};
    return readTextFolder(path, options, progress);
}

ExitStatus runImport(Call &call)
{
    const Arguments &arguments = call.arguments;
    const QString what = arguments.operand(0);
    const bool isOther = QStringList{u"json"_s, u"markdown"_s, u"folder"_s}.contains(what);
    const std::optional<TableKind> kind = kindNamed(what);
    if (!kind && !isOther)
        return call.wrongUsage(
            Cli::tr("What is imported is csv, ssv, tab, custom, json, markdown or folder."));
    if (const QString fault = faultOfOptions(arguments, kind); !fault.isNull())
        return call.wrongUsage(fault);
    const QString target = targetOption(arguments);
    if (target.isEmpty() || arguments.value(target).isEmpty())
        return call.wrongUsage(
            Cli::tr("Say where the records go: one of -o OUT, --append-to FILE and --merge-into FILE."));
    const ImportOptions options = optionsOf(arguments, kind.value_or(TableKind::Csv), target);
    if (isOther)
        return importOthers(call, readOthers(arguments), options.destination);
    if (kind == TableKind::Custom && isRichTextFile(arguments.operand(1)))
        return importOthers(call, readRichText(arguments.operand(1), options.delimiter), options.destination);
    return importTableFile(call, options);
}

} // namespace

Command importCommand()
{
    return {
        u"import"_s,
        u"csv|ssv|tab|custom|json|markdown|folder INPUT"_s,
        2,
        2,
        Cli::tr("Makes records of a text file, or of a folder of texts."),
        Cli::tr("A line is a row, and quotes go around a value. With --standard values may hold line ends\n"
                "and any of them may be quoted, as RFC 4180 has it. A custom delimiter cuts the file into\n"
                "texts; so it does with RTF. Of a folder, each text file becomes a record."),
        {{u"-o"_s, u"OUT"_s, Cli::tr("Make a new datafile.")},
         {u"--append-to"_s, u"FILE"_s, Cli::tr("Add the records to this datafile.")},
         {u"--merge-into"_s, u"FILE"_s, Cli::tr("The same, and remove duplicate records.")},
         {u"--names-in-first-record"_s, {}, Cli::tr("The first row holds the names of the fields.")},
         {u"--delimiter"_s, u"TEXT"_s, Cli::tr("What stands between records, for custom.")},
         {u"--standard"_s, {}, Cli::tr("Read quoted values as RFC 4180 has them.")},
         {u"--file-names"_s, {}, Cli::tr("Put the files' names into the first field, for folder.")},
         {u"--subfolders"_s, {}, Cli::tr("Read the folders inside, too, for folder.")},
         {u"--force"_s, {}, Cli::tr("Replace OUT when it exists.")}},
        runImport};
}

} // namespace tavrin
