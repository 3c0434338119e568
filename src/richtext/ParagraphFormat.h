// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CharacterFormat.h"

#include <QList>

#include <array>

// Lengths are twips: twentieths of a point.

namespace tavrin::richtext {

enum class Alignment : quint8 { Natural, Left, Center, Right, Justified };
enum class Direction : quint8 { Natural, LeftToRight, RightToLeft };
enum class TabKind : quint8 { Left, Center, Right, Decimal };

struct TabStop
{
    qint32 position = 0;
    TabKind kind = TabKind::Left;

    friend bool operator==(const TabStop &, const TabStop &) = default;
};

/// How one level of a list is marked, see markerText().
struct ListLevel
{
    QString marker;
    qint32 startAt = 1;

    friend bool operator==(const ListLevel &, const ListLevel &) = default;
};

/// The list in which a paragraph is an item. The marker itself is text: the paragraph begins with a tab, the
/// marker and a tab. Paragraphs of one list have the same identifier and levels.
struct ListItem
{
    qint32 identifier = 0; ///< 0: in no list.
    qint32 level = 0;      ///< Always one of the levels.
    QList<ListLevel> levels;

    friend bool operator==(const ListItem &, const ListItem &) = default;
};

enum class Merge : quint8 { None, First, Continued };
enum class VerticalAlignment : quint8 { Top, Center, Bottom };
enum class Side : quint8 { Top, Left, Bottom, Right };

struct CellSide
{
    qint32 borderWidth = 0;
    qint32 padding = 0;
    std::optional<Color> borderColor;

    friend bool operator==(const CellSide &, const CellSide &) = default;
};

struct CellStyle
{
    qint32 width = 0;
    Merge horizontal = Merge::None;
    Merge vertical = Merge::None;
    VerticalAlignment alignment = VerticalAlignment::Top;
    std::optional<Color> background;
    std::array<CellSide, 4> sides; ///< In the order of Side.

    friend bool operator==(const CellStyle &, const CellStyle &) = default;
};

/// The cell of a table in which a paragraph stands. The paragraphs of a table follow each other row by row
/// and cell by cell, at least one for each cell.
struct TableCell
{
    qint32 table = 0; ///< From 1 in the order of the text; 0: in no table.
    qint32 row = 0;
    qint32 column = 0;
    CellStyle style;

    bool isSameRow(const TableCell &other) const { return table == other.table && row == other.row; }
    bool isSameCell(const TableCell &other) const { return isSameRow(other) && column == other.column; }
    friend bool operator==(const TableCell &, const TableCell &) = default;
};

struct ParagraphFormat
{
    Alignment alignment = Alignment::Natural;
    Direction direction = Direction::Natural;
    qint32 headIndent = 0;
    qint32 firstLineIndent = 0; ///< From the head indent.
    qint32 tailIndent = 0;      ///< From the right.
    qint32 spaceBefore = 0;
    qint32 spaceAfter = 0;
    qint32 lineMultiple = 0;      ///< 240ths of the line's height; 0: one line.
    qint32 minimumLineHeight = 0; ///< 0: as the text needs, as for the next two.
    qint32 maximumLineHeight = 0;
    qint32 lineSpacing = 0;
    qint32 tabInterval = 0; ///< After the last tab stop; 0: the view's.
    QList<TabStop> tabStops;
    ListItem list;
    TableCell cell;

    friend bool operator==(const ParagraphFormat &, const ParagraphFormat &) = default;
};

} // namespace tavrin::richtext
