// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"
#include "richtext/RtfColorTable.h"
#include "richtext/RtfTokenizer.h"
#include "richtext/RtfWords.h"

namespace tavrin::richtext {

/// Where in a table the text is. RTF says of a row what its cells are like, and then gives cell after cell.
class RtfRows
{
public:
    void change(RtfCellWord word, const RtfToken &token, const RtfColorTable &colors);
    void setLastRow() { g_isLastRow = true; }

    /// The cell that is being filled; begins a table outside of one.
    TableCell cell();
    void endCell() { ++g_column; }
    void endRow();
    /// The paragraph that ended stands in no table.
    void leave();

private:
    void changeStyle(RtfCellWord word);
    void changeBorder(RtfCellWord word, const RtfToken &token, const RtfColorTable &colors);

    QList<CellStyle> g_styles;
    CellStyle g_next; ///< Of the cell whose right edge has not come yet.
    CellSide *g_border = nullptr;
    qint32 g_left = 0; ///< Of the next cell.
    qint32 g_table = 0;
    qint32 g_lastTable = 0;
    qint32 g_row = 0;
    qint32 g_column = 0;
    bool g_isLastRow = false;
};

} // namespace tavrin::richtext
