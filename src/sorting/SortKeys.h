// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAnyStringView>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace tavrin {

class WorkSteps;

/// A key in the order of which things are sorted, and the place at which its thing was added.
struct SortWord
{
    quint64 word;
    quint32 place;
};

/// Sorts things by texts, each of which is folded once, when it is added.
///
/// Of a long text only the start is kept; when starts tie, the texts themselves are asked for again.
class TextSortKeys
{
public:
    /// Gives the text of a place again, the same as it was added. It may stand in the buffer.
    using TextOf = std::function<QAnyStringView(quint32 place, QString &buffer)>;

    TextSortKeys(Qt::CaseSensitivity sensitivity, TextOf textOf);

    void reserve(size_t count);
    void add(QAnyStringView text);

    /// The places in the order of their texts; equal texts keep their order. Each place is a step; when the
    /// steps are stopped, the order is not to be used.
    std::vector<quint32> sorted(WorkSteps &steps) const;
    std::vector<quint32> sorted() const;

private:
    static constexpr size_t longestKey = 64;

    void addStart(QAnyStringView text);
    quint64 wordAt(quint32 place, size_t depth) const;
    void sortTies(SortWord *begin, SortWord *end, size_t depth, WorkSteps &steps) const;
    void sortByWholeTexts(SortWord *begin, SortWord *end, WorkSteps &steps) const;

    Qt::CaseSensitivity g_sensitivity;
    TextOf g_textOf;
    std::string g_keys;         ///< One behind the other.
    std::vector<size_t> g_ends; ///< Where in them the key of each place ends; one more, 0, at the start.
    std::vector<bool> g_isCut;  ///< Whether the key lacks its end.
};

/// Sorts things by numbers.
class NumberSortKeys
{
public:
    void reserve(size_t count) { g_words.reserve(count); }
    void add(double number);

    /// The places in the order of their numbers; equal numbers keep their order.
    std::vector<quint32> sorted() const;

private:
    std::vector<SortWord> g_words;
};

} // namespace tavrin
