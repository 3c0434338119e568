// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/CatalogOrder.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tavrin {

namespace {

constexpr quint32 noChunk = 0xffffffff;

} // namespace

CatalogOrder::Place CatalogOrder::placeOf(qint64 index) const
{
    const auto behind = std::ranges::upper_bound(g_firstIndex.begin(), g_firstIndex.end() - 1, index);
    const auto chunk = static_cast<size_t>(behind - g_firstIndex.begin()) - 1;
    return {chunk, static_cast<size_t>(index - g_firstIndex[chunk])};
}

const CatalogEntry &CatalogOrder::at(qint64 index) const
{
    const Place place = placeOf(index);
    return g_chunks[place.chunk][place.offset];
}

qint64 CatalogOrder::indexOf(quint32 identifier) const
{
    if (identifier >= g_chunkOf.size() || g_chunkOf[identifier] == noChunk)
        return NotFound;
    if (g_hasDuplicates)
        return search(identifier);
    const size_t chunk = g_chunkNamed[g_chunkOf[identifier]];
    const auto &entries = g_chunks[chunk];
    const auto found = std::ranges::find(entries, identifier, &CatalogEntry::identifier);
    return found == entries.end() ? NotFound : g_firstIndex[chunk] + (found - entries.begin());
}

qint64 CatalogOrder::search(quint32 identifier) const
{
    for (size_t chunk = 0; chunk < g_chunks.size(); ++chunk) {
        const auto found = std::ranges::find(g_chunks[chunk], identifier, &CatalogEntry::identifier);
        if (found != g_chunks[chunk].end())
            return g_firstIndex[chunk] + (found - g_chunks[chunk].begin());
    }
    return NotFound;
}

qint64 CatalogOrder::indexOfSelected(quint32 identifier) const
{
    const qint64 first = indexOf(identifier);
    if (first == NotFound || at(first).currentlySelected())
        return first;
    for (qint64 index = first + 1; g_hasDuplicates && index < count(); ++index) {
        if (at(index).identifier() == identifier && at(index).currentlySelected())
            return index;
    }
    return NotFound;
}

qint64 CatalogOrder::indexOfSelectedPlace(qint64 place) const
{
    const auto behind = std::ranges::upper_bound(g_firstSelected.begin(), g_firstSelected.end() - 1, place);
    const auto chunk = static_cast<size_t>(behind - g_firstSelected.begin()) - 1;
    qint64 left = place - g_firstSelected[chunk];
    size_t offset = 0;
    while (!g_chunks[chunk][offset].currentlySelected() || left-- > 0)
        ++offset;
    return g_firstIndex[chunk] + static_cast<qint64>(offset);
}

qint64 CatalogOrder::selectedBefore(qint64 index) const
{
    if (index >= count())
        return countSelected();
    const Place place = placeOf(index);
    const auto start = g_chunks[place.chunk].begin();
    return g_firstSelected[place.chunk]
           + std::count_if(start,
                           start + static_cast<qint64>(place.offset),
                           std::mem_fn(&CatalogEntry::currentlySelected));
}

void CatalogOrder::insert(qint64 index, const CatalogEntry &entry)
{
    if (g_chunks.empty()) {
        assign({entry});
        return;
    }
    // At the end of the last chunk rather than in a chunk of its own.
    const Place place =
        index == count() ? Place{g_chunks.size() - 1, g_chunks.back().size()} : placeOf(index);
    auto &entries = g_chunks[place.chunk];
    entries.insert(entries.begin() + static_cast<qint64>(place.offset), entry);
    if (!entry.isInert()) {
        if (entry.identifier() >= g_chunkOf.size())
            g_chunkOf.resize(entry.identifier() + size_t(1), noChunk);
        g_hasDuplicates = g_hasDuplicates || g_chunkOf[entry.identifier()] != noChunk;
        g_chunkOf[entry.identifier()] = g_names[place.chunk];
    }
    if (entries.size() > largestChunk)
        split(place.chunk);
    else
        countSelectedOf(place.chunk);
    sumUp(place.chunk);
}

