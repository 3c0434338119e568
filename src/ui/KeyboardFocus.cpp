// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/KeyboardFocus.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>

namespace tavrin {

KeyboardFocus::KeyboardFocus(QWidget &window) : QObject(&window)
{
    connect(qApp, &QApplication::focusChanged, this, [this, &window](const QWidget * /*old*/, QWidget *now) {
        if (now && now->window() == &window && !qobject_cast<QMenuBar *>(now) && !qobject_cast<QMenu *>(now))
            g_widget = now;
    });
}

QWidget *KeyboardFocus::widget() const
{
    QWidget *now = static_cast<QWidget *>(parent())->focusWidget();
    return !now || qobject_cast<QMenuBar *>(now) ? g_widget.data() : now;
}

} // namespace tavrin
