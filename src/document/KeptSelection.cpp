// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/KeptSelection.h"

#include "document/DatafileDocument.h"

namespace tavrin {

KeptSelection::KeptSelection(const DatafileDocument &document)
    : g_criteria(document.datafileSettings().criteria<SubsetSortCriteriaData>())
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    if (catalog.countSelected() == catalog.count())
        return;
    g_isOmitted.resize(document.datafileRecords().identifiers().count());
    for (const CatalogEntry &entry : catalog.entries()) {
        if (!entry.isInert() && !entry.currentlySelected())
            g_isOmitted[entry.identifier()] = true;
    }
}

void KeptSelection::restore(DatafileDocument &document) const
{
    auto stored = document.datafileSettings().criteria<SubsetSortCriteriaData>();
    stored.setSelectionCriteria(g_criteria);
    document.datafileSettings().setCriteria(stored);
    document.datafileSettings().setDatafileSettingsDidChange(true);
    document.datafileCatalog().setCriteria(stored);
    if (!g_isOmitted.empty()) {
        SubsetSortedData &catalog = document.datafileCatalog();
        std::vector<bool> states;
        for (const CatalogEntry &entry : catalog.entries()) {
            const bool wasOmitted =
                entry.identifier() < g_isOmitted.size() && g_isOmitted[entry.identifier()];
            states.push_back(entry.currentlySelected() && !wasOmitted);
        }
        catalog.setFindSelection(states);
    }
    document.announceCatalogChange();
}

} // namespace tavrin
