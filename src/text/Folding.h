// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAnyStringView>
#include <QString>

namespace tavrin::text {

/// Which texts count as the same.
///
/// Unless literal, canonically equivalent texts do ("é" in one code point or in two), and a letter is one
/// with the marks that follow it. Case follows full Unicode case folding, in no locale: "ß" is "SS".
struct Sameness
{
    bool caseInsensitive = true;
    bool literal = false;

    friend bool operator==(const Sameness &, const Sameness &) = default;
};

inline char16_t codeUnit(QChar c)
{
    return c.unicode();
}
inline char16_t codeUnit(char c)
{
    return static_cast<uchar>(c);
}

bool isAscii(QStringView text);
bool isAscii(QUtf8StringView text);
bool isAscii(QLatin1StringView text);

/// A combining mark, or what otherwise changes the character before it: never a character of its own.
bool joinsPrevious(char32_t codePoint);

/// The code point at the index; a surrogate on its own is one, too.
char32_t codePointAt(QStringView text, qsizetype index);
inline qsizetype unitsOf(char32_t codePoint)
{
    return codePoint > 0xFFFF ? 2 : 1;
}

/// The end of the character that starts at the index: one code point with its marks; without them if literal.
qsizetype characterEnd(QStringView text, qsizetype start, bool literal);

/// The text in the form in which texts that count as the same are equal.
QString folded(QStringView text, Sameness sameness);

/// The first unit of the folded, case-insensitive form of a character that begins with this unit;
/// `anyUnit` when that depends on what follows.
char16_t firstFoldedUnit(char16_t unit);
inline constexpr char16_t anyUnit = 0;

} // namespace tavrin::text
