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
