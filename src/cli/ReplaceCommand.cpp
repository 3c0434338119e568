// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/SearchOptions.h"
#include "cli/TerminalProgress.h"
#include "search/DatafileReplace.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

void writeOutcome(Call &call, const ReplaceAllWork &work)
{
    if (call.wantsJson())
        writeJson(call.output,
                  {{u"replacements"_s, work.replacements()}, {u"records"_s, work.changedRecords()}});
    else if (work.replacements() == 0)
        call.output.writeLine(Cli::tr("No changes were made."));
    else
        call.output.writeLine(
            Cli::tr("Number of changes made: %1").arg(QString::number(work.replacements())));
}

ExitStatus runReplace(Call &call)
{
    if (const QString fault = faultOfTarget(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    if (call.arguments.operand(1).isEmpty())
        return call.wrongUsage(Cli::tr("The text to find is empty."));
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileDocument &document = edit->document();
    const Result<qint64> code = fieldsToSearchIn(call.arguments, document.datafileSettings());
    if (!code)
        return call.failed(code.error());

    const Replacement replacement{
        call.arguments.operand(1), call.arguments.operand(2), keyOptions(call.arguments)};
    const auto formatting =
        call.arguments.has(u"--plain-text"_s) ? UnkeptFormatting::Drop : UnkeptFormatting::Leave;
    ReplaceAllWork work(document, replacement, *code, formatting);
    TerminalProgress progress(call.arguments);
    work.run(progress);
    if (!work.leftTexts().empty())
        return call.failed(
            {Error::Kind::Refused,
             Cli::tr("The formatted text of some records cannot be read, and its formatting would be lost; "
                     "--plain-text permits that."),
             document.datafileRecords().identifiers().text(work.leftTexts().front())});
    if (const Result<bool> replaced = work.apply(document); !replaced)
        return call.failed(replaced.error());
    // Nothing to change leaves the datafile as it is; a copy that was asked for is made all the same.
    if (work.replacements() > 0 || !edit->isInPlace()) {
        if (const Result<> written = edit->write(); !written)
            return call.failed(written.error());
    }
    writeOutcome(call, work);
    return ExitStatus::Done;
}

} // namespace

Command replaceCommand()
{
    return {
        u"replace"_s,
        u"FILE TEXT WITH"_s,
        3,
        3,
        Cli::tr("Replaces a text in the selected records."),
        Cli::tr(
            "Every occurrence is replaced, in hidden fields too; locked records stay as they are.\nA "
            "replacement in a formatted text looks like what stood there. A formatted text that cannot be\n"
            "read is changed only with --plain-text: its formatting, pictures and attachments are lost."),
        searchOptions()
            + QList<Option>{{u"--plain-text"_s,
                             {},
                             Cli::tr("Let unreadable formatted texts lose their formatting.")}}
            + writingOptions(),
        runReplace};
}

} // namespace tavrin
