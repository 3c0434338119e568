// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// A window's toolbar, text scale, record information and clone.

#include "editor/EditorTableController.h"
#include "editor/EditorToolbarController.h"
#include "editor/RecordInfoPaletteController.h"
#include "editor/Spelling.h"
#include "model/Preferences.h"
#include "ui/CellEditor.h"
#include "ui/Commands.h"
#include "ui/CustomizeToolbarDialog.h"
#include "ui/EditorToolbar.h"
#include "ui/EditorWindow.h"
#include "ui/FieldWrapping.h"
#include "ui/FreeformTextEdit.h"
#include "ui/Icons.h"
#include "ui/KeyboardFocus.h"
#include "ui/RecordTableView.h"
#include "ui/SpellingMarks.h"
#include "ui/WindowFrame.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

/// The wheel with Ctrl scales the texts, over whichever of them the pointer is.
class WheelScaling : public QObject
{
public:
    WheelScaling(EditorWindowController &controller, QObject *parent)
        : QObject(parent)
        , g_controller(controller)
    {}

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel)
            return QObject::eventFilter(object, event);
        const auto *wheel = static_cast<QWheelEvent *>(event);
        if (!wheel->modifiers().testFlag(Qt::ControlModifier))
            return false;
        g_turned += wheel->angleDelta().y();
        const int steps = g_turned / QWheelEvent::DefaultDeltasPerStep;
        g_turned -= steps * QWheelEvent::DefaultDeltasPerStep;
        g_controller.setTextScale(g_controller.textScaleTag() + steps);
        return true;
    }

private:
    EditorWindowController &g_controller;
    int g_turned = 0;
};

} // namespace

// Toolbar.

void EditorWindow::buildToolbar()
{
    g_toolbarController =
        std::make_unique<EditorToolbarController>(g_controller.preferences(), [](const QString &selector) {
            return commandForSelector(selector)
                   || selector == QLatin1StringView(EditorToolbarController::FindBox);
        });
    g_toolbar = new EditorToolbar(
        *g_toolbarController, [this](const QString &selector) { return actionFor(selector); }, this);
    addToolBar(g_toolbar);
    g_toolbar->build();
    connect(
        g_toolbar, &EditorToolbar::customizeRequested, this, [this] { doForView(u"customizeToolbar:"_s); });
    followToolbar();
}

void EditorWindow::followToolbar()
{
    for (const char *selector : {"toggleToolbarShown:", "toggleToolbarStyle:", "toggleSpellChecking:"})
        actionFor(QString::fromLatin1(selector))->setCheckable(true);
    connect(g_toolbarController.get(),
            &EditorToolbarController::toolbarStyleChanged,
            this,
            &EditorWindow::updateToolbar);
}

/// The toolbar shows the way to the other view.
void EditorWindow::updateToolbar()
{
    const bool basic = g_controller.isBasicView();
    g_toolbar->setOtherView(basic ? u"listView"_s : u"basicView"_s,
                            basic ? tr("List View") : tr("Basic View"));
    constexpr qint64 compactLocation = 6;
    g_toolbar->setCompact(g_controller.document().datafileSettings().toolbarLocation() == compactLocation);
    actionFor(u"toggleToolbarShown:"_s)->setChecked(g_toolbarController->isShown());
    actionFor(u"toggleToolbarStyle:"_s)->setChecked(g_toolbarController->isColored());
    actionFor(u"toggleSpellChecking:"_s)
        ->setChecked(!g_controller.preferences().boolForKey(u"GeneralSpellCheckerOff"_s));
}

// Commands that are the window's own.

void EditorWindow::followView()
{
    connect(&g_controller, &EditorWindowController::viewAsked, this, &EditorWindow::doForView);
    connect(&g_controller, &EditorWindowController::textScaleChanged, this, [this] {
        g_textScaleActions->actions().at(g_controller.textScaleTag())->setChecked(true);
        applyColumnWidths();
    });
    connect(&g_controller, &EditorWindowController::cloneWindowRequested, this, &EditorWindow::openClone);
    connect(&g_controller, &EditorWindowController::cloneWindowMustClose, this, &EditorWindow::closeClone);
    auto *scaling = new WheelScaling(g_controller, this);
    for (QAbstractScrollArea *area :
         std::initializer_list<QAbstractScrollArea *>{g_text, g_basicTable, g_listTable})
        area->viewport()->installEventFilter(scaling);
}

void EditorWindow::doForView(const QString &selector)
{
    Preferences &preferences = g_controller.preferences();
    if (selector == "customizeToolbar:"_L1) {
        auto *dialog = new CustomizeToolbarDialog(*g_toolbarController, this);
        dialog->setWindowModality(Qt::WindowModal);
        dialog->open();
    } else if (selector == "toggleToolbarShown:"_L1) {
        g_toolbarController->setShown(!g_toolbarController->isShown());
    } else if (selector == "toggleToolbarStyle:"_L1) {
        g_toolbarController->toggleToolbarStyle();
    } else if (selector == "toggleSpellChecking:"_L1) {
        preferences.setObject(!preferences.boolForKey(u"GeneralSpellCheckerOff"_s),
                              u"GeneralSpellCheckerOff"_s);
        updateToolbar();
    } else if (selector == "updateLineWrapping:"_L1) {
        g_fieldWrapping->update();
    } else if (selector == "showRecordInfo:"_L1 && g_recordInfo) {
        g_recordInfo->setShown(!g_recordInfo->isShown());
    }
}

