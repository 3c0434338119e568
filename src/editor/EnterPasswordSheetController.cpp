// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EnterPasswordSheetController.h"

namespace tavrin {

void EnterPasswordSheetController::setEntry(const QString &entry)
{
    g_entry = entry;
    Q_EMIT changed();
}

void EnterPasswordSheetController::accept()
{
    if (!isAcceptable())
        return;
    if (g_entry != g_password) {
        Q_EMIT wrongPassword();
        return;
    }
    g_goodPasswordEntered = true;
    finish(FirstButton);
}

} // namespace tavrin
