// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/InfoCommand.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

ExitStatus runSave(Call &call)
{
    if (const QString fault = faultOfTarget(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    std::optional<plist::Format> format;
    if (const QString name = call.arguments.value(u"--format"_s); name == u"xml")
        format = plist::Format::Xml;
    else if (name == u"binary")
        format = plist::Format::Binary;
    else if (!name.isNull())
        return call.wrongUsage(Cli::tr("--format is xml or binary."));

    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    if (const Result<> written = edit->write(format); !written)
        return call.failed(written.error());
    writeInfo(call, edit->document(), format.value_or(edit->format()));
    return ExitStatus::Done;
}

} // namespace

Command saveCommand()
{
    return {
        u"save"_s,
        u"FILE"_s,
        1,
        1,
        Cli::tr("Reads a datafile and writes it, changing nothing else."),
        Cli::tr("Without --format the file is written in the form in which it was read (the old text form: "
                "as XML)."),
        QList<Option>{{u"--format"_s, u"xml|binary"_s, Cli::tr("The form to write.")}} + writingOptions(),
        runSave};
}

} // namespace tavrin
