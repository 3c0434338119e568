// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/RecordTableView.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>

namespace tavrin {

RecordTableView::RecordTableView(QWidget *parent) : QTableView(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
}

void RecordTableView::endEditing()
{
    if (!isEditing())
        return;
    const QWidget *focus = QApplication::focusWidget();
    if (focus && focus != this && isAncestorOf(focus)) {
        auto *editor = const_cast<QWidget *>(focus);
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
        return;
    }
    // The editor lost the focus but is still open: close it by way of its index.
    if (QWidget *editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void RecordTableView::editCell(int row, int column)
{
    const QModelIndex index = model()->index(row, column);
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    scrollTo(index);
    if (!index.flags().testFlag(Qt::ItemIsEditable))
        return;
    edit(index);
    if (auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget()))
        editor->selectAll();
}

void RecordTableView::focusInEvent(QFocusEvent *event)
{
    // Whoever starts typing at once types into the first value.
    if (!currentIndex().isValid())
        selectionModel()->setCurrentIndex(model()->index(0, g_firstColumn), QItemSelectionModel::NoUpdate);
    QTableView::focusInEvent(event);
}

QModelIndex RecordTableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = QTableView::moveCursor(action, modifiers);
    return index.isValid() && index.column() < g_firstColumn ? index.siblingAtColumn(g_firstColumn) : index;
}

void RecordTableView::mouseReleaseEvent(QMouseEvent *event)
{
    QTableView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid() || index.row() != currentIndex().row())
        return;
    if (index.flags().testFlag(Qt::ItemIsEditable) && !isEditing())
        edit(index);
    else if (!index.flags().testFlag(Qt::ItemIsEditable))
        Q_EMIT uneditableCellClicked(index);
}

} // namespace tavrin
