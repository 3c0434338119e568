// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ChangeSequence.h"
#include "document/KeptSelection.h"
#include "io/TableImport.h"
#include "sorting/SubsetSortedData.h"

namespace tavrin {

class DuplicateRemoval;

/// What an import did to the records of a datafile. All are selected afterwards; who takes it back finds the
/// selection of before.
class ImportChange : public ChangeSequence
{
public:
    /// Nothing was selected because of it yet.
    explicit ImportChange(const DatafileDocument &document) : g_selectionBefore(document) {}

    QString name() const override;

protected:
    void didMake(DatafileDocument &document) override;
    void didTakeBack(DatafileDocument &document) override { g_selectionBefore.restore(document); }

private:
    KeptSelection g_selectionBefore;
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
