// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/TerminalProgress.h"
#include "io/HtmlExport.h"
#include "io/RecordFiles.h"
#include "io/TableExport.h"
#include "io/TextExport.h"

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// What an export writes, and where.
struct ExportCall
{
    const Arguments &arguments;
    const ExportedRecords &records;
    QString path;
    TerminalProgress progress;
};

Result<qsizetype> exportAsTable(ExportCall &call, TableExportOptions::Form form)
{
    TableExportOptions options;
    options.form = form;
    const QString lineEnd = call.arguments.value(u"--line-end"_s);
    options.lineEnd = lineEnd == u"crlf" ? "\r\n" : lineEnd == u"cr" ? "\r" : "\n";
    options.utf16 = call.arguments.has(u"--utf16"_s);
    options.includingFieldNames = call.arguments.has(u"--names"_s);
    options.fieldContentOnly = call.arguments.has(u"--fields-only"_s);
    if (options.fieldContentOnly && call.records.fields().isEmpty())
        return Error{Error::Kind::Refused, Cli::tr("The datafile has no fields."), {}};
    if (const Result<> done = exportTable(call.records, options, call.path, call.progress); !done)
        return done.error();
    return call.records.count();
}

Result<qsizetype> exportCsv(ExportCall &call)
{
    return exportAsTable(call,
                         call.arguments.has(u"--standard"_s) ? TableExportOptions::Form::Standard
                                                             : TableExportOptions::Form::Csv);
}

Result<qsizetype> exportTab(ExportCall &call)
{
    return exportAsTable(call, TableExportOptions::Form::Tab);
}

Result<qsizetype> exportText(ExportCall &call)
{
    if (const Result<> done = exportTextFile(call.records, call.path, call.progress); !done)
        return done.error();
    return call.records.count();
}

Result<qsizetype> exportRichText(ExportCall &call)
{
    if (const Result<> done = exportRtfd(call.records, call.path, call.progress); !done)
        return done.error();
    return call.records.count();
}

Result<FolderExportOptions> folderOptions(const ExportCall &call)
{
    FolderExportOptions options{.parent = call.path, .replacesFolder = call.arguments.has(u"--force"_s)};
    const QString name = call.arguments.value(u"--name-field"_s);
    if (name.isNull())
        return options;
    const QList<FieldDefinition> &fields = call.records.fields();
    const auto found = std::ranges::find_if(fields, [&name](const FieldDefinition &field) {
        return field.name() == name || u"id:"_s + field.identifier() == name;
    });
    if (found == fields.end())
        return Error{Error::Kind::NotFound, Cli::tr("There is no field %1.").arg(name), {}};
    options.nameField = static_cast<int>(found - fields.begin());
    return options;
}

Result<qsizetype> exportFolderOfTexts(ExportCall &call)
{
    const Result<FolderExportOptions> options = folderOptions(call);
    if (!options)
        return options.error();
    return exportTextFolder(call.records, *options, call.progress);
}

Result<qsizetype> exportFolderOfRichTexts(ExportCall &call)
{
    const Result<FolderExportOptions> options = folderOptions(call);
    if (!options)
        return options.error();
    return exportRtfdFolder(call.records, *options, call.progress);
}

Result<qsizetype> exportAsJson(ExportCall &call)
{
    if (const Result<> done = exportJson(call.records, call.path, call.progress); !done)
        return done.error();
    return call.records.count();
}

Result<qsizetype> exportAsHtml(ExportCall &call)
{
    if (const Result<> done = exportHtml(call.records, call.path, call.progress); !done)
        return done.error();
    return call.records.count();
}

Result<qsizetype> exportFolderOfHtml(ExportCall &call)
{
    const Result<FolderExportOptions> options = folderOptions(call);
    if (!options)
        return options.error();
    return exportHtmlFolder(call.records, *options, call.progress);
}

Result<qsizetype> exportAsMarkdown(ExportCall &call)
{
    return exportMarkdown(call.records, call.path, call.arguments.has(u"--force"_s), call.progress);
}

struct ExportForm
{
    QLatin1StringView name;
    Result<qsizetype> (*run)(ExportCall &call);
};

constexpr std::array exportForms = {
    ExportForm{"csv"_L1, exportCsv},
    ExportForm{"tab"_L1, exportTab},
    ExportForm{"text"_L1, exportText},
    ExportForm{"rtfd"_L1, exportRichText},
    ExportForm{"text-folder"_L1, exportFolderOfTexts},
    ExportForm{"rtfd-folder"_L1, exportFolderOfRichTexts},
    ExportForm{"json"_L1, exportAsJson},
    ExportForm{"html"_L1, exportAsHtml},
    ExportForm{"html-folder"_L1, exportFolderOfHtml},
    ExportForm{"markdown"_L1, exportAsMarkdown},
};

QString formNames()
{
    QStringList names;
    for (const ExportForm &form : exportForms)
        names.append(form.name);
    return names.join(u'|');
}

ExitStatus runExport(Call &call)
{
    const auto form = std::ranges::find_if(exportForms, [&call](const ExportForm &candidate) {
        return candidate.name == call.arguments.operand(0);
    });
    if (form == exportForms.end())
        return call.wrongUsage(Cli::tr("A datafile is exported as %1.").arg(formNames()));
    const QString path = call.arguments.value(u"-o"_s);
    if (path.isEmpty())
        return call.wrongUsage(Cli::tr("Say where to write with -o OUT."));
    const QString lineEnd = call.arguments.value(u"--line-end"_s);
    if (!lineEnd.isNull() && !QStringList{u"lf"_s, u"cr"_s, u"crlf"_s}.contains(lineEnd))
        return call.wrongUsage(Cli::tr("--line-end is lf, cr or crlf."));
    const auto document = openDatafile(call, call.arguments.operand(1));
    if (!document)
        return call.failed(document.error());
    const ExportedRecords records(**document);
    ExportCall exported{call.arguments, records, path, TerminalProgress(call.arguments)};
    const Result<qsizetype> count = form->run(exported);
    if (!count)
        return call.failed(count.error());
    if (call.wantsJson())
        writeJson(call.output, {{u"exported"_s, qint64(*count)}});
    else
        call.output.writeLine(Cli::tr("Records exported: %1").arg(*count));
    return ExitStatus::Done;
}

} // namespace

Command exportCommand()
{
    return {u"export"_s,
            formNames() + u" FILE"_s,
            2,
            2,
            Cli::tr("Writes the selected records in another form."),
            Cli::tr("The folder forms make a folder inside OUT, with one file for each record; markdown\n"
                    "makes the folder OUT. What stands at OUT is replaced, but a folder only with\n"
                    "--force, and one that is no RTFD document never by rtfd."),
            {{u"-o"_s, u"OUT"_s, Cli::tr("Where to write.")},
             {u"--line-end"_s, u"lf|cr|crlf"_s, Cli::tr("How rows end, for csv and tab; lf without this.")},
             {u"--utf16"_s, {}, Cli::tr("Write UTF-16 instead of UTF-8, for csv and tab.")},
             {u"--names"_s, {}, Cli::tr("Write the names of the fields first, for csv and tab.")},
             {u"--fields-only"_s, {}, Cli::tr("Leave the text out, for csv and tab.")},
             {u"--standard"_s, {}, Cli::tr("Quote as RFC 4180 has it, for csv: nothing is lost.")},
             {u"--name-field"_s, u"FIELD"_s, Cli::tr("Name the files by this field, for folders.")},
             {u"--force"_s, {}, Cli::tr("Replace a folder that exists.")}},
            runExport};
}

} // namespace tavrin
