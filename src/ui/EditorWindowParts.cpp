// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// How an editor window is put together: its tables, text area, menus and status bar.

#include "editor/BasicTableModel.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorSorting.h"
#include "editor/EditorTableController.h"
#include "editor/EditorToolbarController.h"
#include "editor/ListTableModel.h"
#include "ui/ApplicationMenus.h"
#include "ui/CellDelegate.h"
#include "ui/Commands.h"
#include "ui/EditorWindow.h"
#include "ui/FieldWrapping.h"
#include "ui/FindBox.h"
#include "ui/FindCountLine.h"
#include "ui/FreeformRuler.h"
#include "ui/FreeformTextEdit.h"
#include "ui/Icons.h"
#include "ui/RecordTableView.h"
#include "ui/WindowFindView.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace tavrin {

void EditorWindow::buildTables()
{
    EditorTableController &tables = g_controller.tableController();
    g_tables = new QStackedWidget(this);

    g_basicTable = new RecordTableView(g_tables);
    g_basicTable->setObjectName(u"basicTableView"_s);
    g_basicTable->setFirstColumn(BasicTableModel::ValueColumn);
    g_basicTable->setAccessibleName(tr("Fields of the record"));
    g_basicTable->setModel(&tables.basicTableModel());
    g_basicTable->horizontalHeader()->hide();
    g_basicTable->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    g_basicTable->horizontalHeader()->setStretchLastSection(true);
    auto *basicDelegate = new CellDelegate(g_basicTable);
    g_basicTable->setItemDelegate(basicDelegate);
    g_basicTable->setItemDelegateForColumn(BasicTableModel::FieldColumn, new FieldNameDelegate(g_basicTable));
    connect(basicDelegate, &CellDelegate::moved, this, [this](bool forward) { moveInBasicView(forward); });
    connect(g_basicTable, &RecordTableView::uneditableCellClicked, this, &EditorWindow::hitBasicCell);
    g_fieldWrapping = new FieldWrapping(tables, *g_basicTable, *basicDelegate);
    g_fieldWrapping->setParent(this);
    connect(g_basicTable->selectionModel(),
            &QItemSelectionModel::currentRowChanged,
            this,
            [&tables](const QModelIndex &current) { tables.setCurrentField(current.row()); });

    g_listTable = new RecordTableView(g_tables);
    g_listTable->setObjectName(u"listTableView"_s);
    g_listTable->setAccessibleName(tr("Selected records"));
    g_listTable->setModel(&tables.listTableModel());
    g_listTable->setEntryRow([this] { return static_cast<int>(g_controller.indexOfCurrentRecord()); });
    g_listTable->setDragDropMode(QAbstractItemView::DragOnly);
    g_listTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    buildColumnMenu();
    auto *listDelegate = new CellDelegate(g_listTable);
    g_listTable->setItemDelegate(listDelegate);
    connect(listDelegate, &CellDelegate::moved, this, &EditorWindow::moveInListView);
    connect(g_listTable,
            &RecordTableView::uneditableCellClicked,
            this,
            [this, &tables](const QModelIndex &index) {
                // Not a field of a locked record: that only is not edited.
                if (tables.listTableModel().isTextColumn(index.column()))
                    g_text->setFocus();
                else if (const RecordData *record = g_controller.currentRecord();
                         record && record->recordLocked())
                    Q_EMIT g_controller.statusMessage(tr("This record is locked."));
            });
    connect(g_listTable->selectionModel(),
            &QItemSelectionModel::currentChanged,
            this,
            [&tables](const QModelIndex &current, const QModelIndex &previous) {
                tables.setCurrentField(current.column());
                if (current.isValid() && current.row() != previous.row())
                    tables.listRowSelected(current.row());
            });
    connect(g_listTable->horizontalHeader(),
            &QHeaderView::sectionResized,
            this,
            [this, &tables](int column, int, int width) {
                if (!g_applyingWidths)
                    tables.columnDidResize(column, width);
            });
    connect(
        &tables.listTableModel(), &QAbstractItemModel::modelReset, this, &EditorWindow::applyColumnWidths);

    for (const CellDelegate *delegate : {basicDelegate, listDelegate}) {
        connect(
            delegate, &CellDelegate::textEdited, &g_controller, &EditorWindowController::cellTextDidChange);
        // A search goes on behind the field that was edited last.
        connect(delegate, &CellDelegate::editingBegan, this, [this, &tables](const QModelIndex &index) {
            const bool isBasic = g_controller.isBasicView();
            g_controller.setLastHitField(isBasic ? index.row() : tables.fieldForListColumn(index.column()));
        });
    }
    g_tables->addWidget(g_basicTable);
    g_tables->addWidget(g_listTable);
    followTables();
}

