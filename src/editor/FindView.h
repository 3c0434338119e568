// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/TextMatcher.h"

#include <QColor>
#include <QList>

#include <optional>

namespace tavrin {

/// What finding asks of a window's widgets. As it stands, a window without a find box: nothing happens.
///
/// Ranges of the text are those of EditorView::freeformText(), ranges of a cell those of its value.
class FindView
{
public:
    FindView() = default;
    FindView(const FindView &) = delete;
    FindView &operator=(const FindView &) = delete;
    virtual ~FindView() = default;

    /// Gives the find box the focus, with its text selected.
    virtual void focusFindBox() {}
    /// Shows the find box where it had been put away.
    virtual void revealFindBox() {}
    /// Selects the find box's text; the focus stays where it is.
    virtual void selectFindText() {}
    virtual void setFindText(const QString & /*text*/) {}
    /// In place of what is selected in the find box.
    virtual void insertInFindBox(const QString & /*text*/) {}
    /// What is selected where the focus is, in the text or in a cell; else in the text.
    virtual QString selectedText() const { return {}; }
    virtual void beep() {}

    virtual text::Match freeformSelection() const { return {0, 0}; }
    /// Selects the range and scrolls to it; the focus stays where it is.
    virtual void selectInFreeform(const text::Match & /*range*/) {}
    virtual void focusFreeform() {}
    /// As if the person had typed it; the caret is behind it then.
    virtual void replaceFreeformSelection(const QString & /*text*/) {}
    /// Colours these ranges and no others. The text itself is not changed.
    virtual void showFreeformHits(const QList<text::Match> & /*hits*/, const QColor & /*color*/) {}

    /// What is selected in the cell that is being edited; none when none is.
    virtual std::optional<text::Match> cellSelection() const { return {}; }
    /// Makes a cell of the visible table the current one and scrolls to it.
    virtual void showCell(int /*row*/, int /*column*/) {}
    /// Starts editing the cell, if it may be edited, with that range selected; it has the focus.
    virtual void editCell(int /*row*/, int /*column*/, const text::Match & /*selected*/) {}
    /// The hits that the table models tell have changed.
    virtual void redrawCells() {}
};

} // namespace tavrin
