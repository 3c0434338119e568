// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAnyStringView>

#include <compare>
#include <string>

namespace tavrin::text {

/// The order of texts in a datafile, which is the same for everybody, wherever they live: by code points,
/// canonically decomposed and, unless case-sensitive, case-folded first; a shorter text first.

/// Appends the key of the text, whose bytes compare as the texts do. A key has no zero bytes, so that a key
/// padded with zeros keeps its place.
void appendComparisonKey(std::string &key, QAnyStringView text, Qt::CaseSensitivity sensitivity);
std::string comparisonKey(QAnyStringView text, Qt::CaseSensitivity sensitivity);

/// For once; who compares a text often makes its key.
std::strong_ordering compare(QAnyStringView left, QAnyStringView right, Qt::CaseSensitivity sensitivity);

} // namespace tavrin::text
