// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Commands that change the contents of fields in the selected records.

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "cli/Table.h"
#include "cli/TerminalProgress.h"
#include "document/FieldCommands.h"
#include "document/TextMoving.h"

#include <QDate>
#include <QJsonArray>
#include <QLocale>

#include <memory>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

using MakeWork =
    std::function<Result<std::unique_ptr<ContentWork>>(const Arguments &, const DatafileDocument &)>;

QList<Option> contentOptions()
{
    return QList<Option>{{u"--preview"_s, {}, Cli::tr("Say what would be done, and do nothing.")}}
           + writingOptions();
}

void writeOutcome(const Call &call, const DatafileDocument &document, const ContentWork &work)
{
    const bool isPreview = call.arguments.has(u"--preview"_s);
    QJsonArray samples;
    for (const ContentWork::Sample &sample : work.samples()) {
        const QString identifier = document.datafileRecords().identifiers().text(sample.record);
        const qint64 index = document.datafileCatalog().indexOfSelectedIdentifier(identifier);
        samples.append(QJsonObject{{u"number"_s, index + 1},
                                   {u"field"_s, sample.field.isNull() ? u"Text"_s : sample.field},
                                   {u"before"_s, sample.before},
                                   {u"after"_s, sample.after}});
    }
    if (call.wantsJson()) {
        QJsonObject object{{u"changed"_s, work.changedContents()},
                           {u"records"_s, work.changedRecords()},
                           {u"locked"_s, work.lockedRecords()},
                           {u"left"_s, work.leftRecords()}};
        if (isPreview)
            object.insert(u"samples"_s, samples);
        writeJson(call.output, object);
        return;
    }
    for (const QJsonValue &sample : isPreview ? samples : QJsonArray())
        call.output.writeLine(Cli::tr("#%1: \"%2\" becomes \"%3\"")
                                  .arg(QString::number(sample[u"number"].toInteger()),
                                       singleLine(sample[u"before"].toString()),
                                       singleLine(sample[u"after"].toString())));
    call.output.writeLine(Cli::tr("Contents changed: %1, in %2 records.")
                              .arg(work.changedContents())
                              .arg(work.changedRecords()));
    if (work.lockedRecords() > 0)
        call.output.writeLine(Cli::tr("Locked records skipped: %1.").arg(work.lockedRecords()));
    if (work.leftRecords() > 0)
        call.output.writeLine(
            Cli::tr("Records left as their text's formatting would be lost: %1.").arg(work.leftRecords()));
}

ExitStatus runWork(Call &call, const MakeWork &make)
{
    const bool isPreview = call.arguments.has(u"--preview"_s);
    if (const QString fault = faultOfTarget(call.arguments); !fault.isNull() && !isPreview)
        return call.wrongUsage(fault);
    if (isPreview && hasTarget(call.arguments))
        return call.wrongUsage(Cli::tr("A preview writes nothing."));
    std::optional<DatafileEdit> edit;
    std::unique_ptr<DatafileDocument> read;
    if (isPreview) {
        Result<std::unique_ptr<DatafileDocument>> opened = openDatafile(call, call.arguments.operand(0));
        if (!opened)
            return call.failed(opened.error());
        read = std::move(*opened);
    } else {
        Result<DatafileEdit> opened = DatafileEdit::open(call, call.arguments.operand(0));
        if (!opened)
            return call.failed(opened.error());
        edit = std::move(*opened);
    }
    DatafileDocument &document = edit ? edit->document() : *read;
    const Result<std::unique_ptr<ContentWork>> work = make(call.arguments, document);
    if (!work)
        return call.failed(work.error());
    TerminalProgress progress(call.arguments);
    (*work)->run(progress);
    if (edit) {
        const Result<bool> changed = (*work)->apply(document);
        if (!changed)
            return call.failed(changed.error());
        // Nothing to change leaves the datafile as it is; a copy that was asked for is made all the same.
        if (*changed || !edit->isInPlace()) {
            if (const Result<> written = edit->write(); !written)
                return call.failed(written.error());
        }
    }
    writeOutcome(call, document, **work);
    return ExitStatus::Done;
}

Error wrong(const QString &message)
{
    return {Error::Kind::Refused, message, {}};
}

/// The identifier of a field, or "Text".
Result<QString> contentNamed(const QString &name, const DatafileSettingsData &settings)
{
    const Result<NamedField> field = fieldNamed(name, settings);
    if (!field)
        return field.error();
    return field->isText() ? u"Text"_s : field->identifier;
}

Result<QString> realFieldNamed(const QString &name, const DatafileSettingsData &settings)
{
    const Result<QString> field = contentNamed(name, settings);
    if (field && *field == "Text"_L1)
        return wrong(Cli::tr("The text is no field."));
    if (field && field->isEmpty())
        return wrong(Cli::tr("The field \"%1\" has no identifier to store a value under.").arg(name));
    return field;
}

