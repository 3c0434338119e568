// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/FindView.h"
#include "support/FakeEditorView.h"

namespace tavrin {

/// A find box, text and cells without widgets, beside the fake view of the same window.
class FakeFindView : public FindView
{
public:
    explicit FakeFindView(FakeEditorView &editor) : g_editor(editor) {}

    void focusFindBox() override { focus = QStringLiteral("find box"); }
    void setFindText(const QString &text) override { findText = text; }
    void insertInFindBox(const QString &text) override { findText += text; }
    QString selectedText() const override { return selected; }
    void beep() override { ++beeps; }
    text::Match freeformSelection() const override { return selection; }
    void selectInFreeform(const text::Match &range) override { selection = range; }
    void focusFreeform() override { focus = QStringLiteral("text"); }
    void replaceFreeformSelection(const QString &text) override
    {
        g_editor.text.replace(selection.start, selection.length, text);
        g_editor.textModified = true;
        selection = {selection.start + text.size(), 0};
    }
    void showFreeformHits(const QList<text::Match> &hits, const QColor &color) override
    {
        freeformHits = hits;
        hitColor = color;
    }
    std::optional<text::Match> cellSelection() const override { return editedRange; }
    void showCell(int row, int column) override { shownCell = {row, column}; }
    void editCell(int row, int column, const text::Match &range) override
    {
        shownCell = {row, column};
        editedRange = range;
        focus = QStringLiteral("cell");
    }

    QString focus;
    QString findText;
    QString selected;
    text::Match selection{0, 0};
    QList<text::Match> freeformHits;
    QColor hitColor;
    std::optional<text::Match> editedRange;
    std::pair<int, int> shownCell{-1, -1};
    int beeps = 0;

private:
    FakeEditorView &g_editor;
};

} // namespace tavrin
