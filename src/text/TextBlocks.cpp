// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/TextBlocks.h"

namespace tavrin::text {

namespace {

QStringView pieceFromStart(QStringView text, QChar separator, qint64 number)
{
    for (; number > 1; --number) {
        const qsizetype end = text.indexOf(separator);
        if (end < 0)
            return text;
        text = text.sliced(end + 1);
    }
    const qsizetype end = text.indexOf(separator);
    return end < 0 ? text : text.first(end);
}

QStringView pieceFromEnd(QStringView text, QChar separator, qint64 number)
{
    for (; number > 1; --number) {
        const qsizetype start = text.lastIndexOf(separator);
        if (start < 0)
            return text;
        text = text.first(start);
    }
    return text.sliced(text.lastIndexOf(separator) + 1);
}

} // namespace

QStringView lineNumber(qint64 number, QStringView block)
{
    return pieceFromStart(block, u'\n', number);
}

QStringView negativeLineNumber(qint64 number, QStringView block)
{
    return pieceFromEnd(block, u'\n', number);
}

QStringView lastLineOfTextBlock(QStringView block)
{
    return pieceFromEnd(block, u'\n', 1);
}

QStringView nextToLastLineOfTextBlock(QStringView block)
{
    return pieceFromEnd(block, u'\n', 2);
}

QStringView wordNumber(qint64 number, QStringView line)
{
    return pieceFromStart(line, u' ', number);
}

QStringView lastWordOfLine(QStringView line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return pieceFromEnd(line, u' ', 1);
}

} // namespace tavrin::text
