// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SortKeys.h"

#include "sorting/WorkSteps.h"
#include "text/Comparison.h"
#include "text/Folding.h"
#include "text/Utf16Text.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace tavrin {

namespace {

/// Stable: one pass for each 11 bits in which the words differ at all.
void radixSort(std::vector<SortWord> &words)
{
    constexpr unsigned bits = 11;
    constexpr size_t bucketCount = size_t(1) << bits;
    quint64 inSome = 0;
    quint64 inAll = ~quint64(0);
    for (const SortWord &word : words) {
        inSome |= word.word;
        inAll &= word.word;
    }
    std::vector<SortWord> other(words.size());
    for (unsigned shift = 0; shift < 64; shift += bits) {
        const auto bucketOf = [shift](quint64 word) { return (word >> shift) & (bucketCount - 1); };
        if (bucketOf(inSome ^ inAll) == 0)
            continue;
        std::array<quint32, bucketCount + 1> starts{};
        for (const SortWord &word : words)
            ++starts[bucketOf(word.word) + 1];
        for (size_t bucket = 0; bucket < bucketCount; ++bucket)
            starts[bucket + 1] += starts[bucket];
        for (const SortWord &word : words)
            other[starts[bucketOf(word.word)]++] = word;
        words.swap(other);
    }
}

/// Stable, too: for runs that are mostly of two or three.
void sortRun(SortWord *begin, SortWord *end)
{
    constexpr std::ptrdiff_t few = 24;
    if (end - begin > few) {
        std::stable_sort(begin, end, [](const SortWord &a, const SortWord &b) { return a.word < b.word; });
        return;
    }
    for (SortWord *next = begin + 1; next < end; ++next) {
        const SortWord moving = *next;
        SortWord *hole = next;
        for (; hole > begin && moving.word < hole[-1].word; --hole)
            *hole = hole[-1];
        *hole = moving;
    }
}

void sortWords(std::vector<SortWord> &words)
{
    constexpr size_t many = 1024; // from here on the passes of a radix sort pay
    if (words.size() >= many)
        radixSort(words);
    else
        sortRun(words.data(), words.data() + words.size());
}

std::vector<quint32> placesOf(const std::vector<SortWord> &words)
{
    std::vector<quint32> places(words.size());
    std::ranges::transform(words, places.begin(), &SortWord::place);
    return places;
}

/// The text up to a place at or behind `units` where it can be cut so that the key of the part begins the
/// key of the whole.
QStringView startOf(QStringView text, qsizetype units)
{
    while (units < text.size()
           && (text[units].isSurrogate() || text[units].isMark() || text[units].combiningClass() != 0))
        ++units;
    return text.first(std::min(units, text.size()));
}

} // namespace

TextSortKeys::TextSortKeys(Qt::CaseSensitivity sensitivity, TextOf textOf)
    : g_sensitivity(sensitivity)
    , g_textOf(std::move(textOf))
    , g_ends{0}
{}

void TextSortKeys::reserve(size_t count)
{
    g_keys.reserve(count * 16);
    g_ends.reserve(count + 1);
    g_isCut.reserve(count);
}

void TextSortKeys::add(QAnyStringView text)
{
    const size_t start = g_keys.size();
    const bool isLong = static_cast<size_t>(text.size()) > longestKey;
    if (isLong)
        addStart(text);
    else
        text::appendComparisonKey(g_keys, text, g_sensitivity);
    // All that are cut are cut at the same length: only then do whole keys and cut ones compare.
    const bool isCut = isLong || g_keys.size() - start > longestKey;
    if (g_keys.size() - start > longestKey)
        g_keys.resize(start + longestKey);
    g_ends.push_back(g_keys.size());
    g_isCut.push_back(isCut);
}

/// Adds at least as much of the key of a long text as is kept: every unit gives a byte or more.
void TextSortKeys::addStart(QAnyStringView text)
{
    text.visit([this](auto view) {
        const auto start = view.first(longestKey + 1);
        if (text::isAscii(start))
            text::appendComparisonKey(g_keys, start.first(longestKey), g_sensitivity);
        else
            text::appendComparisonKey(
                g_keys, startOf(text::Utf16Text(view).view(), longestKey), g_sensitivity);
    });
}

