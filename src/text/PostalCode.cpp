// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/PostalCode.h"

#include "text/TextBlocks.h"

#include <algorithm>
#include <array>

namespace tavrin::text {

namespace {

/// `pattern`: "A" for a letter, "0" for a digit, anything else for itself.
bool matches(QStringView text, QStringView pattern)
{
    return std::ranges::equal(text, pattern, [](QChar c, QChar kind) {
        if (kind == u'A')
            return c.isLetter() || c.isMark();
        return kind == u'0' ? c.isDigit() : c == kind;
    });
}

bool namesCountry(QStringView lastWord)
{
    // "States" ends "United States".
    constexpr std::array<QStringView, 4> countries{u"Canada", u"U.S.A.", u"USA", u"States"};
    return std::ranges::find(countries, lastWord) != countries.end();
}

} // namespace

QStringView postalCode(QStringView addressBlock)
{
    QStringView line = lastLineOfTextBlock(addressBlock);
    QStringView word = lastWordOfLine(line);
    if (namesCountry(word)) {
        line = nextToLastLineOfTextBlock(addressBlock);
        word = lastWordOfLine(line);
    }
    constexpr QStringView canadian(u"A0A 0A0");
    if (word.size() == 3 && line.size() >= canadian.size()) {
        const QStringView code = line.last(canadian.size());
        return matches(code, canadian) ? code : QStringView();
    }
    return matches(word, u"00000-0000") || matches(word, u"00000") ? word : QStringView();
}

} // namespace tavrin::text
