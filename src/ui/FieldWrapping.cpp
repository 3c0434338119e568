// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FieldWrapping.h"

#include "editor/BasicTableModel.h"
#include "editor/EditorTableController.h"
#include "ui/CellDelegate.h"
#include "ui/CellEditor.h"
#include "ui/RecordTableView.h"

#include <QApplication>
#include <QHeaderView>

namespace tavrin {

FieldWrapping::FieldWrapping(EditorTableController &controller,
                             RecordTableView &table,
                             CellDelegate &delegate)
    : g_controller(controller)
    , g_table(table)
    , g_delegate(delegate)
{
    const BasicTableModel &model = controller.basicTableModel();
    connect(&model, &QAbstractItemModel::modelReset, this, &FieldWrapping::update, Qt::QueuedConnection);
    connect(&model, &QAbstractItemModel::dataChanged, this, &FieldWrapping::update);
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, &FieldWrapping::update);
    connect(&delegate, &CellDelegate::textEdited, this, &FieldWrapping::cellTyped);
    // What was typed may have been given up: the row is again as high as the value.
    connect(
        &delegate, &QAbstractItemDelegate::closeEditor, this, &FieldWrapping::update, Qt::QueuedConnection);
}

void FieldWrapping::setWrapping(QTextOption::WrapMode mode, bool live)
{
    g_live = live;
    if (g_mode == mode)
        return;
    g_mode = mode;
    g_delegate.setWrapMode(mode);
    update();
    g_table.viewport()->update();
}

void FieldWrapping::update()
{
    // What is being typed is not in the record yet, and its row follows it.
    const QWidget *editor = g_live && g_table.isEditing() ? QApplication::focusWidget() : nullptr;
    const int typedRow = isCellTextModified(editor) ? g_table.currentIndex().row() : -1;
    const int rows = g_table.model()->rowCount();
    for (int row = 0; row < rows; ++row) {
        const QModelIndex value = g_table.model()->index(row, BasicTableModel::ValueColumn);
        setRowHeight(row, row == typedRow ? cellText(editor) : value.data().toString());
    }
}

void FieldWrapping::cellTyped()
{
    if (g_mode != QTextOption::NoWrap && g_live)
        setRowHeight(g_table.currentIndex().row(), cellText(QApplication::focusWidget()));
}

void FieldWrapping::setRowHeight(int row, const QString &value)
{
    constexpr int margins = 6;
    const int oneLine = g_table.verticalHeader()->defaultSectionSize();
    int height = oneLine;
    if (g_mode != QTextOption::NoWrap) {
        const double width = g_table.columnWidth(BasicTableModel::ValueColumn) - 2 * margins;
        height = qMax(oneLine, qRound(g_controller.wrappedHeight(value, width)) + margins);
    }
    if (g_table.rowHeight(row) != height)
        g_table.setRowHeight(row, height);
}

} // namespace tavrin
