// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "cli/TerminalProgress.h"
#include "document/DatafileArrangement.h"

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

struct NamedKind
{
    QLatin1StringView name;
    SortKind kind;
};

constexpr std::array<NamedKind, 11> kinds{{{"text"_L1, SortKind::Text},
                                           {"numbers"_L1, SortKind::Numbers},
                                           {"dates"_L1, SortKind::StandardDates},
                                           {"email-dates"_L1, SortKind::EmailDates},
                                           {"all-fields"_L1, SortKind::AllFields},
                                           {"name"_L1, SortKind::FreeformName},
                                           {"word"_L1, SortKind::FreeformWord},
                                           {"postal"_L1, SortKind::PostalCode},
                                           {"created"_L1, SortKind::CreatedDate},
                                           {"modified"_L1, SortKind::ModifiedDate},
                                           {"freeform"_L1, SortKind::FreeformText}}};

bool isDatafileKind(const QString &name)
{
    return name == u"pro" || name == u"mobile";
}

/// The kind of sort, which shares its option with the kind of datafile; none when it is no kind of sort, or
/// there are two.
std::optional<SortKind> kindIn(const Arguments &arguments)
{
    QStringList names = arguments.values(u"--kind"_s);
    names.removeIf(isDatafileKind);
    if (names.isEmpty())
        return SortKind::Text;
    const auto kind = std::ranges::find(kinds, names.first(), &NamedKind::name);
    return kind == kinds.end() || names.size() > 1 ? std::nullopt : std::optional(kind->kind);
}

bool isOfField(SortKind kind)
{
    return kind < SortKind::AllFields;
}

/// An option that says where in the text something stands, for the kind of sort that asks for it.
struct PlaceOption
{
    QString name;
    SortKind kind;
    bool counts;            ///< Numbers from 1 on are places.
    QList<qint64> specials; ///< Numbers that stand for something else.
    void (SortCriteriaData::*store)(qint64 number);
};

QList<PlaceOption> placeOptions()
{
    using Criteria = SortCriteriaData;
    using namespace SortPlace;
    return {{u"--line"_s,
             SortKind::FreeformName,
             true,
             {lastLineOfAddress, lastLineOfText},
             &Criteria::setNameLineNumber},
            {u"--line"_s, SortKind::FreeformWord, true, {}, &Criteria::setWordLineNumber},
            {u"--word"_s, SortKind::FreeformWord, true, {lastWord}, &Criteria::setWordNumber},
            {u"--offset"_s,
             SortKind::FreeformWord,
             false,
             {fromStartOfAddress, fromEndOfAddress, fromStartOfText, fromEndOfText},
             &Criteria::setWordLineOffset}};
}

/// Stores what the options say of places; what is wrong with them, or null.
QString storePlaces(const Arguments &arguments, SortKind kind, SortCriteriaData &criteria)
{
    for (const Arguments::Given &given : arguments.given()) {
        const QList<PlaceOption> options = placeOptions();
        if (std::ranges::find(options, given.option, &PlaceOption::name) == options.end())
            continue;
        const auto option = std::ranges::find_if(
            options, [&](const PlaceOption &each) { return each.name == given.option && each.kind == kind; });
        if (option == options.end())
            return Cli::tr("%1 does not go with this kind of sort.").arg(given.option);
        bool isNumber = false;
        const qint64 number = given.values.value(0).toInt(&isNumber);
        if (!isNumber || !(option->counts && number >= 1 ? true : option->specials.contains(number)))
            return Cli::tr("%1 cannot be %2.").arg(given.option, given.values.value(0));
        (criteria.*option->store)(number);
    }
    return {};
}

QString faultOfOptions(const Arguments &arguments, std::optional<SortKind> kind)
{
    if (!kind)
        return Cli::tr("There is no kind of sort %1.").arg(arguments.values(u"--kind"_s).join(u' '));
    if (isOfField(*kind) && !arguments.has(u"--by"_s))
        return Cli::tr("Name a field with --by.");
    if (!isOfField(*kind) && arguments.has(u"--then"_s))
        return Cli::tr("%1 does not go with this kind of sort.").arg(u"--then"_s);
    return faultOfTarget(arguments);
}

