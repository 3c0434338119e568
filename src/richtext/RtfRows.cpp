// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfRows.h"

#include <algorithm>

namespace tavrin::richtext {

namespace {

// More cells than anybody draws, wider than any paper.
constexpr qsizetype mostCells = 1000;
constexpr qint32 widest = 1'000'000;

qint32 bounded(qint32 length)
{
    return std::clamp(length, -widest, widest);
}

} // namespace

void RtfRows::change(RtfCellWord word, const RtfToken &token, const RtfColorTable &colors)
{
    const auto side = [this](RtfCellWord found, RtfCellWord first) -> CellSide & {
        return g_next.sides[static_cast<size_t>(found) - static_cast<size_t>(first)];
    };
    if (word >= RtfCellWord::BorderTop && word <= RtfCellWord::BorderRight)
        g_border = &side(word, RtfCellWord::BorderTop);
    else if (word >= RtfCellWord::PaddingTop && word <= RtfCellWord::PaddingRight)
        side(word, RtfCellWord::PaddingTop).padding = bounded(token.number);
    else if (word >= RtfCellWord::OtherBorder)
        changeBorder(word, token, colors);
    else if (word == RtfCellWord::RowLeft)
        g_left = bounded(token.number);
    else if (word == RtfCellWord::Background)
        g_next.background = colors.color(token.number);
    else if (word == RtfCellWord::RowDefinition) {
        g_styles.clear();
        g_next = {};
        g_border = nullptr;
        g_left = 0;
        g_isLastRow = false;
    } else if (word == RtfCellWord::RightEdge) {
        const qint32 right = bounded(token.number);
        g_next.width = right - g_left;
        g_left = right;
        if (g_styles.size() < mostCells)
            g_styles.append(g_next);
        g_next = {};
        g_border = nullptr;
    } else {
        changeStyle(word);
    }
}

void RtfRows::changeStyle(RtfCellWord word)
{
    switch (word) {
    case RtfCellWord::MergeFirst:
        g_next.horizontal = Merge::First;
        break;
    case RtfCellWord::Merged:
        g_next.horizontal = Merge::Continued;
        break;
    case RtfCellWord::MergeFirstDown:
        g_next.vertical = Merge::First;
        break;
    case RtfCellWord::MergedDown:
        g_next.vertical = Merge::Continued;
        break;
    case RtfCellWord::Center:
        g_next.alignment = VerticalAlignment::Center;
        break;
    case RtfCellWord::Bottom:
        g_next.alignment = VerticalAlignment::Bottom;
        break;
    default:
        break;
    }
}

void RtfRows::changeBorder(RtfCellWord word, const RtfToken &token, const RtfColorTable &colors)
{
    constexpr qint32 usualWidth = 15;
    if (word == RtfCellWord::OtherBorder)
        g_border = nullptr;
    if (!g_border)
        return;
    if (word == RtfCellWord::NoBorder)
        g_border->borderWidth = 0;
    else if (word == RtfCellWord::SingleBorder)
        g_border->borderWidth = usualWidth;
    else if (word == RtfCellWord::BorderWidth)
        g_border->borderWidth = bounded(token.number);
    else if (word == RtfCellWord::BorderColor)
        g_border->borderColor = colors.color(token.number);
}

TableCell RtfRows::cell()
{
    if (g_table == 0) {
        g_table = ++g_lastTable;
        g_row = 0;
        g_column = 0;
    }
    return {g_table, g_row, g_column, g_styles.value(g_column)};
}

void RtfRows::endRow()
{
    if (g_table == 0)
        return;
    ++g_row;
    g_column = 0;
    if (g_isLastRow)
        leave();
}

void RtfRows::leave()
{
    g_table = 0;
    g_isLastRow = false;
}

} // namespace tavrin::richtext
