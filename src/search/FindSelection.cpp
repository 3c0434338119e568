// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/FindSelection.h"

#include "document/DatafileDocument.h"
#include "search/RecordWalk.h"

#include <algorithm>

namespace tavrin {

bool selectForFind(DatafileDocument &document,
                   const QStringList &keys,
                   KeyOptions options,
                   qint64 fieldsToSearchIn,
                   Progress &progress)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    const qint64 count = catalog.countSelected();
    if (count == 0)
        return false;
    options.literal = true;
    std::vector<SearchKey> prepared;
    for (const QString &key : keys)
        prepared.emplace_back(key, options);
    const RecordSearch search(document.datafileSettings(), fieldsToSearchIn, HiddenFields::Searched);
    std::vector<bool> holds(static_cast<size_t>(count), false);
    const bool finished =
        RecordWalk(document, count, progress).visit(0, count - 1, [&](qint64 record, const RecordView &view) {
            holds[static_cast<size_t>(record)] = search.holds(view, prepared);
            return true;
        });
    if (!finished || std::ranges::find(holds, true) == holds.end())
        return false;
    size_t place = 0;
    std::vector<bool> states;
    for (const CatalogEntry &entry : catalog.entries())
        states.push_back(entry.currentlySelected() && holds[place++]);
    const bool isDone = catalog.setFindSelection(states);
    if (isDone)
        document.announceCatalogChange();
    return isDone;
}

} // namespace tavrin
