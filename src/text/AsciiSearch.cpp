// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/AsciiSearch.h"

#include <cstring>

namespace tavrin::text {

namespace {

constexpr quint64 lanes = 0x0001000100010001;
constexpr qsizetype laneCount = 4;

quint64 fourUnits(const char16_t *units)
{
    quint64 word = 0;
    std::memcpy(&word, units, sizeof word);
    return word;
}

/// Not 0 when a lane of the word is 0; may err on a word that has one, never on one that has none.
quint64 zeroLanes(quint64 word)
{
    return (word - lanes) & ~word & (lanes << 15);
}

quint64 caseBit(QChar unit, bool caseInsensitive)
{
    return caseInsensitive && unit >= u'a' && unit <= u'z' ? lanes * 0x20 : 0;
}

} // namespace

AsciiSearch::AsciiSearch(const QString &needle, bool caseInsensitive)
    : g_needle(needle)
    , g_caseInsensitive(caseInsensitive)
    , g_first(lanes * needle.front().unicode())
    , g_last(lanes * needle.back().unicode())
    , g_firstCase(caseBit(needle.front(), caseInsensitive))
    , g_lastCase(caseBit(needle.back(), caseInsensitive))
{}

qsizetype AsciiSearch::find(QStringView text, qsizetype from) const
{
    const qsizetype starts = text.size() - g_needle.size() + 1;
    const char16_t *const first = text.utf16();
    const char16_t *const last = first + g_needle.size() - 1;
    qsizetype i = from;
    for (; i + laneCount <= starts; i += laneCount) {
        // A lane is 0 where both the first and the last unit of the needle stand right.
        const quint64 differences =
            ((fourUnits(first + i) | g_firstCase) ^ g_first) | ((fourUnits(last + i) | g_lastCase) ^ g_last);
        if (zeroLanes(differences) == 0)
            continue;
        for (qsizetype lane = 0; lane < laneCount; ++lane) {
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

bool AsciiSearch::matchesAt(QStringView text, qsizetype start) const
{
    const qsizetype size = g_needle.size();
    if (start + size > text.size())
        return false;
    const char16_t *const units = text.utf16() + start;
    const char16_t *const needle = QStringView(g_needle).utf16();
    for (qsizetype i = 0; i < size; ++i) {
        if (lowered(units[i]) != needle[i])
            return false;
    }
    return true;
}

} // namespace tavrin::text
