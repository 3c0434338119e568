// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Commands that define the fields, and that add up what stands in them.

#include "base/FilledIn.h"
#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "cli/Table.h"
#include "cli/TerminalProgress.h"
#include "document/FieldOperations.h"
#include "document/FieldTotals.h"

#include <QJsonArray>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

// The fields.

const QStringList &definingOptions()
{
    static const QStringList options{
        u"--add"_s, u"--delete"_s, u"--rename"_s, u"--move"_s, u"--show"_s, u"--hide"_s};
    return options;
}

void writeFields(const Call &call, const DatafileDocument &document)
{
    FieldUse use(document);
    TerminalProgress progress(call.arguments);
    use.run(progress);
    QJsonArray array;
    for (const FieldDefinition &field : document.datafileSettings().fields()) {
        const qint64 records = use.counts().value(field.identifier());
        array.append(QJsonObject{{u"identifier"_s, field.identifier()},
                                 {u"name"_s, field.name()},
                                 {u"width"_s, field.width()},
                                 {u"show"_s, field.show()},
                                 {u"records"_s, records}});
        if (!call.wantsJson())
            call.output.writeLine(Cli::tr("%1 (%2), used in %3 records")
                                      .arg(singleLine(field.name()),
                                           field.show() ? Cli::tr("shown") : Cli::tr("hidden"),
                                           QString::number(records)));
    }
    if (call.wantsJson())
        writeJson(call.output, {{u"fields"_s, array}});
}

using FieldAndValue = std::pair<QString, QString>;

/// The field and what stands behind the last "=".
Result<FieldAndValue> fieldAndValue(const QString &text, const DatafileSettingsData &settings)
{
    const qsizetype equals = text.lastIndexOf(u'=');
    const Result<NamedField> field = fieldNamed(text.first(std::max<qsizetype>(equals, 0)), settings);
    if (!field)
        return field.error();
    return FieldAndValue(field->identifier, text.sliced(equals + 1));
}

/// The field and its new name: either may contain "=", so the first one counts that stands behind a field.
Result<FieldAndValue> fieldAndName(const QString &text, const DatafileSettingsData &settings)
{
    for (qsizetype equals = text.indexOf(u'='); equals >= 0; equals = text.indexOf(u'=', equals + 1)) {
        const Result<NamedField> field = fieldNamed(text.first(equals), settings);
        if (field)
            return FieldAndValue(field->identifier, text.sliced(equals + 1));
        if (field.error().kind != Error::Kind::NotFound)
            return field.error();
    }
    return fieldAndValue(text, settings);
}

Result<> define(const Arguments::Given &given, DatafileDocument &document)
{
    FieldOperations operations(document);
    const QString value = given.values.value(0);
    if (given.option == "--add"_L1) {
        const Result<QString> added = operations.add(value);
        return added ? Result<>() : Result<>(added.error());
    }
    const DatafileSettingsData &settings = document.datafileSettings();
    const auto named = given.option == "--rename"_L1 ? fieldAndName(value, settings)
                       : given.option == "--move"_L1 ? fieldAndValue(value, settings)
                                                     : fieldAndValue(value + u'=', settings);
    if (!named)
        return named.error();
    const auto &[field, argument] = *named;
    if (field.isEmpty())
        return Error{Error::Kind::Refused, Cli::tr("The text is no field."), {}};
    if (given.option == "--rename"_L1)
        return operations.rename(field, argument);
    if (given.option == "--move"_L1)
        operations.move(field, argument.toLongLong() - 1);
    else if (given.option == "--delete"_L1)
        operations.remove(field);
    else
        operations.setShown(field, given.option == "--show"_L1);
    return {};
}

