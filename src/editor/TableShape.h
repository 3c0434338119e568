// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/TextFormats.h"

#include <QTextLength>

#include <vector>

namespace tavrin {

/// A paragraph of a stored text.
struct TextParagraph
{
    qsizetype start = 0;
    qsizetype end = 0; ///< Without its "\n".
};

/// How an empty paragraph is typed into: as what ends it looks. `otherwise`: where nothing does.
Look lookAtEnd(const richtext::AttributedText &text, const TextParagraph &paragraph, const Look &otherwise);

/// Cells of a stored text that are shown as one table: rows one behind the other, cells side by side.
struct TableShape
{
    std::vector<std::vector<std::vector<TextParagraph>>> rows;
    size_t columns = 0;
    size_t cells = 0;

    /// A few short rows are filled up. A text that claims a great table with hardly a cell is shown as
    /// paragraphs.
    bool isShown() const;
    /// How wide the columns are, as the row with the most cells says.
    QList<QTextLength> widths(const richtext::AttributedText &text) const;
    /// What the cell that is there covers: other cells that are meant to be covered, and empty. Of one that
    /// covers none, it is itself or nothing.
    MergedCells mergedAt(size_t row, size_t column, const richtext::AttributedText &text) const;

private:
    bool hasCell(size_t row, size_t column) const { return row < rows.size() && column < rows[row].size(); }
};

} // namespace tavrin
