// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tavrin {

/// The widget of a window that has the keyboard, or had it until a menu took it: what the menu's commands are
/// for.
class KeyboardFocus : public QObject
{
public:
    explicit KeyboardFocus(QWidget &window);

    /// Null when no widget of the window had it yet.
    QWidget *widget() const;

private:
    QPointer<QWidget> g_widget;
};

} // namespace tavrin
