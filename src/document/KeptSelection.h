// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/SubsetSortCriteriaData.h"

#include <vector>

namespace tavrin {

class DatafileDocument;

/// Which records were selected, and by which criteria, when something was done that selects all: for whoever
/// takes that back.
class KeptSelection
{
public:
    explicit KeptSelection(const DatafileDocument &document);

    /// Selects them again, and announces it. Records that came since and are still there stay as they are.
    void restore(DatafileDocument &document) const;

private:
    SubsetSortCriteriaData g_criteria;
    std::vector<bool> g_isOmitted; ///< By the number of the record's identifier; empty when none is.
};

} // namespace tavrin
