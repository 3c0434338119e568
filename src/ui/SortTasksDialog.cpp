// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/SortTasksDialog.h"

#include "editor/SortTasksSheetController.h"
#include "ui/DialogParts.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavrin {

namespace {

constexpr int nameColumn = 0;
constexpr int descriptionColumn = 1;

} // namespace

SortTasksDialog::SortTasksDialog(SortTasksSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
    , g_table(new QTableWidget(this))
{
    setWindowTitle(tr("Edit Sort Tasks"));
    auto *layout = new QVBoxLayout(this);
    g_table->setAccessibleName(tr("Sort tasks"));
    g_table->setColumnCount(2);
    g_table->setHorizontalHeaderLabels({tr("Name"), tr("Sorts by")});
    g_table->horizontalHeader()->setSectionResizeMode(descriptionColumn, QHeaderView::Stretch);
    g_table->setColumnWidth(nameColumn, fontMetrics().averageCharWidth() * 28);
    g_table->verticalHeader()->hide();
    g_table->setShowGrid(false);
    g_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    g_table->setSelectionMode(QAbstractItemView::SingleSelection);
    g_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    g_table->setTabKeyNavigation(false);
    layout->addWidget(g_table);
    connect(g_table, &QTableWidget::cellChanged, this, &SortTasksDialog::nameEdited);

    auto *commands = new QHBoxLayout;
    const auto addCommand = [&](const QString &text, auto run) {
        auto *button = new QPushButton(text, this);
        button->setAutoDefault(false);
        commands->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, run] {
            g_table->setFocus(); // A name that is being typed counts.
            run();
        });
        return button;
    };
    g_rename = addCommand(tr("&Rename"),
                          [this] { g_table->editItem(g_table->item(g_table->currentRow(), nameColumn)); });
    g_duplicate = addCommand(
        tr("D&uplicate"), [this] { fill(static_cast<int>(g_sheet.duplicateTask(g_table->currentRow()))); });
    g_useLastSort = addCommand(tr("Use &Last Sort"), [this] {
        const int row = g_table->currentRow();
        g_sheet.useLastSort(row);
        fill(row);
    });
    g_useLastSort->setToolTip(tr("The task sorts from now on as the datafile was sorted last"));
    g_delete = addCommand(tr("&Delete"), [this] {
        const int row = g_table->currentRow();
        g_sheet.deleteTask(row);
        fill(qMin(row, static_cast<int>(g_sheet.count()) - 1));
    });
    commands->addStretch(1);
    layout->addLayout(commands);
    g_note = makeNoteLabel(this);
    layout->addWidget(g_note);
    layout->addWidget(makeSheetButtons(sheet, tr("&Keep Changes"), this));
    fill(0);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().lineSpacing() * 20);
}

void SortTasksDialog::fill(int currentRow)
{
    const QSignalBlocker blocked(g_table);
    g_table->setRowCount(static_cast<int>(g_sheet.count()));
    for (int row = 0; row < g_table->rowCount(); ++row) {
        g_table->setItem(row, nameColumn, new QTableWidgetItem(g_sheet.nameAt(row)));
        auto *description = new QTableWidgetItem(g_sheet.descriptionAt(row));
        description->setFlags(description->flags() & ~Qt::ItemIsEditable);
        g_table->setItem(row, descriptionColumn, description);
    }
    if (currentRow >= 0)
        g_table->setCurrentCell(currentRow, nameColumn);
    for (QPushButton *button : {g_rename, g_duplicate, g_useLastSort, g_delete})
        button->setEnabled(g_sheet.count() > 0);
}

void SortTasksDialog::nameEdited(int row, int column)
{
    if (column != nameColumn)
        return;
    // A name that cannot be given leaves the old one standing.
    const QString name = g_table->item(row, nameColumn)->text();
    setNote(g_note, g_sheet.renameProblem(row, name));
    g_sheet.renameTask(row, name);
    fill(row);
}

} // namespace tavrin
