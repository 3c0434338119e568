// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/EditMenu.h"

#include "ui/EditorWindow.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QTextEdit>

#include <map>

namespace tavrin {

namespace {

/// What the focused text allows now, by the name of its slot.
std::map<QByteArray, bool> allowedIn(const QWidget *widget)
{
    bool canUndo = false;
    bool canRedo = false;
    bool hasSelection = false;
    bool writable = false;
    if (const auto *line = qobject_cast<const QLineEdit *>(widget)) {
        canUndo = line->isUndoAvailable();
        canRedo = line->isRedoAvailable();
        hasSelection = line->hasSelectedText();
        writable = !line->isReadOnly();
    } else if (const auto *text = qobject_cast<const QTextEdit *>(widget)) {
        canUndo = text->document()->isUndoAvailable();
        canRedo = text->document()->isRedoAvailable();
        hasSelection = text->textCursor().hasSelection();
        writable = !text->isReadOnly();
    } else {
        return {};
    }
    const QMimeData *clipboard = QApplication::clipboard()->mimeData();
    return {{"undo", canUndo && writable},
            {"redo", canRedo && writable},
            {"cut", hasSelection && writable},
            {"copy", hasSelection},
            {"paste", writable && clipboard && clipboard->hasText()},
            {"selectAll", true}};
}

} // namespace

EditMenu::EditMenu(QWidget *window) : QMenu(tr("&Edit"), window)
{
    addCommand(tr("&Undo"), QKeySequence::Undo, "undo");
    addCommand(tr("&Redo"), QKeySequence::Redo, "redo");
    addSeparator();
    addCommand(tr("Cu&t"), QKeySequence::Cut, "cut");
    addCommand(tr("&Copy"), QKeySequence::Copy, "copy");
    addCommand(tr("&Paste"), QKeySequence::Paste, "paste");
    addSeparator();
    addCommand(tr("Select &All"), QKeySequence::SelectAll, "selectAll");
    connect(this, &QMenu::aboutToShow, this, &EditMenu::updateCommands);
}

void EditMenu::addCommand(const QString &text, QKeySequence::StandardKey key, const char *slot)
{
    QAction *action = addAction(text);
    // Shown only: the focused text takes these keys itself, in whatever state the menu was last seen.
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setData(QByteArray(slot));
    connect(action, &QAction::triggered, this, [slot] {
        if (QWidget *widget = QApplication::focusWidget())
            QMetaObject::invokeMethod(widget, slot);
    });
}

void EditMenu::updateCommands()
{
    const auto allowed = allowedIn(QApplication::focusWidget());
    for (QAction *action : actions()) {
        const auto found = allowed.find(action->data().toByteArray());
        if (!action->isSeparator())
            action->setEnabled(found != allowed.end() && found->second);
    }
}

void EditorWindow::buildEditMenu()
{
    menuBar()->addMenu(new EditMenu(this));
}

} // namespace tavrin
