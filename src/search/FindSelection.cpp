// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/FindSelection.h"

#include "document/DatafileDocument.h"
#include "search/RecordsHolding.h"

#include <QCoreApplication>

namespace tavrin {

FindSelection::FindSelection(const DatafileDocument &document,
                             const QStringList &keys,
                             KeyOptions options,
                             qint64 fieldsToSearchIn)
    : g_row(document, RecordRowSnapshot::Which::Selected)
    , g_search(document.datafileSettings(), fieldsToSearchIn, HiddenFields::Searched)
{
    options.literal = true;
    for (const QString &key : keys)
        g_keys.emplace_back(key, options);
}

void FindSelection::run(Progress &progress)
{
    g_found = recordsHolding(g_row, g_search, g_keys, progress);
}

Result<bool> FindSelection::apply(DatafileDocument &document) const
{
    if (!g_found)
        return Error{Error::Kind::Cancelled, {}, {}};
    SubsetSortedData &catalog = document.datafileCatalog();
    const qint64 count = catalog.countSelected();
    if (count != g_row.count() || (count > 0 && catalog.selectedNumbers(0, count) != g_row.numbers(0, count)))
        return Error{Error::Kind::Refused,
                     QCoreApplication::translate("FindSelection", "The records have changed meanwhile."),
                     {}};
    qint64 place = 0;
    auto found = g_found->begin();
    std::vector<bool> states;
    for (const CatalogEntry &entry : catalog.entries()) {
        const bool holds = entry.currentlySelected() && found != g_found->end() && *found == place;
        place += entry.currentlySelected() ? 1 : 0;
        found += holds ? 1 : 0;
        states.push_back(holds);
    }
    const bool isDone = catalog.setFindSelection(states);
    if (isDone)
        document.announceCatalogChange();
    return isDone;
}

} // namespace tavrin
