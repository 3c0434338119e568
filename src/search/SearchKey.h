// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/TextView.h"
#include "text/TextMatcher.h"
#include "text/TextSieve.h"

#include <vector>

namespace tavrin {

class RecordView;

/// Which occurrences of a key count.
struct KeyOptions
{
    bool caseSensitive = false;
    bool wholeWord = false;
    bool literal = false; ///< As text::Sameness has it.
};

/// A text to be searched for in records, prepared once for all of them.
///
/// It is looked for as TextMatcher does, so the empty key is nowhere. A whole word has no letter, mark or
/// number on either side; the search goes on behind what is none.
class SearchKey
{
public:
    SearchKey(const QString &text, KeyOptions options);

    /// The first occurrence that starts at `from` or behind it.
    text::Match firstIn(QStringView text, qsizetype from = 0) const;
    /// The last one that ends at `before` or in front of it.
    text::Match lastIn(QStringView text, qsizetype before) const;
    /// All of them, none overlapping.
    std::vector<text::Match> allIn(QStringView text) const;
    /// Whether the text is nothing but the key.
    bool equals(QStringView text) const { return g_matcher.equals(text); }

    /// False only when the key is not there; does not decode the text.
    bool mayBeIn(const TextView &text) const;
    /// The same of all texts of a record; does not open it.
    bool mayBeIn(const RecordView &record) const;

private:
    text::Match matchIn(QStringView text, qsizetype from) const;
    bool counts(QStringView text, const text::Match &match) const;

    text::TextMatcher g_matcher;
    text::TextSieve g_sieve;
    qsizetype g_longestMatch; ///< In 16-bit units.
    bool g_wholeWord;
};

} // namespace tavrin
