// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/TerminalProgress.h"
#include "document/DuplicateRemoval.h"

#include <QJsonArray>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

ExitStatus runDedupe(Call &call)
{
    if (const QString fault = faultOfTarget(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    using Compare = DuplicateRemoval::Compare;
    DuplicateRemoval removal(
        edit->document(), call.arguments.has(u"--plain-text"_s) ? Compare::PlainTexts : Compare::RichTexts);
    TerminalProgress progress(call.arguments);
    removal.run(progress);
    const QStringList removed = removal.apply(edit->document());
    // Nothing to remove leaves the datafile as it is; a copy that was asked for is made all the same.
    if (!removed.isEmpty() || !edit->isInPlace()) {
        if (const Result<> written = edit->write(); !written)
            return call.failed(written.error());
    }
    if (call.wantsJson())
        writeJson(call.output,
                  {{u"removed"_s, removed.size()}, {u"identifiers"_s, QJsonArray::fromStringList(removed)}});
    else if (removed.isEmpty())
        call.output.writeLine(Cli::tr("No duplicate records were removed."));
    else
        call.output.writeLine(Cli::tr("%1 duplicate record(s) removed.").arg(removed.size()));
    return ExitStatus::Done;
}

} // namespace

Command dedupeCommand()
{
    return {
        u"dedupe"_s,
        u"FILE"_s,
        1,
        1,
        Cli::tr("Removes duplicate records among the selected ones."),
        Cli::tr("Duplicates are equal in all fields and in the text. Differences in formatting alone do not "
                "count.\nThe first of them in the order of the catalog stays."),
        QList<Option>{{u"--plain-text"_s, {}, Cli::tr("Compare the plain texts only.")}} + writingOptions(),
        runDedupe};
}

} // namespace tavrin
