// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/GotoRecordSheetController.h"

#include <QLocale>

namespace tavrin {

GotoRecordSheetController::GotoRecordSheetController(qint64 maximum, TitleSearch search)
    : g_maximum(maximum)
    , g_search(std::move(search))
{}

void GotoRecordSheetController::setEntry(const QString &entry)
{
    g_entry = entry;
    g_found = -1;
    g_notFound = false;
    Q_EMIT changed();
}

std::optional<qint64> GotoRecordSheetController::number() const
{
    bool isNumber = false;
    const qint64 number = QLocale().toLongLong(g_entry.trimmed(), &isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

qint64 GotoRecordSheetController::index() const
{
    const std::optional<qint64> entered = number();
    if (entered && *entered >= 1 && *entered <= g_maximum)
        return *entered - 1;
    return g_found;
}

QString GotoRecordSheetController::problem() const
{
    if (g_notFound)
        return tr("No selected record has a title that begins so.");
    const std::optional<qint64> entered = number();
    const bool isTitle = g_search && !entered;
    return g_entry.trimmed().isEmpty() || isTitle || index() >= 0
               ? QString()
               : tr("The records have the numbers 1 to %1.").arg(QLocale().toString(g_maximum));
}

bool GotoRecordSheetController::isAcceptable() const
{
    if (g_entry.trimmed().isEmpty() || g_notFound)
        return false;
    return index() >= 0 || (g_search && !number());
}

void GotoRecordSheetController::accept()
{
    if (isAcceptable() && index() < 0) {
        g_found = g_search(g_entry.trimmed());
        g_notFound = g_found < 0;
        Q_EMIT changed();
    }
    QVSheetController::accept();
}

} // namespace tavrin
