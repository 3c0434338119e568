// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/EditorWindow.h"

#include "document/DatafileDocument.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorTableController.h"
#include "editor/EditorToolbarController.h"
#include "ui/CellEditor.h"
#include "ui/DatafileDrop.h"
#include "ui/FreeformTextEdit.h"
#include "ui/KeyboardFocus.h"
#include "ui/RecordTableView.h"
#include "ui/WindowFindView.h"
#include "ui/WindowFrame.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace tavrin {

EditorWindow::EditorWindow(DatafileDocument &document,
                           Preferences &preferences,
                           ApplicationMenus &menus,
                           const QString &firstRecord)
    : g_sheets([this] { return this; })
    , g_work(this)
    , g_controller(document, g_sheets, g_work, preferences)
    , g_menus(menus)
{
    build();
    g_controller.attachView(*this);
    g_controller.prepare(firstRecord);
    updateAll();
}

EditorWindow::EditorWindow(CloneOf original)
    : g_sheets([this] { return this; })
    , g_work(this)
    , g_controller(original.mainWindow.g_controller, g_sheets, g_work)
    , g_menus(original.mainWindow.g_menus)
{
    build();
    g_controller.attachView(*this);
    const RecordData *shown = original.mainWindow.g_controller.currentRecord();
    g_controller.prepare(shown ? shown->identifier() : QString());
    updateAll();
}

void EditorWindow::build()
{
    setAcceptDrops(true);
    g_focus = new KeyboardFocus(*this);
    const QSize room = screen()->availableSize().shrunkBy(decorationOf(*this));
    resize(QSize(860, 620).boundedTo(room));
    buildTables();
    buildTextArea();
    setCentralWidget(g_splitter);
    buildMenus(g_menus);
    buildToolbar();
    buildFinding();
    buildStatusBar();
    followController();
    followView();
}

void EditorWindow::updateAll()
{
    updateMode();
    updateRecord();
    updateStatus();
    updateTitle();
    updateOperations();
}

EditorWindow::~EditorWindow()
{
    // The clone tells this window that it goes: while there is a window to be told.
    g_clone.reset();
    // It loses the focus when the window goes, and tells of it.
    g_text->disconnect(this);
}

