// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QString>

namespace tavrin::plist {

/// Decodes valid UTF-8 as it stands. QString::fromUtf8 alone would take U+FEFF at the start of a piece of
/// text for a byte-order mark and drop it.
inline QString fromUtf8(QByteArrayView utf8)
{
    constexpr QByteArrayView mark("\xEF\xBB\xBF");
    qsizetype marks = 0;
    for (; utf8.startsWith(mark); utf8 = utf8.sliced(mark.size()))
        ++marks;
    const QString text = QString::fromUtf8(utf8);
    return marks == 0 ? text : QString(marks, QChar(QChar::ByteOrderMark)) + text;
}

} // namespace tavrin::plist
