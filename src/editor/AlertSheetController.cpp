// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/AlertSheetController.h"

namespace tavrin {

AlertSheetController::AlertSheetController(const QString &messageText,
                                           const QString &informativeText,
                                           const QStringList &buttons)
    : g_messageText(messageText)
    , g_informativeText(informativeText)
    , g_buttons(buttons.isEmpty() ? QStringList{tr("OK")} : buttons)
    , g_cancelButton(g_buttons.size() - 1)
{}

void showAlert(SheetHost &host, const QString &messageText, const QString &informativeText)
{
    host.begin(std::make_unique<AlertSheetController>(messageText, informativeText));
}

} // namespace tavrin
