// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/StoredTexts.h"
#include "sorting/SubsetSortedData.h"

namespace tavrin {

class DatafileDocument;

/// The selecting of a document's records by criteria, in three steps: it is made and applied on the
/// document's thread, and runs in between on any.
class RecordSelecting
{
public:
    /// Among the selected records, of which fewer stay so, or among the omitted, of which some join them.
    RecordSelecting(const DatafileDocument &document,
                    const SubsetSortCriteriaData &criteria,
                    bool fromOmitted);

    /// Once.
    void run(Progress &progress);

    /// Stores the criteria and the selection, and announces it. False when nothing would be selected: then
    /// the selection stays as it was, only the criteria are stored, and the document sends
    /// selectionWouldBeEmptyError(). Cancelled; Refused when the catalog changed meanwhile.
    Result<bool> apply(DatafileDocument &document) const;

private:
    SubsetSortCriteriaData g_criteria;
    bool g_fromOmitted;
    CatalogRecords g_catalog;
    StoredTexts g_texts;
    Result<std::vector<bool>> g_states;
};

} // namespace tavrin
