// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/RecordHistory.h"

namespace tavrin {

void RecordHistory::insert(const QString &identifier)
{
    // The position can stand behind the end where the window opened without a record to show.
    if (g_identifiers.size() >= 2)
        g_identifiers = g_identifiers.first(qMin(g_position + 1, g_identifiers.size()));
    if (!g_identifiers.isEmpty() && g_identifiers.last() == identifier)
        return;
    g_position = qMin(g_position + 1, qMax<qsizetype>(1, g_identifiers.size()));
    g_identifiers.append(identifier);
}

void RecordHistory::remove(const QString &identifier)
{
    for (qsizetype k = g_identifiers.size() - 1; k >= 1; --k) {
        if (g_identifiers.at(k) != identifier)
            continue;
        g_identifiers.removeAt(k);
        if (g_position >= k)
            --g_position;
    }
}

QString RecordHistory::goBack()
{
    if (g_position == 0)
        return {};
    return g_identifiers.at(--g_position);
}

QString RecordHistory::goForward()
{
    if (g_position >= g_identifiers.size() - 1)
        return {};
    return g_identifiers.at(++g_position);
}

} // namespace tavrin
