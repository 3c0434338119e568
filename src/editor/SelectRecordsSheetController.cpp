// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SelectRecordsSheetController.h"

#include "sorting/SelectionCodes.h"
#include "text/DateReader.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// Fields have no code of their own, only their identifier.
constexpr qint64 fieldCode = 0;

QList<CodedItem> basedOnItems(const QList<FieldDefinition> &fields, const QString &textName)
{
    using Sheet = SelectRecordsSheetController;
    QList<CodedItem> items;
    items.append({Sheet::tr("Whole Record"), codeOf(SelectionBasis::AnyField)});
    for (const FieldDefinition &field : fields)
        items.append({field.name(), fieldCode, field.identifier()});
    items.append({textName, codeOf(SelectionBasis::FreeformText)});
    items.append({Sheet::tr("Created Date"), codeOf(SelectionBasis::CreatedDate)});
    items.append({Sheet::tr("Modified Date"), codeOf(SelectionBasis::ModifiedDate)});
    return items;
}

} // namespace

SelectRecordsSheetController::SelectRecordsSheetController(const SubsetSortCriteriaData &criteria,
                                                           const QList<FieldDefinition> &fields,
                                                           const QString &textName,
                                                           From from)
    : g_criteria(criteria)
    , g_from(from)
    , g_conditions{SelectionCondition(basedOnItems(fields, textName)),
                   SelectionCondition(basedOnItems(fields, textName))}
{
    g_conditions[0].setCodes(criteria.basedOnPopup1(),
                             criteria.basedOnIdentifier1(),
                             criteria.treatAsPopup1(),
                             criteria.wherePopup1(),
                             criteria.whereField1());
    if (criteria.andSelect() || criteria.orSelect()) {
        g_joining = criteria.andSelect() ? Joining::And : Joining::Or;
        g_conditions[1].setCodes(criteria.basedOnPopup2(),
                                 criteria.basedOnIdentifier2(),
                                 criteria.treatAsPopup2(),
                                 criteria.wherePopup2(),
                                 criteria.whereField2());
    }
}

void SelectRecordsSheetController::handleBasedOnClick(int number, qsizetype index)
{
    g_conditions.at(size_t(number)).chooseBasedOn(index);
    Q_EMIT changed();
}

void SelectRecordsSheetController::handleTreatAsClick(int number, qsizetype index)
{
    g_conditions.at(size_t(number)).chooseTreatAs(index);
    Q_EMIT changed();
}

void SelectRecordsSheetController::handleWhereClick(int number, qsizetype index)
{
    g_conditions.at(size_t(number)).chooseWhere(index);
    Q_EMIT changed();
}

void SelectRecordsSheetController::setValue(int number, const QString &value)
{
    g_conditions.at(size_t(number)).setValue(value);
    Q_EMIT changed();
}

void SelectRecordsSheetController::join(Joining joining)
{
    g_joining = joining;
    if (joining == Joining::None)
        g_conditions[1].setValue({});
    Q_EMIT changed();
}

void SelectRecordsSheetController::resetSelectRecordsSheet()
{
    for (SelectionCondition &condition : g_conditions)
        condition.setCodes(codeOf(SelectionBasis::AnyField), {}, 0, 0, {});
    join(Joining::None);
}

QString SelectRecordsSheetController::problem() const
{
    for (const int number : {0, 1}) {
        if (isActive(number) && !condition(number).isComplete())
            return number == 0 ? tr("Type what to look for.")
                               : tr("Type what to look for in the second line.");
    }
    return {};
}

QString SelectRecordsSheetController::hint() const
{
    const bool hasUnreadableDate = std::ranges::any_of(std::array{0, 1}, [this](int number) {
        const SelectionCondition &tested = condition(number);
        return isActive(number) && tested.treatAsItem().code == codeOf(TreatAs::Dates)
               && !tested.value().isEmpty() && !text::DateReader().read(tested.value());
    });
    const bool hasNumbersOutsideFields = std::ranges::any_of(std::array{0, 1}, [this](int number) {
        const SelectionCondition &tested = condition(number);
        return isActive(number) && tested.treatAsItem().code == codeOf(TreatAs::Numbers)
               && tested.basedOnItem().identifier.isEmpty();
    });
    if (hasNumbersOutsideFields)
        return tr("Numbers are looked for in a field only.");
    return hasUnreadableDate ? tr("A date is written as Mar 5, 2007 or 2007-03-05.") : QString();
}

SubsetSortCriteriaData SelectRecordsSheetController::criteria() const
{
    SubsetSortCriteriaData chosen = g_criteria;
    chosen.setSelectAllRecords(false);
    chosen.setAndSelect(g_joining == Joining::And);
    chosen.setOrSelect(g_joining == Joining::Or);
    const SelectionCondition &first = g_conditions[0];
    chosen.setBasedOnPopup1(first.basedOnItem().code);
    chosen.setBasedOnIdentifier1(first.basedOnItem().identifier);
    chosen.setTreatAsPopup1(first.treatAsItem().code);
    chosen.setWherePopup1(first.whereItem().code);
    chosen.setWhereField1(first.value());
    const SelectionCondition &second = g_conditions[1];
    chosen.setBasedOnPopup2(second.basedOnItem().code);
    chosen.setBasedOnIdentifier2(second.basedOnItem().identifier);
    chosen.setTreatAsPopup2(second.treatAsItem().code);
    chosen.setWherePopup2(second.whereItem().code);
    chosen.setWhereField2(second.value());
    return chosen;
}

} // namespace tavrin