void EditorWindow::buildTextArea()
{
    auto *area = new QWidget(this);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    g_textTitle = new QLabel(area);
    g_textTitle->setContentsMargins(8, 4, 8, 4);
    g_textTitle->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(g_textTitle);
    g_ruler = new FreeformRuler(area);
    g_ruler->hide();
    layout->addWidget(g_ruler);
    g_text = new FreeformTextEdit(area);
    g_text->setObjectName(u"freeformTextView"_s);
    g_textTitle->setBuddy(g_text);
    layout->addWidget(g_text, 1);
    followText();

    constexpr int smallestPane = 21;
    g_splitter = new QSplitter(Qt::Vertical, this);
    g_splitter->setChildrenCollapsible(false);
    g_tables->setMinimumHeight(smallestPane);
    area->setMinimumHeight(smallestPane);
    g_splitter->addWidget(g_tables);
    g_splitter->addWidget(area);
    g_splitter->setStretchFactor(0, 0);
    g_splitter->setStretchFactor(1, 1);
    connect(g_splitter, &QSplitter::splitterMoved, this, [this](int position) {
        g_wantedSplitHeight = position;
        g_controller.viewGeometryDidChange();
    });
}

QAction *EditorWindow::actionFor(const QString &selector)
{
    if (QAction *made = g_actions.value(selector))
        return made;
    const Command *command = commandForSelector(selector);
    if (!command)
        return nullptr;
    auto *action = new QAction(QCoreApplication::translate("Commands", command->text), this);
    action->setObjectName(selector);
    if (*command->shortcut)
        action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(command->shortcut)));
    if (*command->icon)
        action->setIcon(imageNamed(QString::fromLatin1(command->icon)));
    action->setCheckable(command->isOn != nullptr);
    connect(action, &QAction::triggered, &g_controller, [this, run = command->run] { run(g_controller); });
    g_actions.insert(selector, action);
    return action;
}

void EditorWindow::buildMenus(ApplicationMenus &menus)
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    menus.addOpeningItems(*file);
    file->addSeparator();
    QAction *close = file->addAction(tr("&Close"), this, &QWidget::close);
    close->setShortcut(Qt::CTRL | Qt::Key_W);
    addCommands(file, fileCommands());
    addCommands(file, backupCommands());
    file->addSeparator();
    menus.addImportMenu(*file, &g_controller);
    addCommands(file->addMenu(tr("E&xport")), exportCommands());
    file->addSeparator();
    menus.addQuitItem(*file);

    buildEditMenu();
    buildViewMenu();
    addCommands(menuBar()->addMenu(tr("&Record")), recordCommands());
    addCommands(menuBar()->addMenu(tr("Fie&lds")), fieldCommands());
    addCommands(menuBar()->addMenu(tr("&Select")), selectCommands());
    buildSortMenu();
    buildFormatMenu();
    QMenu *find = menuBar()->addMenu(tr("F&ind"));
    addCommands(find, findCommands());
    menus.addFindItems(*find);
    QAction *multiFileFind = menus.addMultiFileFindItem(*find);
    g_actions.insert(multiFileFind->objectName(), multiFileFind);
    menus.addDatafilesMenu(*menuBar());
    menus.addWindowMenu(*menuBar());
    menus.addHelpMenu(*menuBar());
}

void EditorWindow::addCommands(QMenu *menu, std::span<const Command> commands)
{
    for (const Command &command : commands) {
        if (*command.selector)
            menu->addAction(actionFor(QString::fromLatin1(command.selector)));
        else
            menu->addSeparator();
    }
}

void EditorWindow::buildSortMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("S&ort"));
    addCommands(menu, sortCommands());
    g_sortTasksMenu = new QMenu(tr("Sort Tas&ks"), this);
    menu->insertMenu(actionFor(u"saveSortTask:"_s), g_sortTasksMenu);
    connect(menu, &QMenu::aboutToShow, this, [this] {
        g_sortTasksMenu->setEnabled(g_controller.validateAction(u"sortTask:"_s));
    });
    connect(g_sortTasksMenu, &QMenu::aboutToShow, this, [this] {
        g_sortTasksMenu->clear();
        for (const QString &name : g_controller.sorting().sortTaskNames()) {
            QString text = name;
            g_sortTasksMenu->addAction(text.replace(u'&', u"&&"_s), &g_controller, [this, name] {
                g_controller.sorting().runSortTask(name);
            });
        }
    });
}

