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

/// Whether each entry is one of the selected ones that have every key in their text or in a field, as it is
/// written, whatever the case unless case-sensitive.
Result<std::vector<bool>> selectionForFind(const CatalogRecords &catalog,
                                           const QStringList &keys,
                                           bool caseSensitive,
                                           const RecordTexts &texts,
                                           Progress &progress);

} // namespace tavrin
