// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/LinkScanner.h"

#include <algorithm>
#include <array>

namespace tavrin::text {

namespace {

bool isOfAddress(QChar character)
{
    constexpr QStringView others = u"_-.!~*'();/?:@&=+$";
    const char16_t unit = character.unicode();
    const char16_t letter = unit | 0x20;
    return (letter >= u'a' && letter <= u'z') || (unit >= u'0' && unit <= u'9') || others.contains(character);
}

/// Up to `from` it is part of the address whatever stands there.
FoundRange addressUpTo(QStringView string, qsizetype start, qsizetype from, qsizetype end)
{
    qsizetype stop = from;
    while (stop < end && isOfAddress(string[stop]))
        ++stop;
    constexpr QStringView endsOfSentences = u".!?,";
    if (stop > start && endsOfSentences.contains(string[stop - 1]))
        --stop;
    return {start, stop - start};
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool fits(QStringView part, QStringView pattern)
{
    return std::ranges::equal(part, pattern, [](QChar character, QChar expected) {
        return expected == u'#' ? isDigit(character) : character == expected;
    });
}

/// The length of the longest template that fits at a place, or 0.
qsizetype phoneNumberLength(QStringView string, qsizetype start, qsizetype end, const QStringList &templates)
{
    qsizetype longest = 0;
    for (const QString &pattern : templates) {
        const qsizetype stop = start + pattern.size();
        if (stop > end || pattern.size() <= longest || !fits(string.sliced(start, pattern.size()), pattern))
            continue;
        if (stop < string.size() && isDigit(string[stop]) && isDigit(string[stop - 1]))
            continue;
        longest = pattern.size();
    }
    return longest;
}

} // namespace

FoundRange emailRangeInString(QStringView string, const FoundRange &range)
{
    const qsizetype at = string.first(range.end()).indexOf(u'@', range.location);
    if (at < 0)
        return {};
    qsizetype start = at;
    while (start > range.location && isOfAddress(string[start - 1]))
        --start;
    return addressUpTo(string, start, at + 1, range.end());
}

FoundRange webLinkRangeInString(QStringView string, const FoundRange &range)
{
    constexpr std::array beginnings{QStringView(u"http://"), QStringView(u"https://"), QStringView(u"www.")};
    const QStringView searched = string.first(range.end());
    FoundRange first;
    for (const QStringView beginning : beginnings) {
        qsizetype start = searched.indexOf(beginning, range.location);
        for (; start >= 0; start = searched.indexOf(beginning, start + 1)) {
            const qsizetype rest = start + beginning.size();
            const FoundRange found = addressUpTo(string, start, rest, range.end());
            if (found.end() <= rest)
                continue;
            if (first.isEmpty() || start < first.location)
                first = found;
            break;
        }
    }
    return first;
}

FoundRange phoneNumberInString(QStringView string, const FoundRange &testRange, const QStringList &templates)
{
    for (qsizetype start = testRange.location; start < testRange.end(); ++start) {
        if (start > 0 && isDigit(string[start - 1]) && isDigit(string[start]))
            continue;
        if (const qsizetype length = phoneNumberLength(string, start, testRange.end(), templates))
            return {start, length};
    }
    return {};
}

bool isPlausibleEmailAddress(QStringView address)
{
    const qsizetype at = address.indexOf(u'@');
    if (at < 0 || address.size() - at - 1 < 2)
        return false;
    // From the second character behind the "@" to the last but one.
    const qsizetype stop = address.indexOf(u'.', at + 2);
    return stop >= 0 && stop < address.size() - 1;
}

} // namespace tavrin::text
