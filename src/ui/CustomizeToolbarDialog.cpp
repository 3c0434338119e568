// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CustomizeToolbarDialog.h"

#include "editor/EditorToolbarController.h"
#include "ui/Icons.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

constexpr int identifierRole = Qt::UserRole;

/// A list from which, and within which, items are dragged.
QListWidget *makeList(const QString &name, bool mayReorder, QWidget *parent)
{
    auto *list = new QListWidget(parent);
    list->setAccessibleName(name);
    list->setIconSize(QSize(20, 20));
    list->setDragDropMode(QAbstractItemView::DragDrop);
    list->setDefaultDropAction(mayReorder ? Qt::MoveAction : Qt::CopyAction);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    return list;
}

} // namespace

CustomizeToolbarDialog::CustomizeToolbarDialog(EditorToolbarController &controller, QWidget *parent)
    : QDialog(parent)
    , g_controller(controller)
    , g_available(makeList(tr("Items that can be added"), false, this))
    , g_shown(makeList(tr("Items in the toolbar"), true, this))
    , g_add(new QPushButton(tr("&Add →"), this))
    , g_remove(new QPushButton(tr("← &Remove"), this))
    , g_up(new QPushButton(tr("Move &Up"), this))
    , g_down(new QPushButton(tr("Move &Down"), this))
    , g_display(new QComboBox(this))
{
    setWindowTitle(tr("Customize Toolbar"));
    setAttribute(Qt::WA_DeleteOnClose);
    buildLists();
    fill();
    connect(g_add, &QPushButton::clicked, this, &CustomizeToolbarDialog::addSelected);
    connect(g_remove, &QPushButton::clicked, this, &CustomizeToolbarDialog::removeSelected);
    connect(g_up, &QPushButton::clicked, this, [this] { moveSelected(-1); });
    connect(g_down, &QPushButton::clicked, this, [this] { moveSelected(1); });
    connect(g_available, &QListWidget::itemDoubleClicked, this, &CustomizeToolbarDialog::addSelected);
    connect(g_shown, &QListWidget::itemDoubleClicked, this, &CustomizeToolbarDialog::removeSelected);
    for (QListWidget *list : {g_available, g_shown})
        connect(list, &QListWidget::itemSelectionChanged, this, &CustomizeToolbarDialog::updateButtons);
    // A drop tells of the row it put in and then of the one it took away: look when both are done.
    connect(g_shown->model(),
            &QAbstractItemModel::rowsInserted,
            this,
            &CustomizeToolbarDialog::store,
            Qt::QueuedConnection);
    connect(g_shown->model(),
            &QAbstractItemModel::rowsRemoved,
            this,
            &CustomizeToolbarDialog::store,
            Qt::QueuedConnection);
    connect(g_display, &QComboBox::activated, this, [this](int index) {
        g_controller.setDisplay(static_cast<EditorToolbarController::Display>(index));
    });
    constexpr int width = 620;
    constexpr int height = 480;
    resize(width, height);
}

void CustomizeToolbarDialog::buildLists()
{
    auto *grid = new QGridLayout(this);
    auto *availableLabel = new QLabel(tr("A&vailable items"), this);
    availableLabel->setBuddy(g_available);
    auto *shownLabel = new QLabel(tr("I&n the toolbar"), this);
    shownLabel->setBuddy(g_shown);
    grid->addWidget(availableLabel, 0, 0);
    grid->addWidget(shownLabel, 0, 2);
    grid->addWidget(g_available, 1, 0);
    grid->addWidget(g_shown, 1, 2);
    auto *between = new QVBoxLayout;
    between->addStretch();
    for (QPushButton *button : {g_add, g_remove, g_up, g_down}) {
        button->setAutoDefault(false);
        between->addWidget(button);
    }
    between->addStretch();
    grid->addLayout(between, 1, 1);
    auto *showRow = new QHBoxLayout;
    auto *showLabel = new QLabel(tr("&Show:"), this);
    showLabel->setBuddy(g_display);
    g_display->addItems({tr("Icons and text"), tr("Icons only"), tr("Text only")});
    g_display->setCurrentIndex(static_cast<int>(g_controller.display()));
    showRow->addWidget(showLabel);
    showRow->addWidget(g_display);
    showRow->addStretch();
    grid->addLayout(showRow, 2, 0, 1, 3);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::RestoreDefaults, this);
    buttons->button(QDialogButtonBox::RestoreDefaults)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this, [this] {
        g_controller.resetItems();
        fill();
    });
    grid->addWidget(buttons, 3, 0, 1, 3);
}

QListWidgetItem *CustomizeToolbarDialog::newItem(const QString &identifier) const
{
    const ToolbarItem &item = *EditorToolbarController::item(identifier);
    auto *made = new QListWidgetItem(EditorToolbarController::label(item));
    made->setData(identifierRole, identifier);
    // Those without a picture stand in line with the others.
    QPixmap none(g_shown->iconSize());
    none.fill(Qt::transparent);
    made->setIcon(*item.image ? imageNamed(g_controller.imageName(QString::fromLatin1(item.image)))
                              : QIcon(none));
    return made;
}

void CustomizeToolbarDialog::fill()
{
    g_available->clear();
    g_shown->clear();
    const QStringList shown = g_controller.items();
    for (const QString &identifier : shown)
        g_shown->addItem(newItem(identifier));
    for (const QString &identifier : g_controller.availableItems()) {
        if (EditorToolbarController::mayRepeat(identifier) || !shown.contains(identifier))
            g_available->addItem(newItem(identifier));
    }
    g_shown->doItemsLayout();
    updateButtons();
}

void CustomizeToolbarDialog::addSelected()
{
    const QListWidgetItem *chosen = g_available->currentItem();
    if (!chosen)
        return;
    const int row = g_shown->currentRow() < 0 ? g_shown->count() : g_shown->currentRow() + 1;
    g_shown->insertItem(row, newItem(chosen->data(identifierRole).toString()));
    g_shown->setCurrentRow(row);
}

void CustomizeToolbarDialog::removeSelected()
{
    delete g_shown->takeItem(g_shown->currentRow());
}

void CustomizeToolbarDialog::moveSelected(int by)
{
    const int row = g_shown->currentRow();
    if (row < 0 || row + by < 0 || row + by >= g_shown->count())
        return;
    QListWidgetItem *moved = g_shown->takeItem(row);
    g_shown->insertItem(row + by, moved);
    g_shown->setCurrentRow(row + by);
}

void CustomizeToolbarDialog::store()
{
    QStringList items;
    for (int row = 0; row < g_shown->count(); ++row)
        items.append(g_shown->item(row)->data(identifierRole).toString());
    if (items == g_controller.items())
        return;
    const int row = g_shown->currentRow();
    g_controller.setItems(items);
    fill();
    g_shown->setCurrentRow(qMin(row, g_shown->count() - 1));
}

void CustomizeToolbarDialog::updateButtons()
{
    const int row = g_shown->currentRow();
    g_add->setEnabled(g_available->currentItem() != nullptr);
    g_remove->setEnabled(row >= 0);
    g_up->setEnabled(row > 0);
    g_down->setEnabled(row >= 0 && row < g_shown->count() - 1);
}

} // namespace tavrin
