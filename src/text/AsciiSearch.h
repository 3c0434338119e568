// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin::text {

/// A search for ASCII text, several units at a time. Knows nothing of marks and of other scripts.
class AsciiSearch
{
public:
    /// The needle: ASCII, not empty, in small letters if `caseInsensitive`.
    AsciiSearch(const QString &needle, bool caseInsensitive);

    /// The first place of the needle at or behind `from`, or -1.
    qsizetype find(QStringView text, qsizetype from) const;
    bool matchesAt(QStringView text, qsizetype start) const;

private:
    char16_t lowered(char16_t unit) const
    {
        return g_caseInsensitive && unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
    }

    QString g_needle;
    bool g_caseInsensitive;
    /// The first and the last unit of the needle in four lanes, and the bits in which case shows.
    quint64 g_first;
    quint64 g_last;
    quint64 g_firstCase;
    quint64 g_lastCase;
};

} // namespace tavrin::text
