// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "io/TextFile.h"
#include "io/TextTable.h"

#include <memory>

namespace tavrin {

/// A table that was read, and how well the text fitted the grammar.
struct ReadTable
{
    std::shared_ptr<const TextTable> table;
    quint64 malformedCount = 0; ///< Fields that were missing, and fields that were too many.
    quint64 literalCount = 0;   ///< Cells in which the grammar left a token of its own.

    /// The fields of the first row.
    quint32 incomingFieldCount() const { return table->rowCount() == 0 ? 0 : table->cellCount(0); }
};

/// What a row gets for each field that it lacks, and what stands between two fields that became one.
inline constexpr QByteArrayView missingField("<MISSING FIELD>");
inline constexpr QByteArrayView extraField(" <EXTRA FIELD> ");

// Each reader gives at most `mostRows` rows, which is how a preview is made. They fail when they are
// cancelled, and with Unsupported for a text with more cells than a table takes.

/// Reads CSV (separator ',') or SSV (';') by the grammar of SeparatedLineCutter, a line a row, and makes each
/// row as long as the first.
Result<ReadTable> readSeparated(const TextContent &text, char separator, qint64 mostRows, Progress &progress);

/// Reads lines of fields between tabs. There is no quoting, and rows stay as long as they are.
Result<ReadTable> readTabDelimited(const TextContent &text, qint64 mostRows, Progress &progress);

/// How values may be quoted in text that is read by readStandard().
struct StandardDialect
{
    char separator = ',';
    char quote = '"'; ///< 0: nothing is quoted.
};

/// Reads values as RFC 4180 has them: a quoted one may hold separators, line ends and doubled quotes. Empty
/// lines are passed over; rows stay as long as they are, and those of another length than the first one are
/// counted as malformed. What it forbids (text behind a closing quote, a quote that is never closed) is taken
/// as text.
Result<ReadTable>
readStandard(const TextContent &text, StandardDialect dialect, qint64 mostRows, Progress &progress);

/// Cuts the text at each occurrence of the delimiter into rows of one cell; empty stretches make none. An
/// empty delimiter makes one row of all.
Result<ReadTable> readCustomDelimited(const TextContent &text, const QString &delimiter, Progress &progress);

} // namespace tavrin
