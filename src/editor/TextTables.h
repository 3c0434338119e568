// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

class QTextTable;

namespace tavrin {

/// Puts an empty row, or column, at that place, which looks like the one before it: Qt's own has no lines and
/// no width at the end of a table.
void insertTableRow(QTextTable &table, int row);
void insertTableColumn(QTextTable &table, int column);

} // namespace tavrin
