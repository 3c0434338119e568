// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/SearchKey.h"

#include "model/RecordView.h"
#include "text/WordBounds.h"

#include <algorithm>

namespace tavrin {

using text::Match;

namespace {

text::Sameness samenessOf(KeyOptions options)
{
    return {.caseInsensitive = !options.caseSensitive, .literal = options.literal};
}

} // namespace

SearchKey::SearchKey(const QString &text, KeyOptions options)
    : g_matcher(text, samenessOf(options))
    , g_sieve(text, samenessOf(options))
    // Folding shortens nothing but pairs of surrogates.
    , g_longestMatch(2 * text::folded(text, samenessOf(options)).size())
    , g_wholeWord(options.wholeWord)
{}

/// As the matcher does, but looks at no more of the text than it must, so that going from hit to hit takes
/// one pass over the text in all.
Match SearchKey::matchIn(QStringView text, qsizetype from) const
{
    constexpr qsizetype firstWindow = 512;
    // Whether a match ends there depends on the code point behind it.
    constexpr qsizetype behind = 2;
    for (qsizetype window = firstWindow + g_longestMatch; from < text.size(); window *= 2) {
        const QStringView part = text.sliced(from, std::min(window, text.size() - from));
        const bool isRest = from + part.size() == text.size();
        const Match match = g_matcher.firstIn(part);
        if (match && (isRest || match.start + match.length + behind <= part.size()))
            return {from + match.start, match.length};
        if (isRest)
            break;
        from += match ? match.start : part.size() - g_longestMatch - behind;
        if (text[from].isLowSurrogate() && text[from - 1].isHighSurrogate())
            --from;
    }
    return {};
}

bool SearchKey::counts(QStringView text, const Match &match) const
{
    return !g_wholeWord || text::isWholeWord(text, match.start, match.length);
}

Match SearchKey::firstIn(QStringView text, qsizetype from) const
{
    // Half a pair is no character that a match could begin with.
    if (from > 0 && from < text.size() && text[from].isLowSurrogate() && text[from - 1].isHighSurrogate())
        ++from;
    Match match;
    while ((match = matchIn(text, from)) && !counts(text, match))
        from = match.start + match.length;
    return match;
}

Match SearchKey::lastIn(QStringView text, qsizetype before) const
{
    QStringView part = text.first(std::clamp<qsizetype>(before, 0, text.size()));
    for (;;) {
        const Match match = g_matcher.lastIn(part);
        if (!match)
            return match;
        // What follows the part may be a mark, with which the match would not be one.
        const bool isMatch = matchIn(text, match.start) == match;
        if (isMatch && counts(text, match))
            return match;
        part = part.first(isMatch ? match.start : match.start + match.length - 1);
    }
}

std::vector<Match> SearchKey::allIn(QStringView text) const
{
    std::vector<Match> matches;
    qsizetype from = 0;
    while (const Match match = firstIn(text, from)) {
        matches.push_back(match);
        from = match.start + match.length;
    }
    return matches;
}

bool SearchKey::mayBeIn(const TextView &text) const
{
    // Whoever decodes the bytes would take a first U+FEFF for a byte-order mark, and drop it.
    constexpr QByteArrayView mark("\xEF\xBB\xBF");
    switch (text.form()) {
    case TextView::Form::Absent:
        return false;
    case TextView::Form::Utf8:
        return text.bytes().startsWith(mark) || g_matcher.isIn(QUtf8StringView(text.bytes()));
    case TextView::Form::Encoded:
    case TextView::Form::Decoded:
        break;
    }
    return true;
}

bool SearchKey::mayBeIn(const RecordView &record) const
{
    return record.mayHold(g_sieve);
}

} // namespace tavrin