/// The identifier under which criteria have the field that an option names; null when it is not given.
Result<QString> identifierIn(const QString &option, const Call &call, const DatafileSettingsData &settings)
{
    if (!call.arguments.has(option))
        return QString();
    const Result<NamedField> field = fieldNamed(call.arguments.value(option), settings);
    if (!field)
        return field.error();
    return field->isText() ? u"Text"_s : field->identifier;
}

Result<> storeFields(const Call &call, const DatafileSettingsData &settings, SortCriteriaData &criteria)
{
    const Result<QString> by = identifierIn(u"--by"_s, call, settings);
    if (!by)
        return by.error();
    const Result<QString> then = identifierIn(u"--then"_s, call, settings);
    if (!then)
        return then.error();
    if (!by->isNull())
        criteria.setPrimaryFieldIdentifier(*by);
    if (!then->isNull())
        criteria.setSecondaryFieldIdentifier(*then);
    return {};
}

ExitStatus refused(Call &call, const SortRefusal &refusal)
{
    return call.failed(
        {refusal.error.kind, refusal.error.message + u' ' + refusal.informativeText, refusal.identifier});
}

ExitStatus runSort(Call &call)
{
    const std::optional<SortKind> kind = kindIn(call.arguments);
    if (const QString fault = faultOfOptions(call.arguments, kind); !fault.isNull())
        return call.wrongUsage(fault);
    SortCriteriaData criteria;
    criteria.setCompareSelector(static_cast<qint64>(*kind));
    criteria.setDescending(call.arguments.has(u"--descending"_s));
    criteria.setCaseSensitive(call.arguments.has(u"--case-sensitive"_s));
    if (*kind == SortKind::FreeformWord)
        criteria.setWordLineOffset(SortPlace::fromStartOfText);
    if (const QString fault = storePlaces(call.arguments, *kind, criteria); !fault.isNull())
        return call.wrongUsage(fault);
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileDocument &document = edit->document();
    if (const Result<> stored = storeFields(call, document.datafileSettings(), criteria); !stored)
        return call.failed(stored.error());
    TerminalProgress progress(call.arguments);
    if (const auto sorted = DatafileArrangement(document).sort(criteria, progress); !sorted)
        return refused(call, sorted.error());
    if (const Result<> written = edit->write(); !written)
        return call.failed(written.error());
    const qint64 count = document.datafileCatalog().count();
    if (call.wantsJson())
        writeJson(call.output, {{u"sorted"_s, count}});
    else
        call.output.writeLine(Cli::tr("Sorted: %1.").arg(count));
    return ExitStatus::Done;
}

} // namespace

Command sortCommand()
{
    return {
        u"sort"_s,
        u"FILE"_s,
        1,
        1,
        Cli::tr("Sorts all records, those that are not selected too."),
        Cli::tr("KIND is text, numbers, dates, email-dates (of the field that --by names; a second field "
                "makes\neverything compare as text), all-fields, name, word, postal, created, modified or "
                "freeform.\n"
                "--line counts from 1; with --kind name, -1 is the last line of the address and -2 that of "
                "the text.\n"
                "--word counts from 1; -3 is the last word.\n"
                "--offset says where --kind word counts its line: -4 from the start of the address, -5 "
                "from its end,\n-6 from the start of the text (if nothing else is said), -7 from its end.\n"
                "A field is named by its name, or by id:IDENTIFIER; Text is the text."),
        QList<Option>{{u"--by"_s, u"FIELD"_s, Cli::tr("Sort by this field.")},
                      {u"--kind"_s, u"KIND"_s, Cli::tr("Treat it as, or sort by, this."), true},
                      {u"--then"_s, u"FIELD"_s, Cli::tr("Sort what is equal by this field.")},
                      {u"--descending"_s, {}, Cli::tr("Turn the order round.")},
                      {u"--case-sensitive"_s, {}, Cli::tr("Tell capital from small letters.")},
                      {u"--line"_s, u"N"_s, Cli::tr("The line with the name or the word.")},
                      {u"--word"_s, u"N"_s, Cli::tr("The word of that line.")},
                      {u"--offset"_s, u"N"_s, Cli::tr("Where the line of the word is counted.")}}
            + writingOptions(),
        runSort};
}

} // namespace tavrin
