// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TableShape.h"

#include <algorithm>

namespace tavrin {

using namespace richtext;

namespace {

const CellStyle &styleOf(const std::vector<TextParagraph> &cell, const AttributedText &text)
{
    return text.paragraphFormatAt(cell.front().start).cell.style;
}

bool isEmpty(const std::vector<TextParagraph> &cell)
{
    return cell.size() == 1 && cell.front().start == cell.front().end;
}

} // namespace

Look lookAtEnd(const AttributedText &text, const TextParagraph &paragraph, const Look &otherwise)
{
    if (paragraph.end < text.size())
        return text.characterRuns().at(paragraph.end);
    return paragraph.end > 0 ? text.characterRuns().at(paragraph.end - 1) : otherwise;
}

bool TableShape::isShown() const
{
    constexpr size_t some = 64;
    constexpr size_t most = 20'000;
    return rows.size() * columns <= std::min(4 * cells + some, most);
}

QList<QTextLength> TableShape::widths(const AttributedText &text) const
{
    const auto widest = std::ranges::max_element(rows, {}, [](const auto &row) { return row.size(); });
    QList<QTextLength> widths;
    for (const auto &cell : *widest) {
        const qint32 width = styleOf(cell, text).width;
        widths.append(width > 0 ? QTextLength(QTextLength::FixedLength, pixelsForTwips(width))
                                : QTextLength());
    }
    return widths;
}

MergedCells TableShape::mergedAt(size_t row, size_t column, const AttributedText &text) const
{
    const auto styleAt = [&](size_t r, size_t c) -> const CellStyle & { return styleOf(rows[r][c], text); };
    size_t endRow = row + 1;
    if (styleAt(row, column).vertical == Merge::First) {
        while (hasCell(endRow, column) && styleAt(endRow, column).vertical == Merge::Continued)
            ++endRow;
    }
    size_t endColumn = column + 1;
    if (styleAt(row, column).horizontal == Merge::First) {
        while (hasCell(row, endColumn) && styleAt(row, endColumn).horizontal == Merge::Continued)
            ++endColumn;
    }
    MergedCells merged{static_cast<int>(endRow - row), static_cast<int>(endColumn - column), {}};
    for (size_t r = row; r < endRow; ++r) {
        for (size_t c = column; c < endColumn; ++c) {
            const bool isFirst = r == row && c == column;
            if (!hasCell(r, c) || (!isFirst && !isEmpty(rows[r][c]))
                || (r > row && styleAt(r, c).vertical != Merge::Continued)
                || (c > column && styleAt(r, c).horizontal != Merge::Continued))
                return {};
            const TextParagraph &paragraph = rows[r][c].front();
            merged.cells.append(
                {styleAt(r, c), text.paragraphRuns().at(paragraph.start), lookAtEnd(text, paragraph, {})});
        }
    }
    return merged;
}

} // namespace tavrin
