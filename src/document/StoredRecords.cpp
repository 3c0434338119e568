// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/StoredRecords.h"

#include "model/DatafileRecordsData.h"
#include "model/ValueRecords.h"

namespace tavrin {

namespace {

constexpr quint32 noPlace = 0xffffffff;

} // namespace

StoredRecords::StoredRecords(const DatafileRecordsData &records)
{
    RecordsSnapshot snapshot = records.numberedSnapshot();
    g_source = std::move(snapshot.source);
    g_sourceCount = snapshot.sourceCount;
    g_changed = std::make_unique<ValueRecords>(std::move(snapshot.changed));
    g_places.resize(records.identifiers().count(), noPlace);
    for (const RecordsSnapshot::Entry &entry : snapshot.entries)
        g_places[entry.identifier] = entry.record;
}

StoredRecords::~StoredRecords() = default;

std::optional<RecordView> StoredRecords::view(quint32 number) const
{
    if (number >= g_places.size() || g_places[number] == noPlace)
        return {};
    const quint32 place = g_places[number];
    return place < g_sourceCount ? RecordView(nullptr, g_source.get(), place)
                                 : RecordView(nullptr, g_changed.get(), place - g_sourceCount);
}

} // namespace tavrin
