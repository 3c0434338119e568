// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/StoredTexts.h"
#include "document/UndoHistory.h"
#include "sorting/SubsetSortedData.h"

namespace tavrin {

class DatafileDocument;

/// Why the records were not sorted.
struct SortRefusal
{
    Error error;             ///< Cancelled; Corrupt for a date; Refused when the catalog changed meanwhile.
    QString informativeText; ///< What an alert says below the error's message; empty when Cancelled.
    QString identifier;      ///< Of the record with the date; empty for other reasons.
};

/// A sort that was done: what Undo needs. The document is always the one that was sorted.
class SortChange : public UndoStep
{
public:
    SortChange(std::vector<CatalogEntry> otherOrder, const SortCriteriaData &otherCriteria)
        : g_otherOrder(std::move(otherOrder))
        , g_otherCriteria(otherCriteria)
    {}

    QString name() const override;
    /// Restores order and criteria, and announces it. What is selected stays so, and records that came since
    /// go to the end.
    void undo(DatafileDocument &document) override { exchange(document); }
    void redo(DatafileDocument &document) override { exchange(document); }

private:
    void exchange(DatafileDocument &document);

    std::vector<CatalogEntry> g_otherOrder;
    SortCriteriaData g_otherCriteria;
};

/// The sorting of all records of a document, omitted ones too, in three steps: it is made and applied on the
/// document's thread, and runs in between on any.
class RecordSorting
{
public:
    RecordSorting(const DatafileDocument &document, const SortCriteriaData &criteria);

    /// Once.
    void run(Progress &progress);

    /// The places, in the catalog as it was, of the records that come first; none when run() failed. For a
    /// look at the result; nothing is applied.
    std::vector<quint32> firstPlaces(size_t count) const;

    /// Stores order and criteria, marks the document as changed and announces it. When it refuses, nothing
    /// has happened.
    tl::expected<std::unique_ptr<SortChange>, SortRefusal> apply(DatafileDocument &document) const;

private:
    SortRefusal refusal(const DatafileDocument &document) const;

    SortCriteriaData g_criteria;
    SortSettings g_settings;
    CatalogRecords g_catalog;
    StoredTexts g_texts;
    tl::expected<std::vector<quint32>, SortFailure> g_places;
};

} // namespace tavrin
