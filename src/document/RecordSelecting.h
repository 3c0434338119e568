// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/StoredTexts.h"
#include "sorting/SubsetSortedData.h"

#include <variant>

namespace tavrin {

class DatafileDocument;

/// The selecting of a document's records, in three steps: it is made and applied on the document's thread,
/// and runs in between on any.
class RecordSelecting
{
public:
    /// Among the selected records, of which fewer stay so, or among the omitted, of which some join them.
    struct ByCriteria
    {
        SubsetSortCriteriaData criteria;
        bool fromOmitted = false;
    };
    /// Those of the selected records that have every key in their text or in any field.
    struct ByKeys
    {
        QStringList keys;
        bool caseSensitive = false;
    };

    RecordSelecting(const DatafileDocument &document, std::variant<ByCriteria, ByKeys> rule);

    /// Once.
    void run(Progress &progress);

    /// Stores the criteria, if that is how it was selected, and the selection, and announces it. False when
    /// nothing would be selected: then the selection stays as it was, and for criteria, which stay stored,
    /// the document sends selectionWouldBeEmptyError(). Cancelled; Refused when the catalog changed
    /// meanwhile.
    Result<bool> apply(DatafileDocument &document) const;

private:
    std::variant<ByCriteria, ByKeys> g_rule;
    CatalogRecords g_catalog;
    StoredTexts g_texts;
    Result<std::vector<bool>> g_states;
};

} // namespace tavrin
