// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAnyStringView>
#include <QByteArray>

namespace tavrin::text {

/// A search for ASCII text in UTF-16 or in bytes, with the widest vectors that the processor at hand has.
/// Knows nothing of marks and of other scripts.
class AsciiSearch
{
public:
    /// The needle: ASCII, not empty, in small letters if `caseInsensitive`.
    AsciiSearch(QStringView needle, bool caseInsensitive)
        : g_needle(needle.toLatin1())
        , g_caseInsensitive(caseInsensitive)
    {}

    /// The first place of the needle at or behind `from`, or -1.
    qsizetype find(QStringView text, qsizetype from) const;
    /// The same in UTF-8 or Latin-1.
    qsizetype find(QByteArrayView text, qsizetype from) const;

    bool matchesAt(QStringView text, qsizetype start) const;

private:
    QByteArray g_needle;
    bool g_caseInsensitive;
};

} // namespace tavrin::text
