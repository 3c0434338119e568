// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/ImportChange.h"

#include "document/DatafileArrangement.h"
#include "document/DatafileDocument.h"
#include "document/DuplicateRemoval.h"
#include "io/ReadProgress.h"
#include "io/TableImport.h"

#include <QCoreApplication>

namespace tavrin {

ImportChange::ImportChange(const DatafileDocument &document, std::vector<quint32> added)
    : g_selectionBefore(document)
    , g_added(PresenceChange::added(std::move(added), {}))
{}

QString ImportChange::name() const
{
    return QCoreApplication::translate("Import", "Import");
}

void ImportChange::remove(DatafileDocument &document, const std::vector<quint32> &records)
{
    if (!records.empty())
        g_removed = PresenceChange::removing(document, records, {});
}

// Duplicates may be among the records that were added.
void ImportChange::undo(DatafileDocument &document)
{
    if (g_removed)
        g_removed->undo(document);
    g_added->undo(document);
    g_selectionBefore.restore(document);
}

void ImportChange::redo(DatafileDocument &document)
{
    g_added->redo(document);
    if (g_removed)
        g_removed->redo(document);
    DatafileArrangement(document).selectAll();
}

RecordsAddition::RecordsAddition(DatafileDocument &document,
                                 const RecordBatch &batch,
                                 ImportDestination destination)
    : g_document(document)
    , g_destination(destination)
    , g_catalogBefore(document.datafileCatalog().snapshot(document.datafileRecords().sharedIdentifiers()))
    , g_criteriaBefore(document.datafileCatalog().criteria())
    , g_change(std::make_unique<ImportChange>(document, addBatch(document, batch)))
{
    if (destination != ImportDestination::Merge)
        return;
    document.datafileCatalog().selectAll();
    g_duplicates = std::make_unique<DuplicateRemoval>(document, DuplicateRemoval::Compare::RichTexts);
}

RecordsAddition::~RecordsAddition() = default;

void RecordsAddition::run(Progress &progress)
{
    if (g_duplicates)
        g_duplicates->run(progress);
}

Result<quint64> RecordsAddition::finish()
{
    if (g_duplicates && g_duplicates->wasCancelled()) {
        g_change->undo(g_document);
        g_document.datafileCatalog().popCatalog(g_catalogBefore);
        g_document.datafileCatalog().setCriteria(g_criteriaBefore);
        g_document.announceCatalogChange();
        return cancelled();
    }
    quint64 removed = 0;
    if (g_duplicates) {
        g_change->remove(g_document, g_duplicates->duplicates());
        removed = g_duplicates->duplicates().size();
    }
    DatafileArrangement(g_document).selectAll();
    if (g_destination != ImportDestination::NewDatafile) {
        g_document.undoHistory().push(std::move(g_change));
        g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    }
    return removed;
}

Result<quint64> addToDatafile(DatafileDocument &document,
                              const RecordBatch &batch,
                              ImportDestination destination,
                              Progress &progress)
{
    RecordsAddition addition(document, batch, destination);
    addition.run(progress);
    return addition.finish();
}

} // namespace tavrin
