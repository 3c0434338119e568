// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/QVSheetController.h"

namespace tavrin {

void QVSheetController::accept()
{
    if (isAcceptable())
        finish(FirstButton);
}

void QVSheetController::finish(int returnCode)
{
    if (g_finished)
        return;
    g_finished = true;
    Q_EMIT closed();
    Q_EMIT finished(returnCode);
}

} // namespace tavrin
