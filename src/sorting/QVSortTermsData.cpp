// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/QVSortTermsData.h"

#include "sorting/SortKeys.h"
#include "text/Comparison.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace tavrin {

namespace {

/// What a term counts as: dates and yes or no have an order, too.
std::optional<double> numberOf(const plist::Value &term)
{
    if (const Date *date = term.date())
        return date->secondsSinceReference;
    if (term.isInteger() || term.real() || term.boolean())
        return term.toDouble();
    return std::nullopt;
}

bool areOneKind(const plist::Array &terms)
{
    return std::ranges::all_of(terms, [&terms](const plist::Value &term) {
        return term.isDate() == terms.front().isDate() && (term.isString() || numberOf(term))
               && term.isString() == terms.front().isString();
    });
}

} // namespace

int compareSortTerms(const plist::Value &left, const plist::Value &right, Qt::CaseSensitivity sensitivity)
{
    const auto sign = [](auto order) { return order < 0 ? -1 : order > 0 ? 1 : 0; };
    if (left.isString() && right.isString())
        return sign(text::compare(*left.string(), *right.string(), sensitivity));
    const std::optional<double> a = numberOf(left);
    const std::optional<double> b = numberOf(right);
    return a && b && left.isDate() == right.isDate() ? sign(*a <=> *b) : 0;
}

std::vector<quint32> orderOfSortTerms(const plist::Array &terms, Qt::CaseSensitivity sensitivity)
{
    if (terms.isEmpty())
        return {};
    if (!areOneKind(terms)) {
        std::vector<quint32> places(static_cast<size_t>(terms.size()));
        std::iota(places.begin(), places.end(), 0U);
        std::ranges::stable_sort(places, [&](quint32 a, quint32 b) {
            return compareSortTerms(terms[a], terms[b], sensitivity) < 0;
        });
        return places;
    }
    if (terms.front().isString()) {
        TextSortKeys keys(sensitivity, [&terms](quint32 place, QString &) {
            return QAnyStringView(*terms[place].string());
        });
        for (const plist::Value &term : terms)
            keys.add(*term.string());
        return keys.sorted();
    }
    NumberSortKeys keys;
    for (const plist::Value &term : terms)
        keys.add(*numberOf(term));
    return keys.sorted();
}

} // namespace tavrin
