// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WindowFindView.h"

#include "ui/CellEditor.h"
#include "ui/FindBox.h"
#include "ui/FreeformTextEdit.h"
#include "ui/HitColors.h"
#include "ui/RecordTableView.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>

namespace tavrin {

using text::Match;

namespace {

/// What edits the table's current cell; null when nothing does.
QWidget *cellEditor(const RecordTableView &table)
{
    return table.isEditing() ? table.indexWidget(table.currentIndex()) : nullptr;
}

} // namespace

void WindowFindView::revealFindBox()
{
    g_findBox.parentWidget()->show();
}

void WindowFindView::focusFindBox()
{
    // The person may have taken it out of the toolbar.
    if (!g_findBox.isVisibleTo(g_findBox.window()))
        return;
    g_findBox.entry().setFocus(Qt::ShortcutFocusReason);
    g_findBox.entry().selectAll();
}

void WindowFindView::selectFindText()
{
    g_findBox.entry().selectAll();
}

void WindowFindView::setFindText(const QString &text)
{
    g_findBox.entry().setText(text);
}

void WindowFindView::insertInFindBox(const QString &text)
{
    g_findBox.entry().insert(text);
    g_findBox.entry().setFocus(Qt::OtherFocusReason);
}

QString WindowFindView::selectedText() const
{
    const QWidget *focused = QApplication::focusWidget();
    if (isCellEditor(focused)) {
        const auto [start, length] = tavrin::cellSelection(focused);
        if (length > 0)
            return cellText(focused).sliced(start, length);
    }
    // A key is a line.
    return g_text.textCursor().selectedText().section(QChar::ParagraphSeparator, 0, 0);
}

void WindowFindView::beep()
{
    QApplication::beep();
}

Match WindowFindView::freeformSelection() const
{
    return g_text.placesOf(g_text.textCursor());
}

void WindowFindView::selectInFreeform(const Match &range)
{
    g_text.setTextCursor(g_text.cursorOn(range));
    // With what stands around it, not at the very edge.
    const QRect caret = g_text.cursorRect();
    const int margin = g_text.viewport()->height() / 4;
    QScrollBar *bar = g_text.verticalScrollBar();
    if (caret.top() < margin)
        bar->setValue(bar->value() + caret.top() - margin);
    else if (caret.bottom() > g_text.viewport()->height() - margin)
        bar->setValue(bar->value() + caret.bottom() - g_text.viewport()->height() + margin);
}

void WindowFindView::focusFreeform()
{
    g_text.setFocus(Qt::OtherFocusReason);
}

void WindowFindView::replaceFreeformSelection(const QString &text)
{
    g_text.textCursor().insertText(text);
}

void WindowFindView::showFreeformHits(const QList<Match> &hits, const QColor &color)
{
    g_text.showHits(hits, color);
}

std::optional<Match> WindowFindView::cellSelection() const
{
    const QWidget *editor = cellEditor(g_table());
    if (!isCellEditor(editor))
        return {};
    const auto [start, length] = tavrin::cellSelection(editor);
    return Match{start, length};
}

void WindowFindView::showCell(int row, int column)
{
    RecordTableView &table = g_table();
    const QModelIndex index = table.model()->index(row, column);
    if (!index.isValid())
        return;
    // The window follows the record, not the other way round.
    const QSignalBlocker blocked(table.selectionModel());
    table.setCurrentIndex(index);
    table.scrollTo(index);
}

void WindowFindView::editCell(int row, int column, const Match &selected)
{
    RecordTableView &table = g_table();
    showCell(row, column);
    table.setFocus();
    table.editCell(row, column);
    if (QWidget *editor = cellEditor(table))
        selectInCell(editor, static_cast<int>(selected.start), static_cast<int>(selected.length));
}

void WindowFindView::redrawCells()
{
    g_table().viewport()->update();
}

} // namespace tavrin
