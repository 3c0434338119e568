// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/FieldValues.h"
#include "cli/RecordAccess.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Result<>
apply(const FieldValues &changes, const PlacedRecord &placed, bool plainText, DatafileDocument &document)
{
    if (placed.record->recordLocked())
        return Error{Error::Kind::Refused, Cli::tr("The record is locked."), placed.identifier};
    const bool hasFormatting = !document.isMobile() && !placed.record->textRTFD().isEmpty();
    if (changes.text && hasFormatting && !plainText)
        return Error{Error::Kind::Refused,
                     Cli::tr("The record's text is formatted, and the formatting would be lost; --plain-text "
                             "permits that."),
                     placed.identifier};
    for (const auto &[identifier, value] : changes.fields)
        document.storeFieldValue(placed.identifier, identifier, value);
    if (changes.text && hasFormatting)
        document.storePlainText(placed.identifier, *changes.text);
    else if (changes.text)
        document.storeText(placed.identifier, *changes.text);
    document.markRecordModified(placed.identifier);
    return {};
}

QString faultOfCall(const Arguments &arguments)
{
    if (!arguments.has(u"--set"_s) && !arguments.has(u"--text"_s))
        return Cli::tr("Say what to change with --set or --text.");
    if (const QString fault = faultOfFieldValues(arguments); !fault.isNull())
        return fault;
    return faultOfTarget(arguments);
}

ExitStatus runSet(Call &call)
{
    if (const QString fault = faultOfCall(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileDocument &document = edit->document();
    Result<PlacedRecord> placed = recordNamed(call.arguments.operand(1), document);
    if (!placed)
        return call.failed(placed.error());
    const Result<FieldValues> changes = fieldValuesIn(call.arguments, document.datafileSettings());
    if (!changes)
        return call.failed(changes.error());
    const bool plainText = call.arguments.has(u"--plain-text"_s);
    if (const Result<> applied = apply(*changes, *placed, plainText, document); !applied)
        return call.failed(applied.error());
    if (const Result<> written = edit->write(); !written)
        return call.failed(written.error());
    placed->record = document.datafileRecords().view(placed->identifier);
    writeRecord(call, *placed, document.datafileSettings());
    return ExitStatus::Done;
}

} // namespace

Command setCommand()
{
    return {u"set"_s,
            u"FILE NUMBER|IDENTIFIER"_s,
            2,
            2,
            Cli::tr("Changes a record."),
            Cli::tr("A locked record is refused. Line ends and tabs in a field's value become blanks.\n"
                    "A formatted text is replaced only with --plain-text: its formatting, pictures and "
                    "attachments\nare lost. A datafile of the mobile kind has no formatting.\n"
                    "A field is named by its name, or by id:IDENTIFIER; Text is the text."),
            fieldValueOptions()
                + QList<Option>{{u"--plain-text"_s, {}, Cli::tr("Let a formatted text lose its formatting.")}}
                + writingOptions(),
            runSet};
}

} // namespace tavrin
