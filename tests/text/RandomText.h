// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>
#include <random>

namespace tavrin {

/// A short text of the characters that make matching and comparing hard: marks in and out of order, letters
/// that fold to several, ligatures, pairs of surrogates and halves of them.
inline QString randomText(std::mt19937 &random, int longest)
{
    static constexpr std::array<QStringView, 39> pieces{
        u"a",      u"A",      u"e",          u"E",          u"s",          u"S",      u"k",      u"f",
        u"i",      u"I",      u"b",          u" ",          u"z",          u"\u0301", u"\u0323", u"\u0345",
        u"\u00E9", u"\u00C9", u"\u00DF",     u"\u1E9E",     u"\u017F",     u"\u212A", u"\uFB01", u"\uFB06",
        u"\u0130", u"\u0131", u"\u03A3",     u"\u03C2",     u"\u0390",     u"\u1F80", u"\uAC00", u"\uAC01",
        u"\u200C", u"\uFFFD", u"\U0001F44D", u"\U0001F3FB", u"\U0002F800", u"\u0451", u"\xD83D"};
    QString text;
    for (int length = static_cast<int>(random() % static_cast<unsigned>(longest + 1)); length > 0; --length)
        text += random() % 2 ? pieces[random() % 13] : pieces[random() % pieces.size()];
    return text;
}

} // namespace tavrin
