// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortSheetController.h"

namespace tavrin {

void SortSheetController::setDescending(bool descending)
{
    g_criteria.setDescending(descending);
    tellChanged();
}

void SortSheetController::setCaseSensitive(bool caseSensitive)
{
    g_criteria.setCaseSensitive(caseSensitive);
    tellChanged();
}

void SortSheetController::setFirstResults(const QStringList &results)
{
    g_firstResults = results;
    Q_EMIT firstResultsChanged();
}

void SortSheetController::tellChanged()
{
    Q_EMIT changed();
    Q_EMIT criteriaChanged();
}

} // namespace tavrin
