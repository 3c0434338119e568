// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/DatafileCheck.h"
#include "cli/Json.h"
#include "cli/Table.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

DatafileCheck faultsForPeople(const QString &path, Output &output)
{
    DatafileCheck check([&output](const DatafileFault &fault) {
        output.writeLine(fault.code + u": "_s + singleLine(fault.message));
    });
    check.check(path);
    if (check.faultCount() == 0)
        output.writeLine(Cli::tr("No faults found."));
    return check;
}

DatafileCheck faultsAsJson(const QString &path, Output &output)
{
    output.write("{\"faults\": ");
    JsonArrayWriter array(output);
    DatafileCheck check([&array](const DatafileFault &fault) {
        array.append({{u"code"_s, fault.code}, {u"message"_s, fault.message}});
    });
    check.check(path);
    return check;
}

/// Makes the catalog anew where it has faults. A new file is written in any case, so that OUT is what the
/// caller goes on with.
Result<> repair(const Call &call, const QString &path, bool isNeeded)
{
    Result<DatafileEdit> edit = DatafileEdit::open(call, path);
    if (!edit)
        return edit.error();
    if (!isNeeded && edit->isInPlace())
        return {};
    if (isNeeded)
        edit->document().correctCatalog();
    return edit->write();
}

ExitStatus runCheck(Call &call)
{
    const bool repairs = call.arguments.has(u"--repair"_s);
    if (const QString fault = faultOfOptionalTarget(call.arguments, u"--repair"_s); !fault.isNull())
        return call.wrongUsage(fault);
    const QString path = call.arguments.operand(0);
    const DatafileCheck check =
        call.wantsJson() ? faultsAsJson(path, call.output) : faultsForPeople(path, call.output);

    const bool isNeeded = check.catalogFaultCount() > 0;
    const Result<> repaired = repairs ? repair(call, path, isNeeded) : Result<>();
    const bool isRepaired = repairs && repaired && isNeeded;
    if (call.wantsJson())
        call.output.write(isRepaired ? ", \"repaired\": true}\n" : ", \"repaired\": false}\n");
    if (!repaired)
        return call.failed(repaired.error());
    const qint64 left = check.faultCount() - (isRepaired ? check.catalogFaultCount() : 0);
    if (isRepaired)
        call.output.message(Cli::tr("The catalog was made anew; all records are selected."));
    if (left == 0)
        return ExitStatus::Done;
    call.output.message(isRepaired ? Cli::tr("Faults that remain: %1.").arg(left)
                                   : Cli::tr("Faults: %1.").arg(left));
    return ExitStatus::Failed;
}

} // namespace

Command checkCommand()
{
    return {u"check"_s,
            u"FILE"_s,
            1,
            1,
            Cli::tr("Reports every fault of a datafile."),
            Cli::tr("The exit status is 1 when there is a fault, or when one remains after --repair.\n"
                    "--repair makes a catalog with faults anew from the records: their order and selection\n"
                    "are lost. With -o, OUT is written also when there was nothing to repair."),
            QList<Option>{{u"--repair"_s, {}, Cli::tr("Correct the catalog; needs -o or --in-place.")}}
                + writingOptions(),
            runCheck};
}

} // namespace tavrin
