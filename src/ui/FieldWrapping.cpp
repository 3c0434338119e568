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
}

void FieldWrapping::setWrapping(bool wraps, bool live)
{
    g_live = live;
    if (g_wraps == wraps)
        return;
    g_wraps = wraps;
    g_table.setWordWrap(wraps);
    g_delegate.setWraps(wraps);
    update();
}

void FieldWrapping::update()
{
    const int rows = g_table.model()->rowCount();
    for (int row = 0; row < rows; ++row)
        setRowHeight(row, g_table.model()->index(row, BasicTableModel::ValueColumn).data().toString());
}

void FieldWrapping::cellTyped()
{
    if (g_wraps && g_live)
        setRowHeight(g_table.currentIndex().row(), cellText(QApplication::focusWidget()));
}

void FieldWrapping::setRowHeight(int row, const QString &value)
{
    constexpr int margins = 6;
    const int oneLine = g_table.verticalHeader()->defaultSectionSize();
    int height = oneLine;
    if (g_wraps) {
        const double width = g_table.columnWidth(BasicTableModel::ValueColumn) - 2 * margins;
        height = qMax(oneLine, qRound(g_controller.wrappedHeight(value, width)) + margins);
    }
    if (g_table.rowHeight(row) != height)
        g_table.setRowHeight(row, height);
}

} // namespace tavrin