/// Eight bytes of the key from the depth on, the first byte the most significant; zeros behind its end.
quint64 TextSortKeys::wordAt(quint32 place, size_t depth) const
{
    const size_t start = g_ends[place] + depth;
    const size_t end = g_ends[place + 1];
    if (start >= end)
        return 0;
    const size_t left = end - start;
    if (start + sizeof(quint64) <= g_keys.size()) {
        const auto word = qFromBigEndian<quint64>(g_keys.data() + start);
        // The bytes behind the end are those of the next key.
        return left >= sizeof word ? word : word & ~(~quint64(0) >> 8 * left);
    }
    quint64 word = 0;
    for (size_t i = 0; i < sizeof word; ++i)
        word = word << 8 | (i < left ? static_cast<uchar>(g_keys[start + i]) : 0U);
    return word;
}

std::vector<quint32> TextSortKeys::sorted(WorkSteps &steps) const
{
    std::vector<SortWord> words(g_isCut.size());
    for (size_t i = 0; i < words.size(); ++i)
        words[i] = {wordAt(static_cast<quint32>(i), 0), static_cast<quint32>(i)};
    sortWords(words);
    sortTies(words.data(), words.data() + words.size(), 0, steps);
    return placesOf(words);
}

std::vector<quint32> TextSortKeys::sorted() const
{
    Progress progress;
    WorkSteps steps(progress, g_isCut.size());
    return sorted(steps);
}

/// Sorts those with equal words by what follows.
void TextSortKeys::sortTies(SortWord *begin, SortWord *end, size_t depth, WorkSteps &steps) const
{
    for (SortWord *first = begin; first < end && !steps.isStopped();) {
        SortWord *last = first + 1;
        while (last < end && last->word == first->word)
            ++last;
        const bool isAtEnd = (first->word & 0xFF) == 0 || depth + sizeof first->word >= longestKey;
        if (last - first == 1) {
            steps.goOn();
        } else if (isAtEnd) {
            sortByWholeTexts(first, last, steps);
        } else {
            for (SortWord *tied = first; tied < last; ++tied)
                tied->word = wordAt(tied->place, depth + sizeof tied->word);
            sortRun(first, last);
            sortTies(first, last, depth + sizeof first->word, steps);
        }
        first = last;
    }
}

/// Those whose kept keys are equal, if there is more to tell them apart.
void TextSortKeys::sortByWholeTexts(SortWord *begin, SortWord *end, WorkSteps &steps) const
{
    const auto count = static_cast<size_t>(end - begin);
    if (std::none_of(begin, end, [this](const SortWord &tied) { return g_isCut[tied.place]; })) {
        steps.goOn(count);
        return;
    }
    std::vector<std::pair<std::string, quint32>> wholes;
    wholes.reserve(count);
    QString buffer;
    for (const SortWord *tied = begin; tied < end; ++tied) {
        if (!steps.goOn())
            return;
        wholes.emplace_back(text::comparisonKey(g_textOf(tied->place, buffer), g_sensitivity), tied->place);
    }
    std::ranges::stable_sort(wholes, {}, &std::pair<std::string, quint32>::first);
    for (const auto &[key, place] : wholes)
        *begin++ = {0, place};
}

void NumberSortKeys::add(double number)
{
    // The bits of positive numbers order as the numbers do, those of negative ones the other way round.
    const auto bits = std::bit_cast<quint64>(number + 0.0);
    constexpr quint64 sign = quint64(1) << 63;
    g_words.push_back({bits & sign ? ~bits : bits | sign, static_cast<quint32>(g_words.size())});
}

std::vector<quint32> NumberSortKeys::sorted() const
{
    std::vector<SortWord> words = g_words;
    sortWords(words);
    return placesOf(words);
}

} // namespace tavrin
