// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

namespace tavrin {

/// What ends a line: LF, CR, CR LF, or the line and the paragraph separator of Unicode.
namespace LineEnd {

/// The first byte of either separator; many other characters begin so, too.
constexpr char separatorLead = '\xE2';

/// How many bytes the line end at that place has; 0 when there is none.
inline qsizetype sizeAt(QByteArrayView text, qsizetype place)
{
    if (text[place] == '\n')
        return 1;
    if (text[place] == '\r')
        return place + 1 < text.size() && text[place + 1] == '\n' ? 2 : 1;
    const bool isSeparator = text[place] == separatorLead && place + 2 < text.size()
                             && text[place + 1] == '\x80'
                             && (text[place + 2] == '\xA8' || text[place + 2] == '\xA9');
    return isSeparator ? 3 : 0;
}

} // namespace LineEnd

} // namespace tavrin
