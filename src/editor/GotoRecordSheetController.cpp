// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/GotoRecordSheetController.h"

#include <QLocale>

#include <utility>

namespace tavrin {

GotoRecordSheetController::GotoRecordSheetController(qint64 maximum,
                                                     Purpose purpose,
                                                     std::unique_ptr<TitleSearch> search,
                                                     const QString &titleName)
    : g_maximum(maximum)
    , g_purpose(purpose)
    , g_search(std::move(search))
    , g_titleName(titleName)
{
    if (g_search)
        connect(g_search.get(), &TitleSearch::found, this, &GotoRecordSheetController::searched);
}

void GotoRecordSheetController::setEntry(const QString &entry)
{
    g_entry = entry;
    g_found = -1;
    g_notFound = false;
    if (std::exchange(g_isSearching, false))
        g_search->cancel();
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
    if (g_isSearching)
        return tr("Looking for “%1” that begins so…").arg(g_titleName);
    if (g_notFound)
        return tr("In no selected record “%1” begins so.").arg(g_titleName);
    const std::optional<qint64> entered = number();
    const bool isTitle = g_search && !entered;
    return g_entry.trimmed().isEmpty() || isTitle || index() >= 0
               ? QString()
               : tr("The records have the numbers 1 to %1.").arg(QLocale().toString(g_maximum));
}

bool GotoRecordSheetController::isAcceptable() const
{
    if (g_entry.trimmed().isEmpty() || g_notFound || g_isSearching)
        return false;
    return index() >= 0 || (g_search && !number());
}

void GotoRecordSheetController::accept()
{
    if (!isAcceptable() || index() >= 0) {
        QVSheetController::accept();
        return;
    }
    g_isSearching = true;
    g_search->find(g_entry.trimmed());
    Q_EMIT changed();
}

void GotoRecordSheetController::searched(qint64 index)
{
    g_isSearching = false;
    g_found = index;
    g_notFound = index < 0;
    Q_EMIT changed();
    QVSheetController::accept();
}

} // namespace tavrin
