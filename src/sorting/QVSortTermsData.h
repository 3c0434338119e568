// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/InternalInconsistency.h"
#include "plist/Value.h"

#include <type_traits>
#include <utility>
#include <vector>

namespace tavrin {

/// -1, 0 or 1. Terms of different kinds, and of kinds that have no order, compare as the same.
int compareSortTerms(const plist::Value &left, const plist::Value &right, Qt::CaseSensitivity sensitivity);

/// The places of the terms in their order; equal terms keep theirs.
std::vector<quint32> orderOfSortTerms(const plist::Array &terms, Qt::CaseSensitivity sensitivity);

/// A thing and the term that it is sorted by.
template <typename Object>
struct QVSortTermsBitData
{
    plist::Value term;
    Object object;

    int compare(const QVSortTermsBitData &other) const
    {
        return compareSortTerms(term, other.term, Qt::CaseSensitive);
    }
    int caseInsensitiveCompare(const QVSortTermsBitData &other) const
    {
        return compareSortTerms(term, other.term, Qt::CaseInsensitive);
    }
};

/// Sorts things by terms that are made once: texts, numbers or dates.
template <typename Object>
class QVSortTermsData
{
public:
    using Bit = QVSortTermsBitData<Object>;

    /// The objects in the order of what `termOf` says of each.
    template <typename Objects, typename TermOf>
    static std::vector<Object> sortObjectsFromArray(const Objects &objects, const TermOf &termOf)
    {
        QVSortTermsData terms;
        for (const Object &object : objects)
            terms.addTerm(termOf(object), object);
        terms.sort();
        return terms.objects();
    }

    /// Throws InternalInconsistency when either is null.
    void addTerm(const plist::Value &term, const Object &object)
    {
        if (term.isNull())
            throw InternalInconsistency("-addTerm:forObject: -- The term is missing.");
        if constexpr (std::is_pointer_v<Object>) {
            if (!object)
                throw InternalInconsistency("-addTerm:forObject: -- The object is missing.");
        }
        g_collection.push_back({term, object});
    }

    /// Throws InternalInconsistency, and adds nothing, when they are not as many.
    void addTermsFromArray(const plist::Array &terms, const std::vector<Object> &objects)
    {
        if (static_cast<size_t>(terms.size()) != objects.size())
            throw InternalInconsistency("-addTermsFromArray:forObjectsFromArray: -- The number of terms and "
                                        "objects does not match.");
        for (size_t i = 0; i < objects.size(); ++i)
            addTerm(terms[static_cast<qsizetype>(i)], objects[i]);
    }

    void sort() { sortCaseSensitive(false); }

    /// Those with equal terms keep their order.
    void sortCaseSensitive(bool caseSensitive)
    {
        std::vector<Bit> sorted;
        sorted.reserve(g_collection.size());
        for (const quint32 place :
             orderOfSortTerms(terms(), caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive))
            sorted.push_back(std::move(g_collection[place]));
        g_collection = std::move(sorted);
    }

    const std::vector<Bit> &collection() const { return g_collection; }

    plist::Array terms() const
    {
        plist::Array terms;
        for (const Bit &bit : g_collection)
            terms.append(bit.term);
        return terms;
    }

    std::vector<Object> objects() const
    {
        std::vector<Object> objects;
        for (const Bit &bit : g_collection)
            objects.push_back(bit.object);
        return objects;
    }

private:
    std::vector<Bit> g_collection;
};

} // namespace tavrin
