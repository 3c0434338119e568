// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// What the person does in a window's tables, and how they look.

#include "editor/BasicTableModel.h"
#include "editor/EditorLinks.h"
#include "editor/EditorSorting.h"
#include "editor/EditorTableController.h"
#include "editor/ListTableModel.h"
#include "model/Preferences.h"
#include "ui/CellDelegate.h"
#include "ui/CellEditor.h"
#include "ui/CellLinks.h"
#include "ui/EditorWindow.h"
#include "ui/FieldWrapping.h"
#include "ui/RecordTableView.h"

#include <QApplication>
#include <QHeaderView>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

/// A table goes over all its rows for this, even where nothing changes.
void setRowHeight(RecordTableView &table, int height)
{
    if (table.verticalHeader()->defaultSectionSize() != height)
        table.verticalHeader()->setDefaultSectionSize(height);
}

} // namespace

void EditorWindow::followTables()
{
    EditorTableController &tables = g_controller.tableController();
    g_basicTable->setTextDrop([&tables](const QModelIndex &index, const QString &text) {
        return tables.basicTableModel().dropText(index, text);
    });
    g_listTable->setTextDrop([&tables](const QModelIndex &index, const QString &text) {
        return tables.listTableModel().dropText(index, text);
    });
    connect(g_listTable,
            &RecordTableView::headerClicked,
            &tables,
            [&tables](int column, Qt::KeyboardModifiers modifiers) {
                tables.headerClicked(column, headerClickFor(modifiers));
            });
    const auto follow = [this](const QString &link) { g_controller.links().openLink(link); };
    for (const RecordTableView *table : {g_basicTable, g_listTable}) {
        const auto *delegate = qobject_cast<CellDelegate *>(table->itemDelegate());
        connect(table, &RecordTableView::linkFollowed, this, follow);
        connect(delegate, &CellDelegate::linkFollowed, this, follow);
        connect(delegate, &CellDelegate::caretLinkChanged, this, &EditorWindow::updateOperations);
    }
    connect(&tables, &EditorTableController::columnWidthsChanged, this, &EditorWindow::applyColumnWidths);
    connect(&g_controller.preferences(), &Preferences::changed, this, [this](const QString &key) {
        if (key == "GeneralUseAlternatingColors"_L1)
            updateTableLooks();
    });
}

void EditorWindow::updateTableLooks()
{
    const bool alternating = g_controller.preferences().boolForKey(u"GeneralUseAlternatingColors"_s);
    for (RecordTableView *table : {g_basicTable, g_listTable})
        table->setAlternatingRowColors(alternating);
    const bool live = g_controller.document().datafileSettings().liveFieldWrapping();
    g_fieldWrapping->setWrapping(g_controller.tableController().wrapMode(), live);
}

void EditorWindow::applyColumnWidths()
{
    EditorTableController &tables = g_controller.tableController();
    g_applyingWidths = true;
    // Records stand close, so that many can be seen; the fields of one have a little air around them.
    constexpr int betweenRows = 2;
    constexpr int air = 6;
    const int height = qRound(tables.listViewRowHeight());
    setRowHeight(*g_listTable, height + betweenRows);
    setRowHeight(*g_basicTable, height + air);
    g_listTable->horizontalHeader()->setFixedHeight(height + betweenRows);
    g_listTable->horizontalHeader()->setFont(tables.fieldsFont());
    for (int column = 0; column < tables.listTableModel().columnCount(); ++column)
        g_listTable->setColumnWidth(column, qRound(tables.columnWidth(column)));
    g_applyingWidths = false;
    g_fieldWrapping->update();
}

/// A click on a field's name edits its value: whole, where the person prefers that.
void EditorWindow::hitBasicCell(const QModelIndex &index)
{
    g_basicTable->editCell(index.row(), BasicTableModel::ValueColumn);
    if (!g_controller.preferences().boolForKey(u"GeneralHighlightFieldText"_s)) {
        QWidget *editor = QApplication::focusWidget();
        selectInCell(editor, static_cast<int>(cellText(editor).size()), 0);
    }
}

void EditorWindow::showColumnMenu(int column, const QPoint &position, bool isOnRecord)
{
    if (column < 0)
        return;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool maySort = g_controller.validateAction(u"sortByFields:"_s);
    const auto add = [&](const QString &text, bool enabled, const std::function<void()> &run) {
        menu->addAction(text, &g_controller, run)->setEnabled(enabled);
    };
    for (const bool descending : {false, true}) {
        add(descending ? tr("Sort &Descending") : tr("Sort &Ascending"), maySort, [this, column, descending] {
            g_controller.sorting().sortByColumn(column, descending);
        });
    }
    menu->addAction(actionFor(u"sortByFields:"_s));
    menu->addSeparator();
    const auto addSize = [&](const QString &text, HeaderClick click) {
        add(text, !g_controller.isClone(), [this, column, click] {
            g_controller.tableController().headerClicked(column, click);
        });
    };
    addSize(tr("Fit Column to &Content"), HeaderClick::ThisToContent);
    addSize(tr("Fit Column to &Title"), HeaderClick::ThisToTitle);
    addSize(tr("Fit A&ll Columns"), HeaderClick::AllToLarger);
    addSize(tr("Fit All Columns to C&ontent"), HeaderClick::AllToContent);
    addSize(tr("Fit All Columns to T&itles"), HeaderClick::AllToTitle);
    if (isOnRecord) {
        menu->addSeparator();
        for (const auto &selector : {u"copyRecord:"_s, u"duplicateCurrentRecord:"_s, u"deleteRecord:"_s})
            menu->addAction(actionFor(selector));
    }
    menu->popup(position);
}

QString EditorWindow::linkInCell() const
{
    const CellLinks *links = CellLinks::of(focusWidget());
    return links ? links->linkAtCaret() : QString();
}

void EditorWindow::deactivateCellLinks()
{
    if (CellLinks *links = CellLinks::of(focusWidget()))
        links->deactivate();
}

void EditorWindow::moveInBasicView(bool forward)
{
    EditorTableController &tables = g_controller.tableController();
    const int field = tables.fieldAfter(tables.currentField(), forward);
    g_basicTable->editCell(field, BasicTableModel::ValueColumn);
}

void EditorWindow::moveInListView(bool forward, bool byReturn)
{
    const int columns =
        static_cast<int>(g_controller.tableController().listTableModel().shownFields().size());
    const QModelIndex index = g_listTable->currentIndex();
    if (byReturn || columns == 0) {
        g_listTable->setFocus();
        return;
    }
    const int next = (index.column() + (forward ? 1 : columns - 1)) % columns;
    g_listTable->editCell(index.row(), next);
}

} // namespace tavrin