QString faultOfFields(const Arguments &arguments, bool isChange)
{
    for (const QString &option : {u"--rename"_s, u"--move"_s}) {
        for (const QString &value : arguments.values(option)) {
            bool isIndex = true;
            if (option == "--move"_L1)
                isIndex = value.sliced(value.lastIndexOf(u'=') + 1).toLongLong(&isIndex) > 0;
            if (!value.contains(u'=') || !isIndex)
                return Cli::tr("%1 cannot be %2.").arg(option, value);
        }
    }
    if (isChange)
        return faultOfTarget(arguments);
    return hasTarget(arguments) ? Cli::tr("There is nothing to write.") : QString();
}

ExitStatus runFields(Call &call)
{
    const bool isChange = std::ranges::any_of(
        definingOptions(), [&call](const QString &option) { return call.arguments.has(option); });
    if (const QString fault = faultOfFields(call.arguments, isChange); !fault.isNull())
        return call.wrongUsage(fault);
    if (!isChange) {
        const auto document = openDatafile(call, call.arguments.operand(0));
        if (!document)
            return call.failed(document.error());
        writeFields(call, **document);
        return ExitStatus::Done;
    }
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    for (const Arguments::Given &given : call.arguments.given()) {
        if (!definingOptions().contains(given.option))
            continue;
        if (const Result<> defined = define(given, edit->document()); !defined)
            return call.failed(defined.error());
    }
    if (const Result<> written = edit->write(); !written)
        return call.failed(written.error());
    writeFields(call, edit->document());
    return ExitStatus::Done;
}

// Totals.

void writeTotals(const Call &call, const FieldTotals &totals, const DatafileSettingsData &settings)
{
    QJsonArray array;
    for (const FieldTotal &total : totals.totals()) {
        const FieldDefinition *field = settings.fieldWithIdentifier(total.field);
        const QString name = field ? field->name() : QString();
        const bool isAny = total.count > 0;
        const auto number = [isAny](double value) { return isAny ? QJsonValue(value) : QJsonValue(); };
        array.append(QJsonObject{{u"field"_s, total.field},
                                 {u"name"_s, name},
                                 {u"count"_s, total.count},
                                 {u"sum"_s, number(total.sum)},
                                 {u"average"_s, number(total.average())},
                                 {u"smallest"_s, number(total.smallest)},
                                 {u"largest"_s, number(total.largest)},
                                 {u"unreadable"_s, total.unreadable}});
        if (call.wantsJson())
            continue;
        if (!isAny) {
            call.output.writeLine(filledIn(Cli::tr("There are no numbers in \"%@\"."), {singleLine(name)}));
            continue;
        }
        writePairs(call.output,
                   {{Cli::tr("Field"), singleLine(name)},
                    {Cli::tr("Sum"), FieldTotals::textOf(total.sum)},
                    {Cli::tr("Count"), QString::number(total.count)},
                    {Cli::tr("Average"), FieldTotals::textOf(total.average())},
                    {Cli::tr("Smallest"), FieldTotals::textOf(total.smallest)},
                    {Cli::tr("Largest"), FieldTotals::textOf(total.largest)},
                    {Cli::tr("Unreadable"), QString::number(total.unreadable)}});
    }
    if (call.wantsJson())
        writeJson(call.output, {{u"records"_s, totals.records()}, {u"totals"_s, array}});
}

Result<QStringList> fieldsOfTotal(const Arguments &arguments, const DatafileSettingsData &settings)
{
    QStringList fields;
    for (const QString &name : arguments.operands().sliced(1)) {
        const Result<NamedField> field = fieldNamed(name, settings);
        if (!field)
            return field.error();
        if (field->isText())
            return Error{Error::Kind::Refused, Cli::tr("The text is no field."), {}};
        fields.append(field->identifier);
    }
    return fields;
}

