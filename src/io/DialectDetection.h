// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "io/TableReaders.h"

namespace tavrin {

/// How a table may best be read by readStandard(), as its first rows look.
struct DetectedDialect
{
    StandardDialect dialect;
    bool hasNames = false;  ///< The first row seems to name the columns.
    bool isRegular = false; ///< All rows are of one length, with more than one column.
};

/// Looks at the beginning of a text.
DetectedDialect detectDialect(const TextContent &text);

/// Whether the grammar of readSeparated() seems to fit the text badly, and that of readStandard() well.
bool isBetterReadAsStandard(const TextContent &text, char separator);

} // namespace tavrin
