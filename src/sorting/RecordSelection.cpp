// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSelection.h"

#include "sorting/WorkSteps.h"

#include <algorithm>

namespace tavrin {

namespace {

/// What the rule says of each entry that is no inert one. Cancelled.
template <typename Rule>
Result<std::vector<bool>> statesOf(const CatalogRecords &catalog, Progress &progress, Rule rule)
{
    WorkSteps steps(progress, catalog.entries.size());
    std::vector<bool> states;
    states.reserve(catalog.entries.size());
    for (size_t i = 0; i < catalog.entries.size(); ++i) {
        if (!steps.goOn())
            return Error{.kind = Error::Kind::Cancelled};
        const CatalogEntry &entry = catalog.entries[i];
        states.push_back(!entry.isInert() && rule(entry, catalog.records[i]));
    }
    return states;
}

} // namespace

Result<std::vector<bool>> selectionByCriteria(const CatalogRecords &catalog,
                                              const SubsetSortCriteriaData &criteria,
                                              bool fromOmitted,
                                              const RecordTexts &texts,
                                              const SelectionSettings &settings,
                                              Progress &progress)
{
    RecordMatcher matcher(criteria, texts, settings);
    const bool selectsAll = criteria.selectAllRecords();
    return statesOf(catalog, progress, [&](const CatalogEntry &entry, quint32 record) {
        const bool isJudged = entry.currentlySelected() != fromOmitted;
        return selectsAll || (isJudged ? matcher.matches(record) : entry.currentlySelected());
    });
}

} // namespace tavrin
