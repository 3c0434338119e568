// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTableView>

#include <functional>

namespace tavrin {

/// The common behaviour of the two tables: whole rows, one at a time; a cell is edited where it is clicked
/// or when a key is typed on it.
class RecordTableView : public QTableView
{
    Q_OBJECT

public:
    explicit RecordTableView(QWidget *parent = nullptr);

    bool isEditing() const { return state() == QAbstractItemView::EditingState; }

    /// The first column that the keyboard reaches: a label before it is not a place to be.
    void setFirstColumn(int column) { g_firstColumn = column; }
    /// The row where the keyboard comes in while no cell is the current one, if not the first.
    void setEntryRow(std::function<int()> row) { g_entryRow = std::move(row); }

    /// Commits the cell being edited.
    void endEditing();

    /// Puts a text that is dropped on a cell into it; true when it was taken.
    void setTextDrop(std::function<bool(const QModelIndex &index, const QString &text)> drop);

    /// Starts editing a cell with its text selected; does nothing for one that may not be edited.
    void editCell(int row, int column);

Q_SIGNALS:
    /// The person clicked a cell that cannot be edited, or typed there.
    void uneditableCellClicked(const QModelIndex &index);
    /// A link in a cell that cannot be edited is to be followed.
    void linkFollowed(const QString &link);
    /// The person clicked a column's header, holding those keys.
    void headerClicked(int column, Qt::KeyboardModifiers modifiers);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyboardSearch(const QString &search) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    QModelIndex dropTarget(const QDropEvent &event) const;

    std::function<bool(const QModelIndex &, const QString &)> g_textDrop;
    std::function<int()> g_entryRow;
    int g_firstColumn = 0;
};

} // namespace tavrin
