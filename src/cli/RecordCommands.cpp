// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Commands that add, delete, order and lock records.

#include "cli/DatafileAccess.h"
#include "cli/FieldValues.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "document/DatafileBackups.h"
#include "document/RecordAdding.h"
#include "document/RecordOperations.h"

#include <functional>
#include <initializer_list>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Where --at and --to say that a record goes.
struct Target
{
    RecordPlace place;
    QString after; ///< The identifier of the record before it; only where the place is AfterCurrent.
};

Result<Target> targetIn(const QString &text, const DatafileDocument &document)
{
    if (text == "first"_L1)
        return Target{RecordPlace::First, {}};
    if (text == "last"_L1)
        return Target{RecordPlace::Last, {}};
    const Result<PlacedRecord> record = recordNamed(text.sliced("after:"_L1.size()), document);
    if (!record)
        return record.error();
    return Target{RecordPlace::AfterCurrent, record->identifier};
}

/// Null when the option is well-formed or missing.
QString faultOfTargetOption(const Arguments &arguments, const QString &option)
{
    const QString text = arguments.value(option);
    if (text.isNull() || text == "first"_L1 || text == "last"_L1 || text.startsWith("after:"_L1))
        return {};
    return Cli::tr("%1 is first, last or after:NUMBER, not %2.").arg(option, text);
}

/// Opens the datafile that is to be changed, unless one of the faults is not null.
ExitStatus edited(Call &call,
                  std::initializer_list<QString> faults,
                  const std::function<ExitStatus(DatafileEdit &edit)> &change)
{
    for (const QString &fault : faults) {
        if (!fault.isNull())
            return call.wrongUsage(fault);
    }
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    return edit ? change(*edit) : call.failed(edit.error());
}

/// The same for what is done with the one record that the operands name.
ExitStatus
editedRecord(Call &call,
             std::initializer_list<QString> faults,
             const std::function<ExitStatus(DatafileEdit &edit, const QString &identifier)> &change)
{
    return edited(call, faults, [&](DatafileEdit &edit) {
        const Result<PlacedRecord> record = recordNamed(call.arguments.operand(1), edit.document());
        return record ? change(edit, record->identifier) : call.failed(record.error());
    });
}

/// Writes the datafile, then the count that came out.
ExitStatus finish(Call &call, DatafileEdit &edit, const QString &key, qint64 count, const QString &sentence)
{
    if (const Result<> written = edit.write(); !written)
        return call.failed(written.error());
    if (call.wantsJson())
        writeJson(call.output, {{key, count}});
    else
        call.output.writeLine(sentence.arg(count));
    return ExitStatus::Done;
}

ExitStatus finishWithRecord(Call &call, DatafileEdit &edit, const QString &identifier)
{
    if (const Result<> written = edit.write(); !written)
        return call.failed(written.error());
    const Result<PlacedRecord> record = recordNamed(u"id:"_s + identifier, edit.document());
    if (!record)
        return call.failed(record.error());
    writeRecord(call, *record, edit.document().datafileSettings());
    return ExitStatus::Done;
}

// Adding.

ExitStatus add(Call &call, DatafileEdit &edit)
{
    const Arguments &arguments = call.arguments;
    DatafileDocument &document = edit.document();
    const Result<FieldValues> values = fieldValuesIn(arguments, document.datafileSettings());
    if (!values)
        return call.failed(values.error());
    RecordAdding adding(document);
    // There is no current record here that another one could follow.
    Result<Target> target =
        Target{adding.place() == RecordPlace::First ? RecordPlace::First : RecordPlace::Last, {}};
    if (arguments.has(u"--at"_s))
        target = targetIn(arguments.value(u"--at"_s), document);
    if (!target)
        return call.failed(target.error());
    RecordAdding::Content content{values->fields, {}};
    if (values->text)
        content.text = RecordText{*values->text, {}};
    return finishWithRecord(call, edit, adding.addRecord(target->after, content, target->place));
}

