// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSelection.h"

#include "base/Parallel.h"
#include "sorting/WorkSteps.h"

#include <algorithm>
#include <atomic>

namespace tavrin {

Result<std::vector<bool>> selectionByCriteria(const CatalogRecords &catalog,
                                              const SubsetSortCriteriaData &criteria,
                                              bool fromOmitted,
                                              const RecordTexts &texts,
                                              const SelectionSettings &settings,
                                              Progress &progress)
{
    constexpr size_t parallelFrom = 20'000;
    const bool selectsAll = criteria.selectAllRecords();
    const size_t count = catalog.entries.size();
    const int parts = count < parallelFrom ? 1 : parallelParts();
    std::vector<std::vector<bool>> states(static_cast<size_t>(parts));
    std::atomic<bool> isStopped = false;
    inParallel(parts, [&](int part) {
        const auto index = static_cast<size_t>(part);
        const size_t first = count * index / states.size();
        const size_t last = count * (index + 1) / states.size();
        // One speaks for all with whoever waits.
        Progress unheard;
        WorkSteps steps(part == 0 ? progress : unheard, last - first);
        RecordMatcher matcher(criteria, texts, settings);
        states[index].reserve(last - first);
        for (size_t i = first; i < last && !isStopped.load(std::memory_order_relaxed); ++i) {
            if (!steps.goOn())
                isStopped = true;
            const CatalogEntry &entry = catalog.entries[i];
            const bool isJudged = entry.currentlySelected() != fromOmitted;
            const bool isWanted = isJudged ? matcher.matches(catalog.records[i]) : entry.currentlySelected();
            states[index].push_back(!entry.isInert() && (selectsAll || isWanted));
        }
    });
    if (isStopped)
        return Error{.kind = Error::Kind::Cancelled};
    std::vector<bool> all;
    all.reserve(count);
    for (const std::vector<bool> &part : states)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace tavrin