/// A column's own menu: sorting by it. By keyboard it comes at the cell that is the current one, whose record
/// it is for as well.
void EditorWindow::buildColumnMenu()
{
    QHeaderView *header = g_listTable->horizontalHeader();
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::customContextMenuRequested, this, [this, header](const QPoint &position) {
        showColumnMenu(header->logicalIndexAt(position), header->mapToGlobal(position), false);
    });
    g_listTable->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(g_listTable, &QWidget::customContextMenuRequested, this, [this](const QPoint &position) {
        showColumnMenu(g_listTable->columnAt(position.x()),
                       g_listTable->viewport()->mapToGlobal(position),
                       g_listTable->indexAt(position).isValid());
    });
}

void EditorWindow::buildViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    auto *group = new QActionGroup(this);
    const auto add = [&](const QString &text, const QString &image, Qt::Key key, const QString &mode) {
        QAction *action = menu->addAction(imageNamed(image), text);
        action->setCheckable(true);
        action->setShortcut(Qt::CTRL | key);
        group->addAction(action);
        connect(action, &QAction::triggered, &g_controller, [this, mode] { g_controller.setMode(mode); });
        return action;
    };
    g_basicViewAction = add(tr("&Basic View"), u"TB_C_basicView"_s, Qt::Key_1, u"Basic"_s);
    g_listViewAction = add(tr("&List View"), u"TB_C_listView"_s, Qt::Key_2, u"List"_s);
    addCommands(menu, viewCommands().first(3));
    buildTextScaleMenu(*menu);
    addCommands(menu, viewCommands().subspan(3));
}

void EditorWindow::buildFinding()
{
    addToolBarBreak();
    QToolBar *row = addToolBar(tr("Find"));
    row->setObjectName(u"findRow"_s);
    row->setMovable(false);
    g_findBox = new FindBox(g_controller.search(), row);
    row->addWidget(g_findBox);
    connect(&g_controller.document().undoHistory(), &UndoHistory::changed, g_findBox, &FindBox::forgetTyping);
    // An item of the toolbar that has a row of its own, where there is room for it.
    const auto update = [this, row] {
        row->setVisible(
            g_toolbarController->items().contains(QLatin1StringView(EditorToolbarController::FindBox)));
    };
    connect(g_toolbarController.get(), &EditorToolbarController::itemsChanged, row, update);
    update();
    g_findView = std::make_unique<WindowFindView>(
        *g_findBox, *g_text, [this]() -> RecordTableView & { return visibleTable(); });
    g_controller.search().attachView(*g_findView);
    auto *count = new FindCountLine(*statusBar(), g_findBox->entry());
    connect(&g_controller.search(), &EditorSearchController::counted, count, &FindCountLine::show);
}

void EditorWindow::buildStatusBar()
{
    const auto makeButton = [this](const QString &toolTip) {
        auto *button = new QToolButton(this);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setToolTip(toolTip);
        button->setPopupMode(QToolButton::InstantPopup);
        auto *menu = new QMenu(button);
        button->setMenu(menu);
        statusBar()->addPermanentWidget(button);
        return button;
    };
    buildLockButton();
    g_readOnlyMark = new QLabel(tr("Read-only"), this);
    g_readOnlyMark->setToolTip(tr("Changes cannot be saved in this datafile; Save As writes another one"));
    statusBar()->addPermanentWidget(g_readOnlyMark);

    g_recordNumberButton = makeButton(tr("The number of the record shown"));
    for (const char *selector : {"goToFirstRecord:",
                                 "goToPreviousRecord:",
                                 "goToNextRecord:",
                                 "goToLastRecord:",
                                 "goToRecordNumber:"})
        g_recordNumberButton->menu()->addAction(actionFor(QString::fromLatin1(selector)));
    g_selectionButton = makeButton(tr("How many of the records are selected"));
    addCommands(g_selectionButton->menu(), selectCommands());
}

void EditorWindow::updateOperations()
{
    for (auto action = g_actions.cbegin(); action != g_actions.cend(); ++action) {
        action.value()->setEnabled(g_controller.validateAction(action.key()));
        if (const Command *command = commandForSelector(action.key()); command && command->isOn)
            action.value()->setChecked(command->isOn(g_controller));
    }
    const bool canSwitch = g_controller.validateAction(u"switchView:"_s);
    g_basicViewAction->setEnabled(canSwitch);
    g_listViewAction->setEnabled(canSwitch);
}

} // namespace tavrin
