// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"
#include "io/BlockList.h"
#include "model/TextView.h"

#include <QStringList>

namespace tavrin {

/// Rows of cells as a reader of delimited text has found them, left where they stand in the text.
///
/// A value of 8 bytes a cell and 4 a row; nothing is decoded until somebody asks for it. Rows may be of
/// different lengths. Immutable once it is read, and so usable on any thread.
class TextTable
{
public:
    /// How a cell's bytes become its text.
    enum class Form : quint8 {
        Plain,   ///< They are its UTF-8; of a table read by readStandard(), they are one line without tabs.
        Encoded, ///< The same, but two quotes stand for one.
        Own,     ///< They stand beside the text, because it does not hold them so.
        LargeOwn ///< The same of a cell that is too large to stand with the others.
    };

    struct Cell
    {
        quint64 start : 40 = 0; ///< In the text, or in the own bytes; of a large own one, its number.
        quint64 size : 22 = 0;
        quint64 form : 2 = 0;
    };

    /// The text is valid UTF-8 and lies in the bytes.
    TextTable(const SharedBytes &bytes, QByteArrayView text) : g_bytes(bytes), g_text(text) {}

    quint32 rowCount() const { return static_cast<quint32>(g_rowEnds.size()); }
    quint32 cellCount(quint32 row) const { return g_rowEnds[row] - firstCell(row); }
    /// The cells of the longest row.
    quint32 width() const { return g_width; }

    /// The cells of one row, for whoever wants several of them.
    class Row
    {
    public:
        /// Absent where the row is too short.
        TextView cell(quint32 column) const
        {
            return column < g_count ? g_table.textOf(g_table.g_cells[g_first + column]) : TextView();
        }
        /// The same of a table read by readStandard() as a field holds it: line ends and tabs are blanks.
        TextView cellAsLine(quint32 column) const
        {
            return column < g_count ? g_table.lineOf(g_table.g_cells[g_first + column]) : TextView();
        }

    private:
        friend class TextTable;
        Row(const TextTable &table, quint32 row)
            : g_table(table)
            , g_first(table.firstCell(row))
            , g_count(table.g_rowEnds[row] - table.firstCell(row))
        {}

        const TextTable &g_table;
        size_t g_first;
        quint32 g_count;
    };

    Row cells(quint32 row) const { return {*this, row}; }
    TextView cell(quint32 row, quint32 column) const { return cells(row).cell(column); }
    QStringList row(quint32 row) const;
    /// Whether the texts of all cells of the row stand in the text as they are.
    bool isPlain(quint32 row) const;
    /// From the first cell of a plain row to the end of its last.
    QByteArrayView bytesOf(quint32 row) const;

    // For readers.

    QByteArrayView text() const { return g_text; }
    bool isFull() const { return g_cells.size() >= mostCells; }
    Cell cellAt(qsizetype start, qsizetype size, Form form)
    {
        if (size > largestSize)
            return largeCell(start, size, form);
        return {static_cast<quint64>(start) & 0xffffffffff,
                static_cast<quint64>(size) & 0x3fffff,
                static_cast<quint64>(form) & 3};
    }
    Cell ownCell(QByteArrayView utf8);
    QByteArray bytesOf(Cell cell) const; ///< Decoded.
    void appendCell(Cell cell) { g_cells.append(cell); }
    /// How many cells the row has.
    quint32 endRow();

private:
    static constexpr quint64 mostCells = 0xfffffff0;
    static constexpr qsizetype largestSize = (qsizetype(1) << 22) - 1;

    Cell largeCell(qsizetype start, qsizetype size, Form form);
    QByteArrayView ownBytes(Cell cell) const;
    TextView textOf(Cell cell) const
    {
        if (cell.form != static_cast<quint64>(Form::Plain))
            return storedText(cell);
        return {g_text.sliced(static_cast<qsizetype>(cell.start), cell.size), false};
    }
    TextView lineOf(Cell cell) const;
    TextView storedText(Cell cell) const;
    quint32 firstCell(quint32 row) const { return row == 0 ? 0 : g_rowEnds[row - 1]; }

    SharedBytes g_bytes;
    QByteArrayView g_text;
    BlockList<Cell> g_cells;
    BlockList<quint32> g_rowEnds; ///< By row: the number of the cell behind its last one.
    QByteArray g_own;             ///< One behind the other, so that millions of them cost only their bytes.
    std::vector<QByteArray> g_largeOwn;
    quint32 g_rowStart = 0; ///< The first cell of the row that is being read.
    quint32 g_width = 0;
};

} // namespace tavrin