ExitStatus runAdd(Call &call)
{
    return edited(call,
                  {faultOfFieldValues(call.arguments),
                   faultOfTargetOption(call.arguments, u"--at"_s),
                   faultOfTarget(call.arguments)},
                  [&call](DatafileEdit &edit) { return add(call, edit); });
}

ExitStatus runDuplicate(Call &call)
{
    return editedRecord(
        call, {faultOfTarget(call.arguments)}, [&call](DatafileEdit &edit, const QString &record) {
            const QString made = RecordAdding(edit.document()).duplicateRecord(record);
            if (made.isNull())
                return call.failed({Error::Kind::Refused, Cli::tr("The record is empty."), record});
            return finishWithRecord(call, edit, made);
        });
}

// Deleting.

QString faultOfDelete(const Arguments &arguments)
{
    const bool isSelected = arguments.has(u"--selected"_s);
    if (isSelected == (arguments.operands().size() > 1))
        return Cli::tr("Say which records: either numbers or --selected.");
    if (arguments.has(u"--no-backup"_s) && !isSelected)
        return Cli::tr("%1 goes with %2 alone.").arg(u"--no-backup"_s, u"--selected"_s);
    return faultOfTarget(arguments);
}

Result<qint64> deleteSelected(const Arguments &arguments, DatafileDocument &document)
{
    // What is refused needs no backup.
    if (document.datafileCatalog().countSelected() == document.datafileCatalog().count())
        return Error{Error::Kind::Refused, Cli::tr("All records are selected; one of them has to stay."), {}};
    if (!arguments.has(u"--no-backup"_s)) {
        if (const Result<QString> backup = DatafileBackups(document).write(); !backup)
            return backup.error();
    }
    return RecordOperations(document).deleteAllSelected();
}

ExitStatus deleteRecords(Call &call, DatafileEdit &edit)
{
    DatafileDocument &document = edit.document();
    QStringList identifiers;
    for (const QString &name : call.arguments.operands().sliced(1)) {
        const Result<PlacedRecord> record = recordNamed(name, document);
        if (!record)
            return call.failed(record.error());
        identifiers.append(record->identifier);
    }
    const Result<qint64> deleted = call.arguments.has(u"--selected"_s)
                                       ? deleteSelected(call.arguments, document)
                                       : RecordOperations(document).deleteRecords(identifiers);
    if (!deleted)
        return call.failed(deleted.error());
    return finish(call, edit, u"deleted"_s, *deleted, Cli::tr("Deleted: %1."));
}

ExitStatus runDelete(Call &call)
{
    return edited(call, {faultOfDelete(call.arguments)}, [&call](DatafileEdit &edit) {
        return deleteRecords(call, edit);
    });
}

// Ordering and locking.

ExitStatus move(Call &call, DatafileEdit &edit, const QString &record)
{
    const Result<Target> target = targetIn(call.arguments.value(u"--to"_s), edit.document());
    if (!target)
        return call.failed(target.error());
    RecordOperations operations(edit.document());
    const Result<bool> moved = target->place == RecordPlace::First ? operations.moveToFirst(record)
                               : target->place == RecordPlace::Last
                                   ? operations.moveToLast(record)
                                   : operations.moveAfter(record, target->after);
    if (!moved)
        return call.failed(moved.error());
    return finish(call, edit, u"moved"_s, *moved ? 1 : 0, Cli::tr("Moved: %1."));
}

ExitStatus runMove(Call &call)
{
    if (!call.arguments.has(u"--to"_s))
        return call.wrongUsage(Cli::tr("Say where to with --to."));
    return editedRecord(
        call,
        {faultOfTargetOption(call.arguments, u"--to"_s), faultOfTarget(call.arguments)},
        [&call](DatafileEdit &edit, const QString &record) { return move(call, edit, record); });
}

QString faultOfLock(const Arguments &arguments)
{
    qsizetype said = arguments.operands().size() - 1;
    for (const QString &option : {u"--all"_s, u"--none"_s, u"--revert"_s})
        said += arguments.has(option) ? 1 : 0;
    if (said != 1)
        return Cli::tr("Say which records: --all, --none, --revert or a number.");
    if (arguments.has(u"--unlock"_s) && arguments.operands().size() == 1)
        return Cli::tr("%1 goes with a number alone.").arg(u"--unlock"_s);
    return faultOfTarget(arguments);
}

