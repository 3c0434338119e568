// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>

namespace tavrin {

class EditorWindowController;
class KeyboardFocus;

/// The Edit menu: its commands go to the text that has the focus, a cell being edited or the text area. When
/// there is no typing to take back, Undo takes back what was done to the datafile.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    /// The focus is that of the window; it outlives the menu.
    EditMenu(EditorWindowController &controller, const KeyboardFocus &focus, QWidget *window);

private:
    QAction *addCommand(const QString &text, QKeySequence::StandardKey key, const char *slot);
    void updateCommands();
    void updateUndo(QAction *action, const QString &verb, bool textCan, const QString &step);
    void run(const QByteArray &slot);

    QWidget *focused() const;

    EditorWindowController &g_controller;
    const KeyboardFocus &g_focus;
    QAction *g_undo = nullptr;
    QAction *g_redo = nullptr;
};

} // namespace tavrin