/// Null when the option has a whole number, or is missing.
QString faultOfNumber(const Arguments &arguments, const QString &option)
{
    bool isNumber = true;
    if (arguments.has(option))
        (void)arguments.value(option).toLongLong(&isNumber);
    return isNumber ? QString() : Cli::tr("%1 cannot be %2.").arg(option, arguments.value(option));
}

qint64 numberIn(const Arguments &arguments, const QString &option)
{
    return arguments.has(option) ? arguments.value(option).toLongLong() : 1;
}

const QStringList &filledTargetNames()
{
    static const QStringList names{u"skip"_s, u"replace"_s, u"append"_s}; // In the order of FilledTarget.
    return names;
}

QString faultOfFilledTarget(const Arguments &arguments)
{
    const QString name = arguments.value(u"--if-filled"_s);
    return name.isNull() || filledTargetNames().contains(name)
               ? QString()
               : Cli::tr("%1 cannot be %2.").arg(u"--if-filled"_s, name);
}

FilledTarget filledTargetIn(const Arguments &arguments, FilledTarget otherwise)
{
    const QString name = arguments.value(u"--if-filled"_s);
    return name.isNull() ? otherwise : static_cast<FilledTarget>(filledTargetNames().indexOf(name));
}

// The commands.

Result<std::unique_ptr<ContentWork>> makeFill(const Arguments &arguments, const DatafileDocument &document)
{
    FillEmptyFields::Filling filling{{}, arguments.value(u"--text"_s), {}};
    const QStringList names = arguments.values(u"--field"_s);
    for (const QString &name : names) {
        const Result<QString> field = realFieldNamed(name, document.datafileSettings());
        if (!field)
            return field.error();
        filling.fields.append(*field);
    }
    if (names.isEmpty()) {
        for (const NamedField &field : allFields(document.datafileSettings()))
            filling.fields.append(field.identifier);
    }
    if (arguments.has(u"--number"_s))
        filling.number =
            FillEmptyFields::Running{numberIn(arguments, u"--start"_s), numberIn(arguments, u"--step"_s)};
    if (arguments.has(u"--date"_s))
        filling.text = QLocale().toString(QDate::currentDate(), QLocale::ShortFormat);
    return std::make_unique<FillEmptyFields>(document, filling);
}

ExitStatus runFill(Call &call)
{
    const bool isContent = call.arguments.has(u"--text"_s) || call.arguments.has(u"--number"_s);
    if (isContent == call.arguments.has(u"--date"_s))
        return call.wrongUsage(
            Cli::tr("Say what to fill in: with --text, --number or both, or with --date."));
    for (const QString &option : {u"--start"_s, u"--step"_s}) {
        if (const QString fault = faultOfNumber(call.arguments, option); !fault.isNull())
            return call.wrongUsage(fault);
    }
    return runWork(call, makeFill);
}

Result<std::unique_ptr<ContentWork>> makeReplace(const Arguments &arguments, const DatafileDocument &document)
{
    using Where = ReplaceFieldContents::Where;
    const Result<QString> field = realFieldNamed(arguments.operand(1), document.datafileSettings());
    if (!field)
        return field.error();
    ReplaceFieldContents::Replacement replacement{*field, arguments.operand(2)};
    if (arguments.has(u"--containing"_s)) {
        replacement.where = Where::Containing;
        replacement.which = arguments.value(u"--containing"_s);
    } else if (arguments.has(u"--equal"_s)) {
        replacement.where = Where::Equal;
        replacement.which = arguments.value(u"--equal"_s);
    }
    replacement.caseSensitive = arguments.has(u"--case-sensitive"_s);
    return std::make_unique<ReplaceFieldContents>(document, replacement);
}

ExitStatus runReplaceContents(Call &call)
{
    if (call.arguments.has(u"--containing"_s) && call.arguments.has(u"--equal"_s))
        return call.wrongUsage(Cli::tr("Either --containing or --equal."));
    return runWork(call, makeReplace);
}

Result<std::unique_ptr<ContentWork>> makeTransfer(const Arguments &arguments,
                                                  const DatafileDocument &document)
{
    const Result<QString> from = contentNamed(arguments.operand(1), document.datafileSettings());
    const Result<QString> to = contentNamed(arguments.operand(2), document.datafileSettings());
    if (!from || !to)
        return from ? to.error() : from.error();
    if (*from == *to)
        return wrong(Cli::tr("Both are the same field."));
    const FilledTarget filled = filledTargetIn(arguments, FilledTarget::Skip);
    TransferFieldContents::Transfer transfer{*from, *to, arguments.has(u"--move"_s), filled};
    if (arguments.has(u"--separator"_s))
        transfer.separator = arguments.value(u"--separator"_s);
    return std::make_unique<TransferFieldContents>(document, transfer);
}

