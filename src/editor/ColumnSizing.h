// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

namespace tavrin {

class EditorWindowController;

/// What a click on a List View column's header does.
enum class HeaderClick { Nothing, ThisToContent, ThisToTitle, AllToContent, AllToTitle, AllToLarger };

/// By the keys held. A click alone does nothing; above all it never sorts.
HeaderClick headerClickFor(Qt::KeyboardModifiers modifiers);

/// How wide the columns of List View have to be for what stands in them. Stored as the columns' widths.
///
/// Of very many records some thousand are measured, evenly spread.
class ColumnSizing
{
public:
    explicit ColumnSizing(EditorWindowController &window) : g_window(window) {}

    /// Whether any width may have changed.
    bool click(int column, HeaderClick click);

    void adjustColumnWidthToHeaderContent(int column);
    void adjustColumnWidthToFieldContent(int column);
    /// A column that is wide enough for its title stays; the text's gets its usual width.
    void adjustColumnWidthToLargerOfFieldOrHeaderContent(int column);
    void adjustAllColumnsToMaximumContent();
    void adjustAllColumnsToLargerOfFieldOrHeaderContent();

private:
    double titleWidth(int column) const;
    double contentWidth(int column) const;
    int columnCount() const;
    void setWidth(int column, double width);

    EditorWindowController &g_window;
};

} // namespace tavrin
