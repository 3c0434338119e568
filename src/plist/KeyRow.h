// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/XmlCursor.h"

#include <QByteArray>
#include <QHash>

#include <algorithm>
#include <vector>

namespace tavrin::plist {

/// The keys of many dictionaries that are nearly all alike, numbered in the order in which they were met.
///
/// An entry is compared first with the one that is expected at its place, then with the next ones, should
/// some be left out: as a whole, which takes a third of the time of taking its tags apart.
class KeyRow
{
public:
    /// A dictionary begins.
    void begin()
    {
        ++g_dictionary;
        g_expected = 0;
        g_hasRepeated = false;
    }

    /// Moves the cursor to the value of the dictionary's next key. False behind the last one, or after a
    /// failure.
    bool next(XmlCursor &cursor)
    {
        constexpr size_t mostLeftOut = 4;
        const size_t end = std::min(g_keys.size(), g_expected + mostLeftOut);
        for (size_t number = g_expected; number < end; ++number) {
            if (cursor.nextValueLike(g_keys[number].form)) {
                meet(number);
                return true;
            }
        }
        if (!cursor.nextKey())
            return false;
        meet(lookUp(cursor.key()));
        if (!cursor.nextValue())
            return false;
        g_keys[g_number].form = cursor.entryForm();
        return true;
    }

    /// The number of the key that the cursor was moved to.
    size_t number() const { return g_number; }

    /// Whether a key of this dictionary came twice.
    bool hasRepeated() const { return g_hasRepeated; }

private:
    struct Key
    {
        EntryForm form; ///< As it was written when it was last met.
        quint64 seenIn = 0;
    };

    void meet(size_t number)
    {
        g_number = number;
        g_expected = number + 1;
        g_hasRepeated = g_hasRepeated || g_keys[number].seenIn == g_dictionary;
        g_keys[number].seenIn = g_dictionary;
    }

    size_t lookUp(QByteArrayView key)
    {
        const QByteArray text = key.toByteArray();
        const auto known = g_numbers.constFind(text);
        if (known != g_numbers.cend())
            return *known;
        g_numbers.insert(text, g_keys.size());
        g_keys.push_back({});
        return g_keys.size() - 1;
    }

    std::vector<Key> g_keys;
    QHash<QByteArray, size_t> g_numbers;
    quint64 g_dictionary = 0;
    size_t g_number = 0;
    size_t g_expected = 0;
    bool g_hasRepeated = false;
};

} // namespace tavrin::plist
