// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/RecordInfoPaletteController.h"

namespace tavrin {

void RecordInfoPaletteController::setRecord(const QString &title, const QStringList &info)
{
    if (g_title == title && g_info == info)
        return;
    g_title = title;
    g_info = info;
    Q_EMIT changed();
}

void RecordInfoPaletteController::setShown(bool shown)
{
    if (g_shown == shown)
        return;
    g_shown = shown;
    Q_EMIT shownChanged();
}

QString RecordInfoPaletteController::joined(qsizetype which) const
{
    constexpr qsizetype names = 3;
    QStringList parts{g_info.value(which), g_info.value(which + names)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace tavrin
