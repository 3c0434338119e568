// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/InfoCommand.h"
#include "cli/RecordAccess.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

ExitStatus runNew(Call &call)
{
    const QString path = call.arguments.operand(0);
    if (!call.arguments.has(u"--fields"_s))
        return call.wrongUsage(Cli::tr("Name the fields with --fields."));
    const QStringList names = splitNames(call.arguments.value(u"--fields"_s));
    if (names.contains(QString()))
        return call.wrongUsage(Cli::tr("A field needs a name."));
    if (const Result<> allowed = mayCreate(call, path); !allowed)
        return call.failed(allowed.error());

    const DatafileKind kind = call.kind().value_or(datafileKindOfPath(path).value_or(DatafileKind::Pro));
    const std::unique_ptr<DatafileDocument> document =
        DatafileDocument::newDatafile(call.services, kind, names, call.arguments.value(u"--text-name"_s));
    if (const Result<> written = document->writeToURL(path, typeNameOf(kind)); !written)
        return call.failed(written.error());
    writeInfo(call, *document, plist::Format::Xml);
    return ExitStatus::Done;
}

} // namespace

Command newCommand()
{
    return {u"new"_s,
            u"OUT"_s,
            1,
            1,
            Cli::tr("Makes a new datafile with one empty record."),
            Cli::tr("A comma in a field's name has a backslash before it."),
            {{u"--fields"_s, u"A,B,..."_s, Cli::tr("The names of the fields.")},
             {u"--text-name"_s, u"NAME"_s, Cli::tr("The name of the text.")},
             {u"--force"_s, {}, Cli::tr("Replace OUT when it exists.")}},
            runNew};
}

} // namespace tavrin
