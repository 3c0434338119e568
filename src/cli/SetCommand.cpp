// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/RecordAccess.h"
#include "model/FieldText.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// What is to be stored; everything is looked up before anything is changed.
struct Changes
{
    QList<std::pair<QString, QString>> fieldValues; ///< By field identifier, in the order given.
    std::optional<QString> text;
};

Result<Changes> changesIn(const Arguments &arguments, const DatafileSettingsData &settings)
{
    Changes changes;
    if (arguments.has(u"--text"_s))
        changes.text = arguments.value(u"--text"_s);
    for (const QString &assignment : arguments.values(u"--set"_s)) {
        const qsizetype equals = assignment.indexOf(u'=');
        const Result<NamedField> field = fieldNamed(assignment.first(equals), settings);
        if (!field)
            return field.error();
        if (!field->isText() && field->identifier.isEmpty())
            return Error{
                Error::Kind::Corrupt,
                Cli::tr("The field \"%1\" has no identifier to store a value under.").arg(field->name),
                {}};
        const QString value = assignment.sliced(equals + 1);
        if (field->isText())
            changes.text = value;
        else
            changes.fieldValues.append({field->identifier, singleLineFieldText(value)});
    }
    return changes;
}

Result<> apply(const Changes &changes, const PlacedRecord &placed, bool plainText, DatafileDocument &document)
{
    if (placed.record->recordLocked())
        return Error{Error::Kind::Refused, Cli::tr("The record is locked."), placed.identifier};
    const bool hasFormatting = !document.isMobile() && !placed.record->textRTFD().isEmpty();
    if (changes.text && hasFormatting && !plainText)
        return Error{Error::Kind::Refused,
                     Cli::tr("The record's text is formatted, and the formatting would be lost; --plain-text "
                             "permits that."),
                     placed.identifier};
    for (const auto &[identifier, value] : changes.fieldValues)
        document.storeFieldValue(placed.identifier, identifier, value);
    if (changes.text && hasFormatting)
        document.storePlainText(placed.identifier, *changes.text);
    else if (changes.text)
        document.storeText(placed.identifier, *changes.text);
    document.markRecordModified(placed.identifier);
    return {};
}

QString faultOfAssignments(const Arguments &arguments)
{
    const QStringList assignments = arguments.values(u"--set"_s);
    if (assignments.isEmpty() && !arguments.has(u"--text"_s))
        return Cli::tr("Say what to change with --set or --text.");
    for (const QString &assignment : assignments) {
        if (!assignment.contains(u'='))
            return Cli::tr("--set needs FIELD=VALUE, not %1.").arg(assignment);
    }
    return faultOfTarget(arguments);
}

ExitStatus runSet(Call &call)
{
    if (const QString fault = faultOfAssignments(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileDocument &document = edit->document();
    Result<PlacedRecord> placed = recordNamed(call.arguments.operand(1), document);
    if (!placed)
        return call.failed(placed.error());
    const Result<Changes> changes = changesIn(call.arguments, document.datafileSettings());
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
            QList<Option>{
                {u"--set"_s, u"FIELD=VALUE"_s, Cli::tr("Store this value in the field (repeatable)."), true},
                {u"--text"_s, u"TEXT"_s, Cli::tr("Store this text.")},
                {u"--plain-text"_s, {}, Cli::tr("Let a formatted text lose its formatting.")}}
                + writingOptions(),
            runSet};
}

} // namespace tavrin
