// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

namespace tavrin::text {

/// Lines of a block of text end at "\n", words of a line at every single space: two spaces have an empty
/// word between them. Both are counted from 1; a number out of range takes the nearest line or word.

QStringView lineNumber(qint64 number, QStringView block);
/// Counted from the end; a number below 1 takes the last line.
QStringView negativeLineNumber(qint64 number, QStringView block);
QStringView lastLineOfTextBlock(QStringView block);
QStringView nextToLastLineOfTextBlock(QStringView block);

QStringView wordNumber(qint64 number, QStringView line);
/// The last word that is not empty.
QStringView lastWordOfLine(QStringView line);

} // namespace tavrin::text
