// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordSelecting.h"

#include "document/DatafileDocument.h"

#include <QCoreApplication>

namespace tavrin {

RecordSelecting::RecordSelecting(const DatafileDocument &document, std::variant<ByCriteria, ByKeys> rule)
    : g_rule(std::move(rule))
    , g_catalog(document.datafileCatalog().catalogRecords())
    , g_texts(document.datafileRecords(), document.datafileSettings())
{}

void RecordSelecting::run(Progress &progress)
{
    if (const auto *byKeys = std::get_if<ByKeys>(&g_rule)) {
        g_states = selectionForFind(g_catalog, byKeys->keys, byKeys->caseSensitive, g_texts, progress);
        return;
    }
    const auto &[criteria, fromOmitted] = std::get<ByCriteria>(g_rule);
    g_states =
        selectionByCriteria(g_catalog, criteria, fromOmitted, g_texts, {.locale = QLocale()}, progress);
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
    bool isDone = false;
    if (const auto *byCriteria = std::get_if<ByCriteria>(&g_rule)) {
        auto stored = document.datafileSettings().criteria<SubsetSortCriteriaData>();
        stored.setSelectionCriteria(byCriteria->criteria);
        document.datafileSettings().setCriteria(stored);
        document.datafileSettings().setDatafileSettingsDidChange(true);
        isDone = catalog.setSelection(stored, *g_states);
    } else {
        isDone = catalog.setFindSelection(*g_states);
    }
    if (isDone)
        document.announceCatalogChange();
    return isDone;
}

} // namespace tavrin
