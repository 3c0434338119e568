// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ModifyFieldsDialog.h"

#include "editor/ModifyFieldsSheetController.h"
#include "ui/DialogParts.h"

#include <QDialogButtonBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMetaObject>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavrin {

namespace {

constexpr int nameColumn = 0;
constexpr int showColumn = 1;
constexpr int useColumn = 2;

} // namespace

ModifyFieldsDialog::ModifyFieldsDialog(ModifyFieldsSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
{
    setWindowTitle(tr("Modify Fields"));
    auto *layout = new QVBoxLayout(this);
    auto *middle = new QHBoxLayout;
    makeTable();
    middle->addWidget(g_table, 1);
    middle->addWidget(makeCommands());
    layout->addLayout(middle, 1);
    auto *form = new QFormLayout;
    auto *textName = new QLineEdit(sheet.textName(), this);
    form->addRow(tr("Name of the &text:"), textName);
    connect(textName, &QLineEdit::textEdited, &sheet, &ModifyFieldsSheetController::setTextName);
    layout->addLayout(form);
    g_note = makeNoteLabel(this);
    g_note->setMinimumHeight(fontMetrics().height());
    layout->addWidget(g_note);
    layout->addWidget(makeSheetButtons(sheet, tr("&OK"), this));
    connect(&sheet, &QVSheetController::changed, this, &ModifyFieldsDialog::showNotes);
    fill(0);
    g_table->setFocus();
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().lineSpacing() * 24);
}

void ModifyFieldsDialog::makeTable()
{
    g_table = new QTableWidget(this);
    g_table->setAccessibleName(tr("Fields"));
    g_table->setColumnCount(3);
    g_table->setHorizontalHeaderLabels({tr("Name"), tr("Show"), tr("Records")});
    g_table->horizontalHeaderItem(showColumn)->setToolTip(tr("Shown as a column of List View"));
    g_table->horizontalHeaderItem(useColumn)->setToolTip(tr("How many records hold something in the field"));
    g_table->horizontalHeader()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    g_table->verticalHeader()->hide();
    g_table->setShowGrid(false);
    g_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    g_table->setSelectionMode(QAbstractItemView::SingleSelection);
    g_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                             | QAbstractItemView::AnyKeyPressed);
    g_table->setTabKeyNavigation(false);
    g_table->setDragDropMode(QAbstractItemView::InternalMove);
    g_table->setDragDropOverwriteMode(false);
    // A row is moved in the sheet, not cell by cell in the table.
    g_table->viewport()->installEventFilter(this);
    connect(g_table, &QTableWidget::cellChanged, this, &ModifyFieldsDialog::cellEdited);
    connect(g_table, &QTableWidget::currentCellChanged, this, &ModifyFieldsDialog::showNotes);
}

QWidget *ModifyFieldsDialog::makeCommands()
{
    auto *commands = new QWidget(this);
    auto *layout = new QVBoxLayout(commands);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto addCommand = [&](const QString &text, auto run) {
        auto *button = new QPushButton(text, this);
        button->setAutoDefault(false);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, run] {
            g_table->setFocus(); // A name that is being typed counts.
            run();
        });
        return button;
    };
    addCommand(tr("&Add"), [this] {
        const int row = static_cast<int>(g_sheet.addField(tr("New Field")));
        fill(row);
        g_table->editItem(g_table->item(row, nameColumn));
    });
    g_delete = addCommand(tr("&Delete"), [this] {
        const int row = g_table->currentRow();
        g_sheet.deleteField(row);
        fill(qMin(row, static_cast<int>(g_sheet.fields().size()) - 1));
    });
    addCommand(tr("&Rename"), [this] {
        if (QTableWidgetItem *item = g_table->item(g_table->currentRow(), nameColumn))
            g_table->editItem(item);
    });
    g_up = addCommand(tr("Move &Up"), [this] { moveRow(g_table->currentRow(), g_table->currentRow() - 1); });
    g_down =
        addCommand(tr("Move Do&wn"), [this] { moveRow(g_table->currentRow(), g_table->currentRow() + 1); });
    addCommand(tr("&Names from Datafile…"), [this] { chooseDatafile(); });
    layout->addStretch(1);
    return commands;
}