ExitStatus runTransfer(Call &call)
{
    if (const QString fault = faultOfFilledTarget(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    return runWork(call, makeTransfer);
}

ExitStatus runTextToFields(Call &call)
{
    return runWork(call, [](const Arguments &arguments, const DatafileDocument &document) {
        using Lines = MoveTextIntoFields::Lines;
        return Result<std::unique_ptr<ContentWork>>(std::make_unique<MoveTextIntoFields>(
            document, arguments.has(u"--by-name"_s) ? Lines::ByName : Lines::InOrder));
    });
}

const QStringList &elementNames()
{
    static const QStringList names{u"email"_s, u"web"_s, u"phone"_s};
    return names;
}

Result<std::unique_ptr<ContentWork>> makeExtract(const Arguments &arguments, const DatafileDocument &document)
{
    using Element = MoveTextElements::Element;
    const qsizetype element = elementNames().indexOf(arguments.operand(1));
    const Result<QString> to = realFieldNamed(arguments.operand(2), document.datafileSettings());
    if (!to)
        return to.error();
    const FilledTarget filled = filledTargetIn(arguments, FilledTarget::Append);
    MoveTextElements::Move move{static_cast<Element>(element), *to, arguments.has(u"--all"_s), filled};
    move.phoneNumberTemplates = phoneNumberTemplates(document.services().preferences);
    if (arguments.has(u"--separator"_s))
        move.separator = arguments.value(u"--separator"_s);
    return std::make_unique<MoveTextElements>(document, move);
}

ExitStatus runExtract(Call &call)
{
    if (!elementNames().contains(call.arguments.operand(1)))
        return call.wrongUsage(Cli::tr("There are email, web and phone."));
    if (const QString fault = faultOfFilledTarget(call.arguments); !fault.isNull())
        return call.wrongUsage(fault);
    return runWork(call, makeExtract);
}

QString recordsInPlay()
{
    return Cli::tr(
        "Of the selected records; locked ones stay as they are. Line ends and tabs become blanks.\n"
        "A field is named by its name, or by id:IDENTIFIER; Text is the text.");
}

QList<Option> targetOptions()
{
    return {
        {u"--if-filled"_s, u"skip|replace|append"_s, Cli::tr("What to do where something stands already.")},
        {u"--separator"_s, u"TEXT"_s, Cli::tr("Between what stands there and what is appended.")}};
}

/// A command on the contents of the selected records. Its operands are words.
Command contentCommand(const QString &name,
                       const QString &operands,
                       const QString &summary,
                       const QList<Option> &options,
                       ExitStatus (*run)(Call &call))
{
    const qsizetype count = operands.count(u' ') + 1;
    return {name, operands, count, count, summary, recordsInPlay(), options + contentOptions(), run};
}

} // namespace

Command fillCommand()
{
    return contentCommand(
        u"fill"_s,
        u"FILE"_s,
        Cli::tr("Fills empty fields."),
        {{u"--field"_s, u"FIELD"_s, Cli::tr("In this field alone (repeatable)."), true},
         {u"--text"_s, u"TEXT"_s, Cli::tr("With this text.")},
         {u"--number"_s, {}, Cli::tr("With running numbers, behind the text if there is one.")},
         {u"--date"_s, {}, Cli::tr("With today's date.")},
         {u"--start"_s, u"N"_s, Cli::tr("The first number; 1 unless it is said.")},
         {u"--step"_s, u"N"_s, Cli::tr("From one number to the next; 1 unless it is said.")}},
        runFill);
}

Command replaceContentsCommand()
{
    return contentCommand(u"replace-contents"_s,
                          u"FILE FIELD WITH"_s,
                          Cli::tr("Replaces what a field holds."),
                          {{u"--containing"_s, u"TEXT"_s, Cli::tr("Only where the content contains this.")},
                           {u"--equal"_s, u"TEXT"_s, Cli::tr("Only where the content is this.")},
                           {u"--case-sensitive"_s, {}, Cli::tr("Tell capital from small letters.")}},
                          runReplaceContents);
}

Command transferCommand()
{
    return contentCommand(u"transfer"_s,
                          u"FILE FROM TO"_s,
                          Cli::tr("Puts what a field or the text holds into another."),
                          QList<Option>{{u"--move"_s, {}, Cli::tr("Empty the field it comes from.")}}
                              + targetOptions(),
                          runTransfer);
}

Command textToFieldsCommand()
{
    return contentCommand(
        u"text-to-fields"_s,
        u"FILE"_s,
        Cli::tr("Moves lines of the text into the empty fields."),
        {{u"--by-name"_s, {}, Cli::tr("Lines \"Name: value\" into the fields of these names.")}},
        runTextToFields);
}

Command extractCommand()
{
    return contentCommand(u"extract"_s,
                          u"FILE email|web|phone FIELD"_s,
                          Cli::tr("Moves addresses or telephone numbers from the text into a field."),
                          QList<Option>{{u"--all"_s, {}, Cli::tr("Not only the first of each text.")}}
                              + targetOptions(),
                          runExtract);
}

} // namespace tavrin
