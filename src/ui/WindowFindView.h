// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/FindView.h"

#include <functional>

namespace tavrin {

class FindBox;
class FreeformTextEdit;
class RecordTableView;

/// The widgets of an editor window in which things are found.
class WindowFindView : public FindView
{
public:
    /// All outlive it. `table` gives the one that is visible.
    WindowFindView(FindBox &findBox, FreeformTextEdit &text, std::function<RecordTableView &()> table)
        : g_findBox(findBox)
        , g_text(text)
        , g_table(std::move(table))
    {}

    void revealFindBox() override;
    void focusFindBox() override;
    void selectFindText() override;
    void setFindText(const QString &text) override;
    void insertInFindBox(const QString &text) override;
    QString selectedText() const override;
    void beep() override;
    text::Match freeformSelection() const override;
    void selectInFreeform(const text::Match &range) override;
    void focusFreeform() override;
    void replaceFreeformSelection(const QString &text) override;
    void showFreeformHits(const QList<text::Match> &hits, const QColor &color) override;
    std::optional<text::Match> cellSelection() const override;
    void showCell(int row, int column) override;
    void editCell(int row, int column, const text::Match &selected) override;
    void redrawCells() override;

private:
    FindBox &g_findBox;
    FreeformTextEdit &g_text;
    std::function<RecordTableView &()> g_table;
};

} // namespace tavrin