CatalogEntry CatalogOrder::remove(qint64 index)
{
    const Place place = placeOf(index);
    auto &entries = g_chunks[place.chunk];
    const CatalogEntry removed = entries[place.offset];
    entries.erase(entries.begin() + static_cast<qint64>(place.offset));
    if (!removed.isInert() && !g_hasDuplicates)
        g_chunkOf[removed.identifier()] = noChunk;
    if (entries.empty()) {
        g_chunks.erase(g_chunks.begin() + static_cast<qint64>(place.chunk));
        g_names.erase(g_names.begin() + static_cast<qint64>(place.chunk));
        g_selectedOf.erase(g_selectedOf.begin() + static_cast<qint64>(place.chunk));
        renumber(place.chunk);
    } else {
        countSelectedOf(place.chunk);
    }
    sumUp(place.chunk);
    return removed;
}

void CatalogOrder::assign(std::vector<CatalogEntry> entries)
{
    g_chunks.clear();
    g_names.clear();
    g_chunkNamed.clear();
    g_chunkOf.clear();
    g_hasDuplicates = false;
    for (size_t start = 0; start < entries.size(); start += fullChunk) {
        const auto first = entries.begin() + static_cast<qint64>(start);
        const size_t size = std::min(fullChunk, entries.size() - start);
        g_names.push_back(static_cast<quint32>(g_chunks.size()));
        g_chunks.emplace_back(first, first + static_cast<qint64>(size));
        note(g_chunks.size() - 1);
    }
    g_selectedOf.resize(g_chunks.size());
    for (size_t chunk = 0; chunk < g_chunks.size(); ++chunk)
        countSelectedOf(chunk);
    renumber(0);
    sumUp(0);
}

// Enters which entries the chunk has.
void CatalogOrder::note(size_t chunk)
{
    for (const CatalogEntry &entry : g_chunks[chunk]) {
        if (entry.isInert())
            continue;
        if (entry.identifier() >= g_chunkOf.size())
            g_chunkOf.resize(std::max(size_t(entry.identifier()) + 1, g_chunkOf.size() * 2), noChunk);
        g_hasDuplicates = g_hasDuplicates || g_chunkOf[entry.identifier()] != noChunk;
        g_chunkOf[entry.identifier()] = g_names[chunk];
    }
}

void CatalogOrder::split(size_t chunk)
{
    auto &whole = g_chunks[chunk];
    const auto middle = whole.begin() + static_cast<qint64>(whole.size() / 2);
    std::vector<CatalogEntry> half(middle, whole.end());
    whole.erase(middle, whole.end());
    const auto name = static_cast<quint32>(g_chunkNamed.size());
    for (const CatalogEntry &entry : half) {
        if (!entry.isInert())
            g_chunkOf[entry.identifier()] = name;
    }
    const auto behind = static_cast<qint64>(chunk) + 1;
    g_chunks.insert(g_chunks.begin() + behind, std::move(half));
    g_names.insert(g_names.begin() + behind, name);
    g_selectedOf.insert(g_selectedOf.begin() + behind, 0);
    g_chunkNamed.push_back(0);
    renumber(chunk + 1);
    countSelectedOf(chunk);
    countSelectedOf(chunk + 1);
}

void CatalogOrder::renumber(size_t fromChunk)
{
    g_chunkNamed.resize(std::max(g_chunkNamed.size(), g_names.size()));
    for (size_t chunk = fromChunk; chunk < g_names.size(); ++chunk)
        g_chunkNamed[g_names[chunk]] = static_cast<quint32>(chunk);
}

void CatalogOrder::countSelectedOf(size_t chunk)
{
    g_selectedOf[chunk] =
        static_cast<quint32>(std::ranges::count_if(g_chunks[chunk], &CatalogEntry::currentlySelected));
}

void CatalogOrder::sumUp(size_t fromChunk)
{
    g_firstIndex.resize(g_chunks.size() + 1);
    g_firstSelected.resize(g_chunks.size() + 1);
    for (size_t chunk = fromChunk; chunk < g_chunks.size(); ++chunk) {
        g_firstIndex[chunk + 1] = g_firstIndex[chunk] + static_cast<qint64>(g_chunks[chunk].size());
        g_firstSelected[chunk + 1] = g_firstSelected[chunk] + g_selectedOf[chunk];
    }
}

} // namespace tavrin
