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

ImportChange::ImportChange(std::vector<quint32> added) : g_added(PresenceChange::added(std::move(added), {}))
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
}

void ImportChange::redo(DatafileDocument &document)
{
    g_added->redo(document);
    if (g_removed)
        g_removed->redo(document);
}

Result<quint64> addToDatafile(DatafileDocument &document,
                              const RecordBatch &batch,
                              ImportDestination destination,
                              Progress &progress)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    const CatalogSnapshot before = catalog.snapshot(document.datafileRecords().sharedIdentifiers());
    const SubsetSortCriteriaData criteria = catalog.criteria();
    auto change = std::make_unique<ImportChange>(addBatch(document, batch));
    quint64 removed = 0;
    if (destination == ImportDestination::Merge) {
        catalog.selectAll();
        DuplicateRemoval removal(document, DuplicateRemoval::Compare::RichTexts);
        removal.run(progress);
        if (removal.wasCancelled()) {
            change->undo(document);
            catalog.popCatalog(before);
            catalog.setCriteria(criteria);
            document.announceCatalogChange();
            return cancelled();
        }
        change->remove(document, removal.duplicates());
        removed = removal.duplicates().size();
    }
    DatafileArrangement(document).selectAll();
    if (destination != ImportDestination::NewDatafile) {
        document.undoHistory().push(std::move(change));
        document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    }
    return removed;
}

} // namespace tavrin
