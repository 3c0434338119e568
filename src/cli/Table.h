// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Output.h"

#include <QStringList>

#include <functional>

namespace tavrin {

/// How many columns of a terminal a text takes: none for combining marks, two for wide characters.
qsizetype displayWidth(QStringView text);

/// The text in one line: line ends, tabs and other control characters become blanks, so that what a file
/// holds can neither break a line nor command the terminal.
QString singleLine(const QString &text);

/// As singleLine(), but line ends and tabs stay.
QString printable(const QString &text);

/// Cut to the width, with "…" at the end when something was cut.
QString cutToWidth(const QString &text, qsizetype width);

/// Rows in aligned columns. A column is as wide as its widest text, up to a limit that cuts longer ones.
/// `rowAt` is asked twice for each row, once to measure and once to write; nothing is kept.
void writeTable(Output &output,
                const QStringList &headings,
                qint64 rowCount,
                const std::function<QStringList(qint64)> &rowAt);

/// Names and values, one pair a line, the values aligned.
void writePairs(Output &output, const QList<std::pair<QString, QString>> &pairs);

} // namespace tavrin
