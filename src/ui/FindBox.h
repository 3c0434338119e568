// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/EditorSearchController.h"

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace tavrin {

/// The find box of an editor window: its text, the buttons that search forwards and backwards, or select, and
/// the one that toggles between the modes. It fits into any row.
class FindBox : public QWidget
{
    Q_OBJECT

public:
    /// The controller outlives it.
    explicit FindBox(EditorSearchController &controller, QWidget *parent = nullptr);

    QLineEdit &entry() { return *g_entry; }
    const QLineEdit &entry() const { return *g_entry; }

    /// What was typed stays, but is no longer for Undo to take back: something else was done since.
    void forgetTyping();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QToolButton *addButton(const QString &name);
    void updateModes();
    void showToggleMenu(const QPoint &position);

    EditorSearchController &g_controller;
    QLineEdit *g_entry;
    QToolButton *g_reverse = nullptr;
    QToolButton *g_forward = nullptr;
    QToolButton *g_toggle = nullptr;
};

} // namespace tavrin
