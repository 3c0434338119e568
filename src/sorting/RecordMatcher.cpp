// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordMatcher.h"

namespace tavrin {

namespace {

RecordCondition::Terms firstTerms(const SubsetSortCriteriaData &criteria)
{
    return {static_cast<SelectionOperator>(criteria.wherePopup1()),
            static_cast<SelectionBasis>(criteria.basedOnPopup1()),
            criteria.basedOnIdentifier1(),
            criteria.whereField1(),
            static_cast<TreatAs>(criteria.treatAsPopup1())};
}

RecordCondition::Terms secondTerms(const SubsetSortCriteriaData &criteria)
{
    return {static_cast<SelectionOperator>(criteria.wherePopup2()),
            static_cast<SelectionBasis>(criteria.basedOnPopup2()),
            criteria.basedOnIdentifier2(),
            criteria.whereField2(),
            static_cast<TreatAs>(criteria.treatAsPopup2())};
}

} // namespace

RecordMatcher::RecordMatcher(const SubsetSortCriteriaData &criteria,
                             const RecordTexts &texts,
                             const SelectionSettings &settings)
    : g_selectsAll(criteria.selectAllRecords())
    , g_join(criteria.andSelect()  ? Join::And
             : criteria.orSelect() ? Join::Or
                                   : Join::None)
    , g_first(firstTerms(criteria), texts, settings)
    , g_second(secondTerms(criteria), texts, settings)
{}

bool RecordMatcher::matches(quint32 record)
{
    if (g_selectsAll)
        return true;
    const bool first = g_first.isMetBy(record, g_buffer);
    switch (g_join) {
    case Join::And:
        return first && g_second.isMetBy(record, g_buffer);
    case Join::Or:
        return first || g_second.isMetBy(record, g_buffer);
    case Join::None:
        break;
    }
    return first;
}

} // namespace tavrin
