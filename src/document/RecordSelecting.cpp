// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordSelecting.h"

#include "document/DatafileDocument.h"

#include <QCoreApplication>

namespace tavrin {

RecordSelecting::RecordSelecting(const DatafileDocument &document,
                                 const SubsetSortCriteriaData &criteria,
                                 bool fromOmitted)
    : g_criteria(criteria)
    , g_fromOmitted(fromOmitted)
    , g_catalog(document.datafileCatalog().catalogRecords())
    , g_texts(document.datafileRecords(), document.datafileSettings())
{}

void RecordSelecting::run(Progress &progress)
{
    g_states =
        selectionByCriteria(g_catalog, g_criteria, g_fromOmitted, g_texts, {.locale = QLocale()}, progress);
}

Result<bool> RecordSelecting::apply(DatafileDocument &document) const
{
    if (!g_states)
        return g_states.error();
    SubsetSortedData &catalog = document.datafileCatalog();
    if (catalog.entries() != g_catalog.entries)
        return Error{Error::Kind::Refused,
                     QCoreApplication::translate("RecordSelecting", "The records have changed meanwhile."),
                     {}};
    auto stored = document.datafileSettings().criteria<SubsetSortCriteriaData>();
    stored.setSelectionCriteria(g_criteria);
    document.datafileSettings().setCriteria(stored);
    document.datafileSettings().setDatafileSettingsDidChange(true);
    const bool isDone = catalog.setSelection(stored, *g_states);
    if (isDone)
        document.announceCatalogChange();
    return isDone;
}

} // namespace tavrin
