// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>

#include <vector>

namespace tavrin {

/// The keys of many dictionaries that are nearly all alike, numbered in the order in which they were met.
///
/// Each key is compared first with the one that is expected at its place, which it nearly always is.
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

    /// The number of the dictionary's next key.
    size_t number(QByteArrayView key)
    {
        size_t found = g_expected;
        if (found >= g_keys.size() || g_keys[found].text != key)
            found = lookUp(key);
        g_expected = found + 1;
        g_hasRepeated = g_hasRepeated || g_keys[found].seenIn == g_dictionary;
        g_keys[found].seenIn = g_dictionary;
        return found;
    }

    /// Whether a key of this dictionary came twice.
    bool hasRepeated() const { return g_hasRepeated; }

private:
    struct Key
    {
        QByteArray text;
        quint64 seenIn = 0;
    };

    size_t lookUp(QByteArrayView key)
    {
        const QByteArray text = key.toByteArray();
        const auto known = g_numbers.constFind(text);
        if (known != g_numbers.cend())
            return *known;
        g_numbers.insert(text, g_keys.size());
        g_keys.push_back({text});
        return g_keys.size() - 1;
    }

    std::vector<Key> g_keys;
    QHash<QByteArray, size_t> g_numbers;
    quint64 g_dictionary = 0;
    size_t g_expected = 0;
    bool g_hasRepeated = false;
};

} // namespace tavrin
