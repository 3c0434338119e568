// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/EditMenu.h"

#include "ui/EditorWindow.h"
#include "ui/KeyboardFocus.h"
#include "ui/TextState.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QMimeData>
#include <QShortcut>
#include <QTextEdit>

#include <map>

namespace tavrin {

namespace {

constexpr const char *shownKey = "shownKey";

bool takesFormats(const QWidget *widget)
{
    const auto *text = qobject_cast<const QTextEdit *>(widget);
    return text && text->canPaste();
}

/// What the focused text allows now, by the name of its slot.
std::map<QByteArray, bool> allowedIn(const QWidget *widget)
{
    const auto text = textStateOf(widget);
    if (!text)
        return {};
    const QMimeData *clipboard = QApplication::clipboard()->mimeData();
    return {{"undo", text->canUndo && text->writable},
            {"redo", text->canRedo && text->writable},
            {"cut", text->hasSelection && text->writable},
            {"copy", text->hasSelection},
            {"paste", text->writable && clipboard && (clipboard->hasText() || takesFormats(widget))},
            {"selectAll", true}};
}

} // namespace

EditMenu::EditMenu(EditorWindowController &controller, const KeyboardFocus &focus, QWidget *window)
    : QMenu(tr("&Edit"), window)
    , g_controller(controller)
    , g_focus(focus)
{
    g_undo = addCommand(tr("&Undo"), QKeySequence::Undo, "undo");
    g_redo = addCommand(tr("&Redo"), QKeySequence::Redo, "redo");
    addSeparator();
    addCommand(tr("Cu&t"), QKeySequence::Cut, "cut");
    addCommand(tr("&Copy"), QKeySequence::Copy, "copy");
    addCommand(tr("&Paste"), QKeySequence::Paste, "paste");
    addSeparator();
    addCommand(tr("Select &All"), QKeySequence::SelectAll, "selectAll");
    connect(this, &QMenu::aboutToShow, this, &EditMenu::updateCommands);
    // A text with typing of its own to take back catches the key before these do. The actions only show it:
    // while the menu bar has the keyboard, theirs would be a second one.
    for (QAction *action : {g_undo, g_redo}) {
        const QKeySequence key = action->shortcut();
        action->setShortcut({});
        action->setProperty(shownKey, u'\t' + key.toString(QKeySequence::NativeText));
        connect(new QShortcut(key, window), &QShortcut::activated, this, [this, action] {
            run(action->data().toByteArray());
        });
    }
}

QAction *EditMenu::addCommand(const QString &text, QKeySequence::StandardKey key, const char *slot)
{
    QAction *action = addAction(text);
    // Shown only: the focused text takes these keys itself, in whatever state the menu was last seen.
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setData(QByteArray(slot));
    action->setObjectName(QString::fromLatin1(slot) + u':');
    connect(action, &QAction::triggered, this, [this, slot] { run(slot); });
    return action;
}

/// A panel's field, too, while its window has the keyboard.
QWidget *EditMenu::focused() const
{
    QWidget *widget = QApplication::focusWidget();
    return !widget || qobject_cast<QMenuBar *>(widget) ? g_focus.widget() : widget;
}

void EditMenu::run(const QByteArray &slot)
{
    QWidget *widget = focused();
    const auto allowed = allowedIn(widget);
    const auto found = allowed.find(slot);
    if (found != allowed.end() && found->second)
        QMetaObject::invokeMethod(widget, slot.constData());
    else if (slot == "undo")
        g_controller.undo();
    else if (slot == "redo")
        g_controller.redo();
}

void EditMenu::updateCommands()
{
    const auto allowed = allowedIn(focused());
    const auto isAllowed = [&allowed](const QByteArray &slot) {
        const auto found = allowed.find(slot);
        return found != allowed.end() && found->second;
    };
    for (QAction *action : actions()) {
        // Those without a slot are the window's commands.
        if (action->data().isValid())
            action->setEnabled(isAllowed(action->data().toByteArray()));
    }
    updateUndo(g_undo, tr("&Undo"), isAllowed("undo"), g_controller.undoName());
    updateUndo(g_redo, tr("&Redo"), isAllowed("redo"), g_controller.redoName());
}

/// Names what would be taken back: the typing comes first.
void EditMenu::updateUndo(QAction *action, const QString &verb, bool textCan, const QString &step)
{
    const bool isStep = !textCan && !step.isEmpty();
    action->setText((isStep ? verb + u' ' + step : verb) + action->property(shownKey).toString());
    action->setEnabled(textCan || isStep);
}

void EditorWindow::buildEditMenu()
{
    auto *menu = new EditMenu(g_controller, *g_focus, this);
    menuBar()->addMenu(menu);
    buildTextMenu(*menu);
}

} // namespace tavrin
