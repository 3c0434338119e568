// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/RecordSelecting.h"
#include "document/RecordSorting.h"

namespace tavrin {

/// How the records of a document are arranged: in which order, and which of them are selected.
///
/// Each operation announces once that it did something. An order is a change of the document; what is
/// selected is no reason to ask whether to save, and goes into the file with the next save. sort() and
/// select() do at once what RecordSorting and RecordSelecting do in steps.
class DatafileArrangement
{
public:
    /// The document outlives it.
    explicit DatafileArrangement(DatafileDocument &document) : g_document(document) {}

    tl::expected<std::unique_ptr<SortChange>, SortRefusal> sort(const SortCriteriaData &criteria,
                                                                Progress &progress);

    /// See RecordSelecting::apply().
    Result<bool> select(const SubsetSortCriteriaData &criteria, bool fromOmitted, Progress &progress);

    /// Says so in the stored criteria, too.
    void selectAll();
    /// Swaps the selection with the one before. False, and no change, when that selected nothing; the
    /// document sends selectionWouldBeEmptyError().
    bool revertToPrevious();
    /// Shows the omitted records instead. False, and no change, when there are none.
    bool switchToOmitted();
    /// Omits a selected record. False, and no change, when it is the only one; the document sends
    /// selectionWouldBeEmptyError().
    bool omit(const QString &identifier);

private:
    DatafileDocument &g_document;
};

} // namespace tavrin
