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

using Operator = SelectionOperator;

/// An operator as the command line names it, and what it is for texts, dates and numbers.
struct NamedOperator
{
    QLatin1StringView name;
    Operator ofText;
    Operator ofDates;
    Operator ofNumbers;
};

constexpr NamedOperator sameForAll(QLatin1StringView name, Operator code)
{
    return {name, code, code, code};
}

constexpr std::array<NamedOperator, 12> operators{
    {sameForAll("contains"_L1, Operator::Contains),
     sameForAll("not-contains"_L1, Operator::DoesNotContain),
     {"equals"_L1, Operator::TextEquals, Operator::DateEquals, Operator::NumberEquals},
     {"not-equals"_L1, Operator::TextDoesNotEqual, Operator::DateDoesNotEqual, Operator::NumberDoesNotEqual},
     sameForAll("begins"_L1, Operator::BeginsWith),
     sameForAll("not-begins"_L1, Operator::DoesNotBeginWith),
     sameForAll("empty"_L1, Operator::IsEmpty),
     sameForAll("not-empty"_L1, Operator::IsNotEmpty),
     sameForAll("later"_L1, Operator::IsLaterThan),
     sameForAll("earlier"_L1, Operator::IsEarlierThan),
     sameForAll("less"_L1, Operator::IsLessThan),
     sameForAll("greater"_L1, Operator::IsGreaterThan)}};

const NamedOperator *operatorNamed(const QString &name)
{
    const auto found = std::ranges::find(operators, name, &NamedOperator::name);
    return found == operators.end() ? nullptr : &*found;
}

bool takesNoValue(const QString &operatorName)
{
    return operatorName == u"empty" || operatorName == u"not-empty";
}

std::optional<TreatAs> treatAsNamed(const QString &name)
{
    if (name == u"text")
        return TreatAs::CaseInsensitiveText;
    if (name == u"case-text")
        return TreatAs::CaseSensitiveText;
    if (name == u"dates")
        return TreatAs::Dates;
    if (name == u"numbers")
        return TreatAs::Numbers;
    return {};
}

/// One condition as it was given, and how it joins the one before.
struct Condition
{
    QString basis;
    const NamedOperator *named = nullptr;
    QString value;
    std::optional<TreatAs> treatAs;

    bool isOfDate() const { return basis == u"created" || basis == u"modified"; }
    bool comparesDates() const { return named->name == "later"_L1 || named->name == "earlier"_L1; }
    TreatAs treatedAs() const
    {
        const bool isDate = isOfDate() || comparesDates();
        return treatAs.value_or(isDate ? TreatAs::Dates : TreatAs::CaseInsensitiveText);
    }
    Operator code() const
    {
        switch (treatedAs()) {
        case TreatAs::Dates:
            return named->ofDates;
        case TreatAs::Numbers:
            return named->ofNumbers;
        default:
            return named->ofText;
        }
    }
};

struct Rule
{
    QList<Condition> conditions;
    bool isAnd = false;
    bool isOr = false;
};

/// Adds what one option says; what is wrong with it, or null.
QString addOption(const Arguments::Given &given, Rule &rule)
{
    const qsizetype joins = (rule.isAnd ? 1 : 0) + (rule.isOr ? 1 : 0);
    if (given.option == u"--where") {
        if (rule.conditions.size() != joins)
            return Cli::tr("Between two conditions stands --and or --or; there are at most two.");
        const NamedOperator *named = operatorNamed(given.values.value(1));
        if (!named)
            return Cli::tr("There is no operator %1.").arg(given.values.value(1));
        rule.conditions.append({given.values.value(0), named, given.values.value(2), {}});
    } else if (given.option == u"--as") {
        const std::optional<TreatAs> treatAs = treatAsNamed(given.values.value(0));
        if (rule.conditions.isEmpty() || rule.conditions.last().treatAs || !treatAs)
            return Cli::tr("--as stands behind --where and is text, case-text, dates or numbers.");
        rule.conditions.last().treatAs = treatAs;
    } else if (given.option == u"--and" || given.option == u"--or") {
        if (rule.conditions.size() != 1 || joins != 0)
            return Cli::tr("Between two conditions stands --and or --or; there are at most two.");
        (given.option == u"--and" ? rule.isAnd : rule.isOr) = true;
    }
    return {};
}

QString faultOfConditions(const Rule &rule)
{
    if ((rule.isAnd || rule.isOr) && rule.conditions.size() < 2)
        return Cli::tr("Between two conditions stands --and or --or; there are at most two.");
    for (const Condition &condition : rule.conditions) {
        const bool isDateTest = condition.code() == Operator::DateEquals
                                || condition.code() == Operator::DateDoesNotEqual
                                || condition.comparesDates();
        if (condition.isOfDate() && !isDateTest)
            return Cli::tr("Dates are compared with equals, not-equals, later or earlier.");
        if (condition.comparesDates() && condition.treatedAs() != TreatAs::Dates)
            return Cli::tr("%1 compares dates.").arg(condition.named->name);
    }
    return {};
}

/// Exactly one of the ways to select is given.
QString faultOfOptions(const Arguments &arguments, const Rule &rule)
{
    qsizetype ways = rule.conditions.isEmpty() ? 0 : 1;
    for (const QString &way : {u"--all"_s, u"--revert"_s, u"--omitted"_s})
        ways += arguments.has(way) ? 1 : 0;
    if (ways != 1)
        return Cli::tr("Say what to select: --where, --all, --revert or --omitted.");
    if (arguments.has(u"--from-omitted"_s) && rule.conditions.isEmpty())
        return Cli::tr("%1 needs %2.").arg(u"--from-omitted"_s, u"--where"_s);
    if (const QString fault = faultOfConditions(rule); !fault.isNull())
        return fault;
    return faultOfTarget(arguments);
}

