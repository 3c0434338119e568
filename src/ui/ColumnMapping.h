// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QListWidget>
#include <QTableWidget>

namespace tavrin {

// The two halves of a mapping that is made by dragging: a column onto a field, or a field onto a column.

/// The columns of a table that is imported, with its first rows. A column is dragged by its header or by any
/// of its values.
class ColumnTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit ColumnTable(QWidget *parent);

Q_SIGNALS:
    /// What a column may become was dropped on it.
    void targetDropped(int column, int target);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void dragColumn(int column);

    int g_pressedColumn = -1; ///< In the header.
    QPoint g_pressedAt;
};

/// What columns may become.
class TargetList : public QListWidget
{
    Q_OBJECT

public:
    explicit TargetList(QWidget *parent);

Q_SIGNALS:
    /// A column was dropped on it.
    void columnDropped(int column, int target);

protected:
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

} // namespace tavrin
