// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "search/SearchKey.h"

namespace tavrin {

using text::Match;

/// The rules of searching as they are stated, without any short cut: what the fast ones have to agree with.
class PlainSearch
{
public:
    PlainSearch(const QString &key, KeyOptions options)
        : g_sameness{.caseInsensitive = !options.caseSensitive, .literal = options.literal}
        , g_form(text::folded(key, g_sameness))
        , g_wholeWord(options.wholeWord)
    {}

    Match first(const QString &text, qsizetype from = 0) const
    {
        for (qsizetype i = from; i < text.size(); ++i) {
            const Match match = matchAt(text, i);
            if (match && isWord(text, match))
                return match;
            if (match)
                i = match.start + match.length - 1;
        }
        return {};
    }

    Match last(const QString &text, qsizetype before) const
    {
        for (qsizetype i = std::min(before, text.size()) - 1; i >= 0; --i) {
            const Match match = matchAt(text, i);
            if (!match || match.start + match.length > before)
                continue;
            if (isWord(text, match))
                return match;
            before = match.start;
        }
        return {};
    }

    std::vector<Match> all(const QString &text) const
    {
        std::vector<Match> matches;
        for (Match match = first(text); match; match = first(text, match.start + match.length))
            matches.push_back(match);
        return matches;
    }

private:
    Match matchAt(QStringView text, qsizetype start) const
    {
        if (start > 0 && text[start].isLowSurrogate() && text[start - 1].isHighSurrogate())
            return {};
        QString found;
        for (qsizetype i = start; i < text.size() && g_form.size() > found.size();) {
            const qsizetype end = text::characterEnd(text, i, g_sameness.literal);
            found += text::folded(text.sliced(i, end - i), g_sameness);
            i = end;
            if (found == g_form)
                return {start, end - start};
        }
        return {};
    }

    bool isWord(const QString &text, const Match &match) const
    {
        const auto isPart = [&text](qsizetype i) {
            const QChar::Category kind =
                i >= 0 && i < text.size() ? text[i].category() : QChar::Other_Control;
            return kind <= QChar::Number_Other
                   || (kind >= QChar::Letter_Uppercase && kind <= QChar::Letter_Other);
        };
        return !g_wholeWord || (!isPart(match.start - 1) && !isPart(match.start + match.length));
    }

    text::Sameness g_sameness;
    QString g_form;
    bool g_wholeWord;
};

} // namespace tavrin
