// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/NotFound.h"
#include "sorting/CatalogEntry.h"

#include <vector>

namespace tavrin {

/// The entries of a catalog in their order, and of the selected ones among them.
///
/// The entries lie in chunks of some hundreds. So an entry is found by its index, by its place among the
/// selected ones, or by its identifier, and entries are inserted and removed, by touching one chunk and one
/// number for each other chunk: microseconds where there are a million.
class CatalogOrder
{
public:
    qint64 count() const { return g_firstIndex.back(); }
    qint64 countSelected() const { return g_firstSelected.back(); }

    const CatalogEntry &at(qint64 index) const;
    /// The first entry of the identifier; NotFound.
    qint64 indexOf(quint32 identifier) const;
    /// The first selected entry of the identifier; NotFound.
    qint64 indexOfSelected(quint32 identifier) const;
    /// Where the selected entry of that place stands among all of them.
    qint64 indexOfSelectedPlace(qint64 place) const;
    /// How many selected entries stand before the index.
    qint64 selectedBefore(qint64 index) const;

    void insert(qint64 index, const CatalogEntry &entry);
    CatalogEntry remove(qint64 index);
    void assign(std::vector<CatalogEntry> entries);

    /// Calls visitor(const CatalogEntry &) for each, in order.
    template <typename Visitor>
    void forEach(Visitor &&visitor) const
    {
        for (const std::vector<CatalogEntry> &chunk : g_chunks) {
            for (const CatalogEntry &entry : chunk)
                visitor(entry);
        }
    }

    /// The same from an index on, as long as visitor gives true.
    template <typename Visitor>
    void visitFrom(qint64 index, Visitor &&visitor) const
    {
        if (index >= count())
            return;
        const Place first = placeOf(index);
        size_t offset = first.offset;
        for (size_t chunk = first.chunk; chunk < g_chunks.size(); ++chunk, offset = 0) {
            for (; offset < g_chunks[chunk].size(); ++offset) {
                if (!visitor(g_chunks[chunk][offset]))
                    return;
            }
        }
    }

    /// Calls change(CatalogEntry &) for each, in order; it may change what is selected.
    template <typename Change>
    void changeEach(Change &&change)
    {
        for (std::vector<CatalogEntry> &chunk : g_chunks) {
            for (CatalogEntry &entry : chunk)
                change(entry);
        }
        for (size_t chunk = 0; chunk < g_chunks.size(); ++chunk)
            countSelectedOf(chunk);
        sumUp(0);
    }

    /// The same for one entry.
    template <typename Change>
    void changeAt(qint64 index, Change &&change)
    {
        const Place place = placeOf(index);
        change(g_chunks[place.chunk][place.offset]);
        countSelectedOf(place.chunk);
        sumUp(place.chunk);
    }

    /// Removes the entries of which isGone(const CatalogEntry &) is true.
    template <typename Test>
    void removeWhere(Test &&isGone)
    {
        std::vector<CatalogEntry> left;
        forEach([&](const CatalogEntry &entry) {
            if (!isGone(entry))
                left.push_back(entry);
        });
        assign(std::move(left));
    }

private:
    struct Place
    {
        size_t chunk;
        size_t offset;
    };

    static constexpr size_t fullChunk = 512;
    static constexpr size_t largestChunk = 1024;

    Place placeOf(qint64 index) const;
    qint64 search(quint32 identifier) const;
    void split(size_t chunk);
    void note(size_t chunk);
    void countSelectedOf(size_t chunk);
    void sumUp(size_t fromChunk);
    void renumber(size_t fromChunk);

    std::vector<std::vector<CatalogEntry>> g_chunks;
    std::vector<qint64> g_firstIndex{0};    ///< Of each chunk, and at the end how many there are.
    std::vector<qint64> g_firstSelected{0}; ///< The same among the selected.
    std::vector<quint32> g_selectedOf;      ///< How many of each chunk's entries are selected.
    std::vector<quint32> g_names;           ///< The lasting name of each chunk.
    std::vector<quint32> g_chunkNamed;      ///< By name: where the chunk stands now.
    std::vector<quint32> g_chunkOf;         ///< By identifier: the name of its chunk, or none.
    bool g_hasDuplicates = false;           ///< An identifier stands, or stood, at two places.
};

} // namespace tavrin
