// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>

namespace tavrin {

/// The Edit menu: its commands go to the text that has the focus, a cell being edited or the text area.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    explicit EditMenu(QWidget *window);

private:
    void addCommand(const QString &text, QKeySequence::StandardKey key, const char *slot);
    void updateCommands();
};

} // namespace tavrin
