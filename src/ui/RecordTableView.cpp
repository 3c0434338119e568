// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/RecordTableView.h"

#include "ui/CellEditor.h"
#include "ui/CellLinks.h"
#include "ui/DatafileDrop.h"

#include <QApplication>
#include <QHeaderView>
#include <QMimeData>
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
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        Q_EMIT headerClicked(column, QGuiApplication::keyboardModifiers());
    });
    // A click on a header would select the column.
    disconnect(horizontalHeader(), &QHeaderView::sectionPressed, this, nullptr);
    disconnect(horizontalHeader(), &QHeaderView::sectionEntered, this, nullptr);
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
    selectAllInCell(indexWidget(index));
}

void RecordTableView::focusInEvent(QFocusEvent *event)
{
    // Whoever starts typing at once types into the first value.
    if (!currentIndex().isValid()) {
        const int row = g_entryRow ? g_entryRow() : 0;
        selectionModel()->setCurrentIndex(model()->index(row, g_firstColumn), QItemSelectionModel::NoUpdate);
    }
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
    const bool follows = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->button() != Qt::LeftButton || !index.isValid() || index.row() != currentIndex().row())
        return;
    if (index.flags().testFlag(Qt::ItemIsEditable) && !isEditing()) {
        edit(index);
        // Where the person pointed; only who comes by keyboard finds everything selected.
        if (QWidget *editor = QApplication::focusWidget(); isCellEditor(editor)) {
            const QPoint place = editor->mapFrom(viewport(), event->position().toPoint());
            placeCaretInCell(editor, place);
            if (follows)
                CellLinks::of(editor)->followAt(place);
        }
    } else if (const auto links = text::linksIn(index.data().toString(), text::UrlPlace::Field);
               follows && !links.empty()) {
        // What cannot be edited does not tell where it was hit.
        Q_EMIT linkFollowed(links.front().url);
    } else if (!index.flags().testFlag(Qt::ItemIsEditable))
        Q_EMIT uneditableCellClicked(index);
}

/// Ctrl follows links. It leaves no row without being selected.
QItemSelectionModel::SelectionFlags RecordTableView::selectionCommand(const QModelIndex &index,
                                                                      const QEvent *event) const
{
    const auto command = QTableView::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
}

// What is typed is for this cell, or for none: were another row looked for, the next key would go into that.
void RecordTableView::keyboardSearch(const QString & /*search*/)
{
    if (currentIndex().isValid() && !currentIndex().flags().testFlag(Qt::ItemIsEditable))
        Q_EMIT uneditableCellClicked(currentIndex());
}

void RecordTableView::setTextDrop(std::function<bool(const QModelIndex &, const QString &)> drop)
{
    g_textDrop = std::move(drop);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
}

/// The cell that would take the drop; invalid where none would. A datafile is for the window.
QModelIndex RecordTableView::dropTarget(const QDropEvent &event) const
{
    const QMimeData &dropped = *event.mimeData();
    if (!g_textDrop || !dropped.hasText() || !droppedDatafiles(dropped).isEmpty())
        return {};
    const QModelIndex index = indexAt(event.position().toPoint());
    return index.flags().testFlag(Qt::ItemIsEditable) ? index : QModelIndex();
}

void RecordTableView::dragEnterEvent(QDragEnterEvent *event)
{
    if (g_textDrop && event->mimeData()->hasText() && droppedDatafiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else
        event->ignore();
}

void RecordTableView::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(dropTarget(*event).isValid());
    if (event->isAccepted())
        event->setDropAction(Qt::CopyAction);
}

void RecordTableView::dropEvent(QDropEvent *event)
{
    const QModelIndex target = dropTarget(*event);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(target.isValid() && g_textDrop(target, event->mimeData()->text()));
}

} // namespace tavrin
