// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/GotoRecordSheetController.h"

#include <QLocale>

namespace tavrin {

void GotoRecordSheetController::setEntry(const QString &entry)
{
    g_entry = entry;
    Q_EMIT changed();
}

qint64 GotoRecordSheetController::index() const
{
    bool isNumber = false;
    const qint64 number = QLocale().toLongLong(g_entry.trimmed(), &isNumber);
    return isNumber && number >= 1 && number <= g_maximum ? number - 1 : -1;
}

} // namespace tavrin
