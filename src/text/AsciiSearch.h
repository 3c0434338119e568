// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/Folding.h"

#include <cstring>

namespace tavrin::text {

/// A search for ASCII text in UTF-16 or in UTF-8, several units at a time. Knows nothing of marks and of
/// other scripts.
class AsciiSearch
{
public:
    /// The needle: ASCII, not empty, in small letters if `caseInsensitive`.
    AsciiSearch(const QString &needle, bool caseInsensitive)
        : g_needle(needle)
        , g_caseInsensitive(caseInsensitive)
    {}

    /// The first place of the needle at or behind `from`, or -1.
    template <typename View>
    qsizetype find(View text, qsizetype from) const
    {
        using Unit = std::decay_t<decltype(*text.data())>;
        constexpr qsizetype lanes = sizeof(quint64) / sizeof(Unit);
        const qsizetype starts = text.size() - g_needle.size() + 1;
        if (from >= starts)
            return -1;
        const auto *const first = text.data();
        const auto *const last = first + g_needle.size() - 1;
        const Pattern front = pattern<Unit>(g_needle.front());
        const Pattern back = pattern<Unit>(g_needle.back());
        qsizetype i = from;
        for (; i + lanes <= starts; i += lanes) {
            // A lane is 0 where both the first and the last unit of the needle stand right.
            const quint64 differences = front.differences(first + i) | back.differences(last + i);
            if (!hasZeroLane<Unit>(differences))
                continue;
            for (qsizetype lane = 0; lane < lanes; ++lane) {
                if (matchesAt(text, i + lane))
                    return i + lane;
            }
        }
        for (; i < starts; ++i) {
            if (matchesAt(text, i))
                return i;
        }
        return -1;
    }

    template <typename View>
    bool matchesAt(View text, qsizetype start) const
    {
        const qsizetype size = g_needle.size();
        if (start + size > text.size())
            return false;
        const auto *const units = text.data() + start;
        const char16_t *const needle = QStringView(g_needle).utf16();
        for (qsizetype i = 0; i < size; ++i) {
            if (lowered(codeUnit(units[i])) != needle[i])
                return false;
        }
        return true;
    }

private:
    /// A unit of the needle in every lane, and the bit in which case shows.
    struct Pattern
    {
        quint64 units;
        quint64 caseBits;

        quint64 differences(const void *text) const
        {
            quint64 word = 0;
            std::memcpy(&word, text, sizeof word);
            return (word | caseBits) ^ units;
        }
    };

    template <typename Unit>
    static constexpr quint64 everyLane = sizeof(Unit) == 1 ? 0x0101010101010101 : 0x0001000100010001;

    template <typename Unit>
    Pattern pattern(QChar unit) const
    {
        const bool hasCase = g_caseInsensitive && unit >= u'a' && unit <= u'z';
        return {everyLane<Unit> * unit.unicode(), hasCase ? everyLane<Unit> * 0x20 : 0};
    }

    template <typename Unit>
    static bool hasZeroLane(quint64 word)
    {
        return ((word - everyLane<Unit>)&~word & (everyLane<Unit> << (8 * sizeof(Unit) - 1))) != 0;
    }

    char16_t lowered(char16_t unit) const
    {
        return g_caseInsensitive && unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
    }

    QString g_needle;
    bool g_caseInsensitive;
};

} // namespace tavrin::text
