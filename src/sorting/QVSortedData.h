// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/NotFound.h"
#include "model/ArrayOperations.h"
#include "sorting/QVSortCriteriaData.h"

#include <algorithm>
#include <optional>

namespace tavrin {

/// Things in order, and the criteria of that order. The things have an order of their own, operator<.
template <typename Object, typename Criteria = QVSortCriteriaData>
class QVSortedData
{
public:
    /// Keeps the order of the array.
    explicit QVSortedData(const QList<Object> &array = {}, const Criteria &criteria = {})
        : g_sortedArray(array)
        , g_criteria(criteria)
    {}

    static QVSortedData sortedDataWithArray(const QList<Object> &array, const Criteria &criteria)
    {
        QVSortedData sorted(array, criteria);
        sorted.sort();
        return sorted;
    }

    const QList<Object> &sortedArray() const { return g_sortedArray; }
    void setSortedArray(const QList<Object> &array) { g_sortedArray = array; }
    const Criteria &criteria() const { return g_criteria; }
    void setCriteria(const Criteria &criteria) { g_criteria = criteria; }

    /// Equal things keep their order; descending, the whole ascending order is reversed.
    bool sort()
    {
        std::ranges::stable_sort(g_sortedArray, [](const Object &a, const Object &b) { return a < b; });
        reverseIfNeeded();
        return true;
    }

    bool reverseIfNeeded()
    {
        if (g_criteria.descending())
            g_sortedArray = reverseArray(g_sortedArray);
        return g_criteria.descending();
    }

    qint64 count() const { return g_sortedArray.size(); }
    bool isValidIndex(qint64 index) const { return tavrin::isValidIndex(g_sortedArray, index); }

    /// None when the index is not valid.
    std::optional<Object> objectAtIndex(qint64 index) const
    {
        return isValidIndex(index) ? std::optional(g_sortedArray[index]) : std::nullopt;
    }

    qint64 indexOfObject(const std::optional<Object> &object) const
    {
        const qsizetype index = object ? g_sortedArray.indexOf(*object) : -1;
        return index < 0 ? NotFound : index;
    }

private:
    QList<Object> g_sortedArray;
    Criteria g_criteria;
};

} // namespace tavrin