void ModifyFieldsDialog::fill(int currentRow)
{
    const QSignalBlocker blocked(g_table);
    g_table->setRowCount(static_cast<int>(g_sheet.fields().size()));
    for (int row = 0; row < g_table->rowCount(); ++row) {
        const FieldDefinition &field = g_sheet.fields().at(row);
        auto *name = new QTableWidgetItem(field.name());
        auto *show = new QTableWidgetItem;
        auto *use = new QTableWidgetItem(QString::number(g_sheet.useOf(row)));
        name->setFlags(name->flags() & ~Qt::ItemIsDropEnabled);
        show->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable
                       | Qt::ItemIsDragEnabled);
        show->setCheckState(field.show() ? Qt::Checked : Qt::Unchecked);
        show->setData(Qt::AccessibleTextRole, tr("Show as a column"));
        use->setFlags(show->flags() & ~Qt::ItemIsUserCheckable);
        use->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        g_table->setItem(row, nameColumn, name);
        g_table->setItem(row, showColumn, show);
        g_table->setItem(row, useColumn, use);
    }
    if (currentRow >= 0)
        g_table->setCurrentCell(currentRow, nameColumn);
    showNotes();
}

void ModifyFieldsDialog::cellEdited(int row, int column)
{
    const QTableWidgetItem *item = g_table->item(row, column);
    if (column == nameColumn)
        g_sheet.renameField(row, item->text());
    else if (column == showColumn)
        g_sheet.setShown(row, item->checkState() == Qt::Checked);
}

void ModifyFieldsDialog::moveRow(int from, int to)
{
    if (from < 0 || to < 0 || to >= g_table->rowCount())
        return;
    g_sheet.moveField(from, to);
    fill(to);
}

bool ModifyFieldsDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Drop)
        return QDialog::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event);
    const int from = g_table->currentRow();
    const QModelIndex over = g_table->indexAt(drop->position().toPoint());
    int to = over.isValid() ? over.row() : g_table->rowCount();
    if (over.isValid() && drop->position().y() > g_table->visualRect(over).center().y())
        ++to;
    // The table takes away what was dragged, unless it is told that nothing was moved; and it is done with
    // the drag only afterwards.
    drop->setDropAction(Qt::IgnoreAction);
    drop->ignore();
    to = qBound(0, to > from ? to - 1 : to, g_table->rowCount() - 1);
    QMetaObject::invokeMethod(
        this, [this, from, to] { moveRow(from, to); }, Qt::QueuedConnection);
    return true;
}

void ModifyFieldsDialog::chooseDatafile()
{
    auto *panel = new QFileDialog(this, tr("Names from Datafile"));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setFileMode(QFileDialog::ExistingFile);
    panel->setNameFilters({tr("Datafiles (*.tv3 *.tvk)"), tr("All Files (*)")});
    connect(panel, &QFileDialog::fileSelected, this, [this](const QString &path) {
        g_failure = g_sheet.addNamesOf(path);
        fill(static_cast<int>(g_sheet.fields().size()) - 1);
        g_failure.clear();
    });
    panel->open();
}

void ModifyFieldsDialog::showNotes()
{
    const int row = g_table->currentRow();
    g_delete->setEnabled(row >= 0);
    g_up->setEnabled(row > 0);
    g_down->setEnabled(row >= 0 && row < g_table->rowCount() - 1);
    const QString problem = g_failure.isEmpty() ? g_sheet.problem() : g_failure;
    setNote(g_note, problem.isEmpty() ? g_sheet.note() : problem);
    g_note->show(); // Its room is kept, so that nothing jumps.
}

} // namespace tavrin