ExitStatus lock(Call &call, DatafileEdit &edit)
{
    const Arguments &arguments = call.arguments;
    RecordOperations operations(edit.document());
    if (arguments.operands().size() > 1) {
        const Result<PlacedRecord> record = recordNamed(arguments.operand(1), edit.document());
        if (!record)
            return call.failed(record.error());
        operations.setLocked(record->identifier, !arguments.has(u"--unlock"_s));
    } else if (arguments.has(u"--revert"_s)) {
        operations.revertAllLocked();
    } else {
        operations.setAllLocked(arguments.has(u"--all"_s));
    }
    qint64 locked = 0;
    edit.document().datafileRecords().forEach(
        [&locked](quint32, const RecordView &record) { locked += record.recordLocked() ? 1 : 0; });
    return finish(call, edit, u"locked"_s, locked, Cli::tr("Locked records: %1."));
}

ExitStatus runLock(Call &call)
{
    return edited(
        call, {faultOfLock(call.arguments)}, [&call](DatafileEdit &edit) { return lock(call, edit); });
}

} // namespace

Command addCommand()
{
    return {
        u"add"_s,
        u"FILE"_s,
        1,
        1,
        Cli::tr("Adds a record."),
        Cli::tr("It gets the automatic number, where the settings ask for one. Without --at it becomes the "
                "first or the\nlast record, as the settings say for new ones.\n"
                "A field is named by its name, or by id:IDENTIFIER; Text is the text."),
        fieldValueOptions() + QList<Option>{{u"--at"_s, u"PLACE"_s, Cli::tr("first, last or after:NUMBER.")}}
            + writingOptions(),
        runAdd};
}

Command deleteCommand()
{
    constexpr qsizetype any = 1 << 20;
    return {u"delete"_s,
            u"FILE [NUMBER|IDENTIFIER...]"_s,
            1,
            any,
            Cli::tr("Deletes records."),
            Cli::tr("The last record of a datafile stays. --selected writes a dated copy into the folder "
                    "\"Backups\" of\nthe datafiles folder first."),
            QList<Option>{{u"--selected"_s, {}, Cli::tr("Delete all selected records.")},
                          {u"--no-backup"_s, {}, Cli::tr("Write no backup.")}}
                + writingOptions(),
            runDelete};
}

Command duplicateCommand()
{
    return {u"duplicate"_s,
            u"FILE NUMBER|IDENTIFIER"_s,
            2,
            2,
            Cli::tr("Duplicates a record."),
            Cli::tr("The new record has the contents of the other one and an automatic number of its own. It "
                    "stands\nbehind the other, unless the settings want it where new records are placed."),
            writingOptions(),
            runDuplicate};
}

Command moveCommand()
{
    return {u"move"_s,
            u"FILE NUMBER|IDENTIFIER"_s,
            2,
            2,
            Cli::tr("Moves a record to another place."),
            Cli::tr("Only while all records are selected."),
            QList<Option>{{u"--to"_s, u"PLACE"_s, Cli::tr("first, last or after:NUMBER.")}}
                + writingOptions(),
            runMove};
}

Command lockCommand()
{
    return {
        u"lock"_s,
        u"FILE [NUMBER|IDENTIFIER]"_s,
        1,
        2,
        Cli::tr("Locks records against changes."),
        Cli::tr("--all, --none and --revert are of all records, those that are not selected too."),
        QList<Option>{{u"--all"_s, {}, Cli::tr("Lock all records.")},
                      {u"--none"_s, {}, Cli::tr("Unlock all records.")},
                      {u"--revert"_s, {}, Cli::tr("Lock those that were locked before, unlock the others.")},
                      {u"--unlock"_s, {}, Cli::tr("Unlock the record instead.")}}
            + writingOptions(),
        runLock};
}

} // namespace tavrin
