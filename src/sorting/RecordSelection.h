// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "sorting/CatalogEntry.h"
#include "sorting/RecordMatcher.h"

#include <vector>

namespace tavrin {

/// The entries of a catalog in their order, and the number of each one's record: RecordTexts::noRecord where
/// there is none.
struct CatalogRecords
{
    std::vector<CatalogEntry> entries;
    std::vector<quint32> records;
};

/// Whether each entry is selected when the criteria are applied: to the selected records, which can only get
/// fewer, or to the omitted ones, which joins some of them to the selected. Cancelled.
Result<std::vector<bool>> selectionByCriteria(const CatalogRecords &catalog,
                                              const SubsetSortCriteriaData &criteria,
                                              bool fromOmitted,
                                              const RecordTexts &texts,
                                              const SelectionSettings &settings,
                                              Progress &progress);

} // namespace tavrin