/// Puts the totals into a record: a new one, or the one that is there. Refused without any number.
Result<> recordTotals(const FieldTotals &totals, DatafileDocument &document, bool updates)
{
    QStringList names;
    for (const FieldTotal &total : totals.totals()) {
        const FieldDefinition *field = document.datafileSettings().fieldWithIdentifier(total.field);
        names.append(field ? field->name() : QString());
    }
    if (std::ranges::all_of(totals.totals(), [](const FieldTotal &total) { return total.count == 0; }))
        return Error{Error::Kind::Refused,
                     filledIn(Cli::tr("There are no numbers in \"%@\"."), {names.join(u", "_s)}),
                     {}};
    const QString older = updates ? FieldTotals::totalRecordIn(document) : QString();
    if (!older.isEmpty())
        return totals.updateTotalRecord(document, older);
    totals.addTotalRecord(document);
    return {};
}

ExitStatus runTotal(Call &call)
{
    const bool updates = call.arguments.has(u"--update-record"_s);
    if (updates && call.arguments.has(u"--add-record"_s))
        return call.wrongUsage(Cli::tr("Either --add-record or --update-record."));
    const QString because = updates ? u"--update-record"_s : u"--add-record"_s;
    if (const QString fault = faultOfOptionalTarget(call.arguments, because); !fault.isNull())
        return call.wrongUsage(fault);
    std::optional<DatafileEdit> edit;
    std::unique_ptr<DatafileDocument> read;
    if (call.arguments.has(because)) {
        Result<DatafileEdit> opened = DatafileEdit::open(call, call.arguments.operand(0));
        if (!opened)
            return call.failed(opened.error());
        edit = std::move(*opened);
    } else {
        Result<std::unique_ptr<DatafileDocument>> opened = openDatafile(call, call.arguments.operand(0));
        if (!opened)
            return call.failed(opened.error());
        read = std::move(*opened);
    }
    DatafileDocument &document = edit ? edit->document() : *read;
    const Result<QStringList> fields = fieldsOfTotal(call.arguments, document.datafileSettings());
    if (!fields)
        return call.failed(fields.error());
    FieldTotals totals(document, *fields);
    TerminalProgress progress(call.arguments);
    totals.run(progress);
    if (edit) {
        if (const Result<> recorded = recordTotals(totals, document, updates); !recorded)
            return call.failed(recorded.error());
        if (const Result<> written = edit->write(); !written)
            return call.failed(written.error());
    }
    writeTotals(call, totals, document.datafileSettings());
    return ExitStatus::Done;
}

} // namespace

Command fieldsCommand()
{
    return {
        u"fields"_s,
        u"FILE"_s,
        1,
        1,
        Cli::tr("Lists or changes the fields of a datafile."),
        Cli::tr("Changes are made in the order in which they are given. A field that is deleted takes its "
                "contents along,\nin all records. A field is named by its name, or by id:IDENTIFIER."),
        QList<Option>{{u"--add"_s, u"NAME"_s, Cli::tr("Add a field of this name."), true},
                      {u"--delete"_s, u"FIELD"_s, Cli::tr("Delete this field and what it holds."), true},
                      {u"--rename"_s, u"FIELD=NAME"_s, Cli::tr("Give the field another name."), true},
                      {u"--move"_s,
                       u"FIELD=INDEX"_s,
                       Cli::tr("Make it the field so far from the first, "
                               "which is 1."),
                       true},
                      {u"--show"_s, u"FIELD"_s, Cli::tr("Show the field as a column."), true},
                      {u"--hide"_s, u"FIELD"_s, Cli::tr("Show it no more as a column."), true}}
            + writingOptions(),
        runFields};
}

Command totalCommand()
{
    constexpr qsizetype any = 1 << 20;
    return {
        u"total"_s,
        u"FILE FIELD..."_s,
        2,
        any,
        Cli::tr("Adds up the numbers in fields."),
        Cli::tr("Of the selected records, without those that hold totals themselves. What stands before a "
                "number is\npassed over, as in $12."),
        QList<Option>{{u"--add-record"_s, {}, Cli::tr("Add a record with the totals.")},
                      {u"--update-record"_s,
                       {},
                       Cli::tr("Put them into the record of totals, if there is "
                               "one.")}}
            + writingOptions(),
        runTotal};
}

} // namespace tavrin
