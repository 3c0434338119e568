// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SelectionCondition.h"

#include "sorting/SelectionCodes.h"

#include <QCoreApplication>

#include <initializer_list>
#include <utility>

namespace tavrin {

namespace {

using Operator = SelectionOperator;

QString operatorName(Operator code)
{
    const auto name = [](const char *text) {
        return QCoreApplication::translate("SelectionCondition", text);
    };
    switch (code) {
    case Operator::Contains:
        return name("Contains");
    case Operator::DoesNotContain:
        return name("Does Not Contain");
    case Operator::TextEquals:
    case Operator::DateEquals:
    case Operator::NumberEquals:
        return name("Equals");
    case Operator::TextDoesNotEqual:
    case Operator::DateDoesNotEqual:
    case Operator::NumberDoesNotEqual:
        return name("Does Not Equal");
    case Operator::BeginsWith:
        return name("Begins With");
    case Operator::DoesNotBeginWith:
        return name("Does Not Begin With");
    case Operator::IsEmpty:
        return name("Is Empty");
    case Operator::IsNotEmpty:
        return name("Is Not Empty");
    case Operator::IsLaterThan:
        return name("Is Later Than");
    case Operator::IsEarlierThan:
        return name("Is Earlier Than");
    case Operator::IsLessThan:
        return name("Is Less Than");
    case Operator::IsGreaterThan:
        return name("Is Greater Than");
    }
    return {};
}

QList<CodedItem> operators(std::initializer_list<Operator> codes)
{
    QList<CodedItem> items;
    for (const Operator code : codes)
        items.append({operatorName(code), codeOf(code)});
    return items;
}

QList<CodedItem> textOperators(qint64 basis)
{
    if (basis == codeOf(SelectionBasis::AnyField)) {
        return operators({Operator::Contains,
                          Operator::DoesNotContain,
                          Operator::TextEquals,
                          Operator::TextDoesNotEqual,
                          Operator::BeginsWith,
                          Operator::DoesNotBeginWith});
    }
    if (basis == codeOf(SelectionBasis::FreeformText)) {
        return operators({Operator::Contains,
                          Operator::DoesNotContain,
                          Operator::TextEquals,
                          Operator::TextDoesNotEqual,
                          Operator::BeginsWith,
                          Operator::DoesNotBeginWith,
                          Operator::IsEmpty,
                          Operator::IsNotEmpty});
    }
    return operators({Operator::Contains,
                      Operator::DoesNotContain,
                      Operator::TextEquals,
                      Operator::TextDoesNotEqual,
                      Operator::IsLessThan,
                      Operator::IsGreaterThan,
                      Operator::BeginsWith,
                      Operator::DoesNotBeginWith,
                      Operator::IsEmpty,
                      Operator::IsNotEmpty});
}

bool isDateOfRecord(qint64 basis)
{
    return basis == codeOf(SelectionBasis::CreatedDate) || basis == codeOf(SelectionBasis::ModifiedDate);
}

qsizetype indexOfText(const QList<CodedItem> &items, const QString &text)
{
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items.at(i).text == text)
            return i;
    }
    return 0;
}

} // namespace

SelectionCondition::SelectionCondition(QList<CodedItem> basedOnItems)
    : g_basedOnItems(std::move(basedOnItems))
{
    rebuildTreatAs();
}

void SelectionCondition::setCodes(
    qint64 basedOn, const QString &identifier, qint64 treatAs, qint64 where, const QString &value)
{
    const bool isField =
        basedOn < codeOf(SelectionBasis::AnyField) || basedOn > codeOf(SelectionBasis::FreeformText);
    g_basedOn = 0;
    for (qsizetype i = 0; i < g_basedOnItems.size(); ++i) {
        const CodedItem &item = g_basedOnItems.at(i);
        if (item.identifier.isEmpty() ? item.code == basedOn : isField && item.identifier == identifier)
            g_basedOn = i;
    }
    rebuildTreatAs();
    g_treatAs = indexOfCode(g_treatAsItems, treatAs);
    rebuildWhere();
    g_where = indexOfCode(g_whereItems, where);
    g_value = takesValue() ? value : QString();
}

void SelectionCondition::chooseBasedOn(qsizetype index)
{
    g_basedOn = index;
    rebuildTreatAs();
}

void SelectionCondition::chooseTreatAs(qsizetype index)
{
    g_treatAs = index;
    rebuildWhere();
}

void SelectionCondition::chooseWhere(qsizetype index)
{
    g_where = index;
    if (!takesValue())
        g_value.clear();
}

bool SelectionCondition::takesValue() const
{
    const qint64 code = whereItem().code;
    return code != codeOf(Operator::IsEmpty) && code != codeOf(Operator::IsNotEmpty);
}

void SelectionCondition::rebuildTreatAs()
{
    const auto name = [](const char *text) {
        return QCoreApplication::translate("SelectionCondition", text);
    };
    const QString before = g_treatAsItems.isEmpty() ? QString() : treatAsItem().text;
    g_treatAsItems.clear();
    if (!isDateOfRecord(basedOnItem().code)) {
        g_treatAsItems.append({name("Case-Insensitive Text"), codeOf(TreatAs::CaseInsensitiveText)});
        g_treatAsItems.append({name("Case-Sensitive Text"), codeOf(TreatAs::CaseSensitiveText)});
    }
    g_treatAsItems.append({name("Dates"), codeOf(TreatAs::Dates)});
    if (!isDateOfRecord(basedOnItem().code))
        g_treatAsItems.append({name("Numbers"), codeOf(TreatAs::Numbers)});
    g_treatAs = indexOfText(g_treatAsItems, before);
    rebuildWhere();
}

void SelectionCondition::rebuildWhere()
{
    const QString before = g_whereItems.isEmpty() ? QString() : whereItem().text;
    switch (static_cast<TreatAs>(treatAsItem().code)) {
    case TreatAs::Dates:
        g_whereItems = operators({Operator::DateEquals,
                                  Operator::DateDoesNotEqual,
                                  Operator::IsLaterThan,
                                  Operator::IsEarlierThan});
        break;
    case TreatAs::Numbers:
        g_whereItems = operators({Operator::NumberEquals,
                                  Operator::NumberDoesNotEqual,
                                  Operator::IsLessThan,
                                  Operator::IsGreaterThan});
        break;
    case TreatAs::CaseInsensitiveText:
    case TreatAs::CaseSensitiveText:
        g_whereItems = textOperators(basedOnItem().code);
        break;
    }
    g_where = indexOfText(g_whereItems, before);
}

} // namespace tavrin
