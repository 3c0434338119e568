// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/ImportChange.h"

#include "document/DatafileArrangement.h"
#include "document/DatafileDocument.h"
#include "document/DuplicateRemoval.h"
#include "document/RecordChanges.h"
#include "io/ReadProgress.h"
#include "io/TableImport.h"

#include <QCoreApplication>

namespace tavrin {

QString ImportChange::name() const
{
    return QCoreApplication::translate("Import", "Import");
}

void ImportChange::didMake(DatafileDocument &document)
{
    DatafileArrangement(document).selectAll();
}

RecordsAddition::RecordsAddition(DatafileDocument &document,
                                 const RecordBatch &batch,
                                 ImportDestination destination)
    : g_document(document)
    , g_destination(destination)
    , g_catalogBefore(document.datafileCatalog().snapshot(document.datafileRecords().sharedIdentifiers()))
    , g_criteriaBefore(document.datafileCatalog().criteria())
    , g_change(std::make_unique<ImportChange>(document))
{
    g_change->append(PresenceChange::added(addBatch(document, batch), {}));
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
        // Some may be among the records that were added.
        removed = g_duplicates->duplicates().size();
        if (removed > 0)
            g_change->append(PresenceChange::removing(g_document, g_duplicates->duplicates(), {}));
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
