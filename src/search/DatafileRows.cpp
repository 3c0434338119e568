// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/DatafileRows.h"

#include "document/DatafileDocument.h"

namespace tavrin {

qint64 SelectedRecords::count() const
{
    return g_document.datafileCatalog().countSelected();
}

std::vector<quint32> SelectedRecords::numbers(qint64 from, qint64 count) const
{
    return g_document.datafileCatalog().selectedNumbers(from, count);
}

std::optional<RecordView> SelectedRecords::view(quint32 number) const
{
    return g_document.datafileRecords().view(number);
}

RecordRowSnapshot::RecordRowSnapshot(const DatafileDocument &document, Which which)
    : g_records(document.datafileRecords())
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    if (which == Which::Selected) {
        if (catalog.countSelected() > 0)
            g_numbers = catalog.selectedNumbers(0, catalog.countSelected());
        return;
    }
    for (const CatalogEntry &entry : catalog.entries()) {
        if (!entry.isInert())
            g_numbers.push_back(entry.identifier());
    }
}

std::vector<quint32> RecordRowSnapshot::numbers(qint64 from, qint64 count) const
{
    const auto first = g_numbers.begin() + from;
    return {first, first + count};
}

} // namespace tavrin