void EditorWindow::buildTextMenu(QMenu &menu)
{
    addCommands(&menu, textCommands());
}

void EditorWindow::buildTextScaleMenu(QMenu &menu)
{
    QMenu *sizes = menu.addMenu(tr("Te&xt Size"));
    const auto step = [&](const QString &text, const QKeySequence &keys, const std::function<int()> &tag) {
        QAction *action =
            sizes->addAction(text, &g_controller, [this, tag] { g_controller.setTextScale(tag()); });
        action->setShortcut(keys);
    };
    step(tr("&Larger"), QKeySequence::ZoomIn, [this] { return g_controller.textScaleTag() + 1; });
    step(tr("&Smaller"), QKeySequence::ZoomOut, [this] { return g_controller.textScaleTag() - 1; });
    step(tr("&Usual Size"), Qt::CTRL | Qt::Key_0, [] { return usualTextScaleTag; });
    sizes->addSeparator();
    g_textScaleActions = new QActionGroup(this);
    for (int tag = 0; tag <= lastTextScaleTag; ++tag) {
        QAction *action = sizes->addAction(tr("%1 %").arg(textScalePercents.at(static_cast<size_t>(tag))),
                                           &g_controller,
                                           [this, tag] { g_controller.setTextScale(tag); });
        action->setCheckable(true);
        action->setChecked(tag == usualTextScaleTag);
        g_textScaleActions->addAction(action);
    }
}

void EditorWindow::setTextScale(double scale)
{
    g_text->setTextScale(scale);
    updateRuler();
}

void EditorWindow::insertTyped(const QString &text)
{
    if (isCellEditor(g_focus->widget())) {
        insertInCell(g_focus->widget(), text);
    } else if (!g_text->isReadOnly()) {
        g_text->insertTyped(text);
    }
}

std::pair<int, int> EditorWindow::cellTextSelection() const
{
    const QWidget *widget = g_focus->widget();
    return g_tables->isAncestorOf(widget) ? cellSelection(widget) : std::pair(-1, 0);
}

void EditorWindow::setCellTextSelection(int start, int length)
{
    if (g_tables->isAncestorOf(focusWidget()))
        selectInCell(focusWidget(), start, length);
}

// Record information and the lock.

void EditorWindow::setRecordInfoPalette(RecordInfoPaletteController &palette)
{
    g_recordInfo = &palette;
    updateRecordInfo();
}

void EditorWindow::updateRecordInfo()
{
    if (g_recordInfo && isActiveWindow())
        g_recordInfo->setRecord(g_controller.windowTitle() + u"  "_s + g_controller.recordNumberText(),
                                g_controller.recordInfo());
}

void EditorWindow::buildLockButton()
{
    g_recordLocked = new QToolButton(this);
    g_recordLocked->setAutoRaise(true);
    g_recordLocked->setFocusPolicy(Qt::TabFocus);
    // Where records can be locked, a click does it; else the button only says how it is.
    if (QAction *toggle = actionFor(u"toggleRecordLocked:"_s))
        connect(g_recordLocked, &QToolButton::clicked, toggle, &QAction::trigger);
    statusBar()->addPermanentWidget(g_recordLocked);
}

void EditorWindow::updateLockButton()
{
    const bool locked = g_controller.currentRecordLocked();
    g_recordLocked->setIcon(imageNamed(locked ? u"TB_C_recordlocked"_s : u"TB_C_recordunlocked"_s));
    const QString state = locked ? tr("This record is locked") : tr("This record is not locked");
    g_recordLocked->setToolTip(state);
    g_recordLocked->setAccessibleName(state);
}

// Spelling.

void EditorWindow::setSpelling(Spelling &spelling)
{
    g_spelling = &spelling;
    spelling.prepare();
    new SpellingMarks(*g_text, g_text->marks(), spelling);
}

// The clone.

void EditorWindow::openClone()
{
    if (g_clone) {
        g_clone->bringToFront();
        return;
    }
    g_clone = std::make_unique<EditorWindow>(CloneOf{*this});
    if (g_recordInfo)
        g_clone->setRecordInfoPalette(*g_recordInfo);
    if (g_spelling)
        g_clone->setSpelling(*g_spelling);
    connect(&g_clone->controller(),
            &EditorWindowController::closeAllowed,
            this,
            &EditorWindow::closeClone,
            Qt::QueuedConnection);
    constexpr QPoint beside(32, 32);
    const QRect room = screen()->availableGeometry().marginsRemoved(decorationOf(*this));
    g_clone->setGeometry(fittedFrame(geometry().translated(beside), room));
    g_clone->bringToFront();
}

void EditorWindow::closeClone()
{
    g_clone.reset();
}

} // namespace tavrin