void EditorWindow::bringToFront()
{
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

void EditorWindow::followController()
{
    EditorWindowController &controller = g_controller;
    connect(&controller, &EditorWindowController::recordLoaded, this, &EditorWindow::updateRecord);
    connect(&controller, &EditorWindowController::statusChanged, this, &EditorWindow::updateStatus);
    connect(&controller, &EditorWindowController::modeChanged, this, &EditorWindow::updateMode);
    connect(&controller, &EditorWindowController::titleChanged, this, &EditorWindow::updateTitle);
    connect(&controller, &EditorWindowController::operationsChanged, this, &EditorWindow::updateOperations);
    connect(&controller, &EditorWindowController::statusMessage, this, [this](const QString &message) {
        constexpr int shownMilliseconds = 6000;
        statusBar()->showMessage(message, shownMilliseconds);
    });
    connect(&controller, &EditorWindowController::closeAllowed, this, [this] { g_closing = true; });
}

void EditorWindow::updateMode()
{
    const bool basic = g_controller.isBasicView();
    g_tables->setCurrentWidget(basic ? g_basicTable : g_listTable);
    g_basicViewAction->setChecked(basic);
    g_listViewAction->setChecked(!basic);
    if (!basic)
        applyColumnWidths();
    updateToolbar();
}

void EditorWindow::updateRecord()
{
    updateOperations();
    updateStatus();
    updateRecordInfo();
}

void EditorWindow::updateStatus()
{
    g_recordNumberButton->setText(g_controller.recordNumberText());
    g_recordNumberButton->setAccessibleName(tr("Record number: %1").arg(g_controller.recordNumberText()));
    g_selectionButton->setText(g_controller.selectionText());
    g_selectionButton->setAccessibleName(tr("Selection: %1").arg(g_controller.selectionText()));
    updateLockButton();
    g_readOnlyMark->setVisible(g_controller.document().openedReadOnly());
}

void EditorWindow::updateTitle()
{
    QString title = g_controller.windowTitle() + u"[*]"_s;
    if (g_controller.document().openedReadOnly())
        title += tr(" (read-only)");
    setWindowTitle(title + u" — Tavrin"_s);
    setWindowFilePath(g_controller.document().filePath());
    setWindowModified(g_controller.document().isModified());
    g_textTitle->setText(g_controller.textName());
    setTextScale(g_controller.textScale());
    updateToolbar();
    updateTableLooks();
    g_text->setPaperColor(g_controller.freeformBackgroundColor());
    g_text->setMayHaveFormats(g_controller.text().mayHaveFormats(), g_controller.text().mayHaveImages());
    updateStatus();
}

// What the controller asks of the widgets.

bool EditorWindow::pasteIntoFreeformText(bool plain)
{
    if (g_text->isReadOnly())
        return true;
    try {
        if (plain)
            g_text->pasteAsPlainText();
        else
            g_text->paste();
    } catch (const std::bad_alloc &) { // Others may put anything onto the clipboard.
        return false;
    }
    return true;
}

RecordTableView &EditorWindow::visibleTable() const
{
    return g_tables->currentWidget() == g_basicTable ? *g_basicTable : *g_listTable;
}

bool EditorWindow::isTableEditing() const
{
    return visibleTable().isEditing();
}

void EditorWindow::endTableEditing()
{
    g_basicTable->endEditing();
    g_listTable->endEditing();
}

void EditorWindow::selectTableRow(int row)
{
    RecordTableView &table = visibleTable();
    const int column = qMax(0, table.currentIndex().column());
    const QModelIndex index = table.model()->index(row, column);
    // The selection follows the record here; it must not be taken for the person's choice.
    const QSignalBlocker blocked(table.selectionModel());
    table.setCurrentIndex(index);
    if (index.isValid())
        table.scrollTo(index);
    table.viewport()->update();
}

void EditorWindow::editTableCell(int row, int column)
{
    visibleTable().editCell(row, column);
}

void EditorWindow::resumeTableCell(int row, int column)
{
    visibleTable().editCell(row, column);
    // Also in a window that is not the active one.
    if (QWidget *editor = focusWidget(); g_tables->isAncestorOf(editor))
        selectInCell(editor, static_cast<int>(cellText(editor).size()), 0);
}

void EditorWindow::insertIntoCell(const QString &text)
{
    if (QWidget *editor = g_focus->widget(); isCellEditor(editor))
        insertInCell(editor, text);
}

EditorFocus EditorWindow::focus() const
{
    const QWidget *widget = g_focus->widget();
    if (widget == g_text)
        return EditorFocus::FreeformText;
    if (widget && (widget == g_tables || g_tables->isAncestorOf(widget)))
        return EditorFocus::Table;
    return EditorFocus::Elsewhere;
}

void EditorWindow::setFocus(EditorFocus focus)
{
    if (focus == EditorFocus::FreeformText)
        g_text->setFocus();
    else
        visibleTable().setFocus();
}

QString EditorWindow::frame() const
{
    return frameString(geometry(), screen()->availableGeometry());
}

void EditorWindow::setFrame(const QString &frame)
{
    QRect available = screen()->availableGeometry();
    // On the screen where it was, if that is still there.
    for (const QScreen *other : QGuiApplication::screens()) {
        if (screenFromString(frame) == other->availableGeometry())
            available = other->availableGeometry();
    }
    const auto wanted = frameFromString(frame, available);
    if (!wanted)
        return;
    // What was there before may be there again; else the title bar has to be on the screen, too.
    const bool fits = available.contains(*wanted);
    setGeometry(fits ? *wanted : fittedFrame(*wanted, available.marginsRemoved(decorationOf(*this))));
}

double EditorWindow::splitHeight() const
{
    // As set or dragged: what a resize of the window makes of it for a moment is nobody's choice.
    return g_wantedSplitHeight;
}

void EditorWindow::setSplitHeight(double height)
{
    g_wantedSplitHeight = height;
    // Before the first layout there is no height to share out; showEvent() comes back to it.
    if (isVisible())
        applySplitHeight();
}

void EditorWindow::applySplitHeight()
{
    constexpr int smallest = 21;
    const int whole = qMax(g_splitter->height(), 2 * smallest);
    // Until somebody moved it: just enough for the fields, and about half of the window for a list.
    const int fields = g_basicTable->verticalHeader()->length() + 2;
    const int usual = g_controller.isBasicView() ? qMin(fields, whole * 3 / 5) : whole / 2;
    const int wanted = g_wantedSplitHeight < 0 ? usual : qRound(g_wantedSplitHeight);
    const int top = qBound(smallest, wanted, whole - smallest);
    g_splitter->setSizes({top, whole - top});
}

// Events.

void EditorWindow::closeEvent(QCloseEvent *event)
{
    if (g_closing) {
        event->accept();
        return;
    }
    event->ignore();
    g_controller.requestClose();
}

void EditorWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        g_controller.windowDidBecomeMain();
        updateRecordInfo();
        Q_EMIT activated();
    }
}

void EditorWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    // Once the window has the height that it will have.
    QMetaObject::invokeMethod(this, &EditorWindow::applySplitHeight, Qt::QueuedConnection);
}

void EditorWindow::moveEvent(QMoveEvent *event)
{
    QMainWindow::moveEvent(event);
    if (isVisible())
        g_controller.viewGeometryDidChange();
}

void EditorWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (isVisible())
        g_controller.viewGeometryDidChange();
}

void EditorWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedDatafiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void EditorWindow::dropEvent(QDropEvent *event)
{
    Q_EMIT datafilesDropped(droppedDatafiles(*event->mimeData()));
}

} // namespace tavrin