struct Basis
{
    SelectionBasis code;
    QString fieldIdentifier;
};

Result<Basis> basisNamed(const QString &name, const DatafileSettingsData &settings)
{
    if (name == u"any")
        return Basis{SelectionBasis::AnyField, {}};
    if (name == u"created")
        return Basis{SelectionBasis::CreatedDate, {}};
    if (name == u"modified")
        return Basis{SelectionBasis::ModifiedDate, {}};
    const Result<NamedField> field = fieldNamed(name, settings);
    if (!field)
        return field.error();
    return field->isText() ? Basis{SelectionBasis::FreeformText, {}} : Basis{{}, field->identifier};
}

Result<SubsetSortCriteriaData> criteriaOf(const Rule &rule, const DatafileSettingsData &settings)
{
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(false);
    criteria.setAndSelect(rule.isAnd);
    criteria.setOrSelect(rule.isOr);
    const Condition &first = rule.conditions.first();
    const Result<Basis> firstBasis = basisNamed(first.basis, settings);
    if (!firstBasis)
        return firstBasis.error();
    criteria.setBasedOnPopup1(static_cast<qint64>(firstBasis->code));
    criteria.setBasedOnIdentifier1(firstBasis->fieldIdentifier);
    criteria.setWherePopup1(static_cast<qint64>(first.code()));
    criteria.setWhereField1(first.value);
    criteria.setTreatAsPopup1(static_cast<qint64>(first.treatedAs()));
    if (rule.conditions.size() < 2)
        return criteria;
    const Condition &second = rule.conditions.last();
    const Result<Basis> secondBasis = basisNamed(second.basis, settings);
    if (!secondBasis)
        return secondBasis.error();
    criteria.setBasedOnPopup2(static_cast<qint64>(secondBasis->code));
    criteria.setBasedOnIdentifier2(secondBasis->fieldIdentifier);
    criteria.setWherePopup2(static_cast<qint64>(second.code()));
    criteria.setWhereField2(second.value);
    criteria.setTreatAsPopup2(static_cast<qint64>(second.treatedAs()));
    return criteria;
}

/// False when nothing met the conditions, or nothing would be selected.
Result<bool> applyTo(DatafileDocument &document, const Arguments &arguments, const Rule &rule)
{
    DatafileArrangement arrangement(document);
    if (arguments.has(u"--revert"_s))
        return arrangement.revertToPrevious();
    if (arguments.has(u"--omitted"_s))
        return arrangement.switchToOmitted();
    if (arguments.has(u"--all"_s)) {
        arrangement.selectAll();
        return true;
    }
    const auto criteria = criteriaOf(rule, document.datafileSettings());
    if (!criteria)
        return criteria.error();
    const bool fromOmitted = arguments.has(u"--from-omitted"_s);
    const qint64 before = document.datafileCatalog().countSelected();
    TerminalProgress progress(arguments);
    const Result<bool> selected = arrangement.select(*criteria, fromOmitted, progress);
    if (!selected)
        return selected.error();
    return *selected && !(fromOmitted && document.datafileCatalog().countSelected() == before);
}

ExitStatus runSelect(Call &call)
{
    Rule rule;
    for (const Arguments::Given &given : call.arguments.given()) {
        if (const QString fault = addOption(given, rule); !fault.isNull())
            return call.wrongUsage(fault);
    }
    if (const QString fault = faultOfOptions(call.arguments, rule); !fault.isNull())
        return call.wrongUsage(fault);
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileDocument &document = edit->document();
    const Result<bool> applied = applyTo(document, call.arguments, rule);
    if (!applied)
        return call.failed(applied.error());
    if (!*applied)
        return ExitStatus::Failed;
    if (const Result<> written = edit->write(); !written)
        return call.failed(written.error());
    writeSelected(call, document);
    return ExitStatus::Done;
}

QList<Option> selectingOptions()
{
    const auto valuesOfWhere = [](const QStringList &following) {
        return takesNoValue(following.value(1)) ? 2 : 3;
    };
    return {{u"--where"_s,
             u"BASIS OPERATOR [VALUE]"_s,
             Cli::tr("Select the records that meet this condition."),
             true,
             valuesOfWhere},
            {u"--as"_s,
             u"text|case-text|dates|numbers"_s,
             Cli::tr("How the --where before it treats its value."),
             true},
            {u"--and"_s, {}, Cli::tr("Both conditions are to be met.")},
            {u"--or"_s, {}, Cli::tr("One of the conditions is to be met.")},
            {u"--from-omitted"_s, {}, Cli::tr("Join those of the omitted records to the selected.")},
            {u"--all"_s, {}, Cli::tr("Select all records.")},
            {u"--revert"_s, {}, Cli::tr("Take back the last change of the selection.")},
            {u"--omitted"_s, {}, Cli::tr("Select the omitted records instead.")}};
}

} // namespace

Command selectCommand()
{
    return {u"select"_s,
            u"FILE"_s,
            1,
            1,
            Cli::tr("Selects records, among the selected ones."),
            Cli::tr("BASIS is a field (its name, or id:IDENTIFIER), Text, any, created or modified.\n"
                    "OPERATOR is contains, not-contains, equals, not-equals, begins, not-begins, empty, "
                    "not-empty, later, earlier, less or greater; empty and not-empty take no VALUE.\n"
                    "Dates are written \"Mar 5, 2007\" or 2007-03-05.\n"
                    "When nothing would be selected, nothing is written and the exit status is 1."),
            selectingOptions() + writingOptions(),
            runSelect};
}

} // namespace tavrin
