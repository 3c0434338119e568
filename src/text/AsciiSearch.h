// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAnyStringView>
#include <QByteArray>

namespace tavrin::text {

/// What is searched for, and where in it the two characters stand that texts have least often: where these
/// are not, nothing else has to be looked at.
struct AsciiNeedle
{
    QByteArray units;
    bool caseInsensitive;
    size_t rarest = 0;
    size_t second = 0; ///< The same as the rarest in a needle of one character.

    AsciiNeedle(QStringView text, bool ignoresCase);
};

/// A search for ASCII text in UTF-16 or in bytes, with the widest vectors that the processor at hand has.
/// Knows nothing of marks and of other scripts.
class AsciiSearch
{
public:
    /// The needle: ASCII, not empty, in small letters if `caseInsensitive`.
    AsciiSearch(QStringView needle, bool caseInsensitive) : g_needle(needle, caseInsensitive) {}

    /// The first place of the needle at or behind `from`, or -1.
    qsizetype find(QStringView text, qsizetype from) const;

    struct Outcome
    {
        qsizetype place; ///< Or -1.
        bool isAscii;    ///< Whether the text has nothing but ASCII, when the needle is not there.
    };
    /// The first place in UTF-8 or Latin-1.
    Outcome find(QByteArrayView text) const;

    bool matchesAt(QStringView text, qsizetype start) const;

private:
    AsciiNeedle g_needle;
};

} // namespace tavrin::text
