// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileArrangement.h"

#include "document/DatafileDocument.h"

namespace tavrin {

tl::expected<std::unique_ptr<SortChange>, SortRefusal>
DatafileArrangement::sort(const SortCriteriaData &criteria, Progress &progress)
{
    RecordSorting sorting(g_document, criteria);
    sorting.run(progress);
    return sorting.apply(g_document);
}

Result<bool>
DatafileArrangement::select(const SubsetSortCriteriaData &criteria, bool fromOmitted, Progress &progress)
{
    RecordSelecting selecting(g_document, criteria, fromOmitted);
    selecting.run(progress);
    return selecting.apply(g_document);
}

void DatafileArrangement::selectAll()
{
    auto stored = g_document.datafileSettings().criteria<SubsetSortCriteriaData>();
    stored.selectEverything();
    g_document.datafileSettings().setCriteria(stored);
    g_document.datafileSettings().setDatafileSettingsDidChange(true);
    g_document.datafileCatalog().selectAll();
    g_document.announceCatalogChange();
}

bool DatafileArrangement::revertToPrevious()
{
    SubsetSortedData &catalog = g_document.datafileCatalog();
    if (catalog.revertToPrevious()) {
        g_document.announceCatalogChange();
        return true;
    }
    catalog.revertToPrevious();
    Q_EMIT g_document.selectionWouldBeEmptyError();
    return false;
}

bool DatafileArrangement::switchToOmitted()
{
    const bool isDone = g_document.datafileCatalog().switchToOmitted();
    if (isDone)
        g_document.announceCatalogChange();
    return isDone;
}

bool DatafileArrangement::omit(const QString &identifier)
{
    SubsetSortedData &catalog = g_document.datafileCatalog();
    if (!catalog.isSelectedIdentifier(identifier))
        return false;
    if (catalog.countSelected() == 1) {
        Q_EMIT g_document.selectionWouldBeEmptyError();
        return false;
    }
    catalog.omitIdentifier(identifier);
    g_document.announceCatalogChange();
    return true;
}

} // namespace tavrin
