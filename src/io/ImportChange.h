// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/KeptSelection.h"
#include "document/RecordChanges.h"
#include "io/TableImport.h"

namespace tavrin {

class DuplicateRemoval;

/// Records that were imported into a datafile, and duplicates that went because of them. All are selected
/// afterwards; who takes it back finds the selection of before.
class ImportChange : public UndoStep
{
public:
    /// Nothing was selected because of them yet.
    ImportChange(const DatafileDocument &document, std::vector<quint32> added);

    /// Removes those records as part of the same step.
    void remove(DatafileDocument &document, const std::vector<quint32> &records);

    QString name() const override;
    void undo(DatafileDocument &document) override;
    void redo(DatafileDocument &document) override;

private:
    KeptSelection g_selectionBefore;
    std::unique_ptr<PresenceChange> g_added;
    std::unique_ptr<PresenceChange> g_removed; ///< Null when nothing was.
};

/// The adding of records to a datafile, in three steps: it is made and finished on the document's thread, and
/// runs in between on any. See addToDatafile().
class RecordsAddition
{
public:
    /// Adds the records; what follows is about duplicates.
    RecordsAddition(DatafileDocument &document, const RecordBatch &batch, ImportDestination destination);
    ~RecordsAddition();

    /// Once.
    void run(Progress &progress);

    /// How many duplicates went. Cancelled when run() was; the datafile is then as it was.
    Result<quint64> finish();

private:
    DatafileDocument &g_document;
    ImportDestination g_destination;
    CatalogSnapshot g_catalogBefore;
    SubsetSortCriteriaData g_criteriaBefore;
    std::unique_ptr<ImportChange> g_change;
    std::unique_ptr<DuplicateRemoval> g_duplicates; ///< Null unless the records are merged.
};

} // namespace tavrin
