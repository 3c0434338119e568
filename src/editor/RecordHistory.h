// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace tavrin {

/// The records viewed in one window, in the order of viewing, and the place in that list of the one shown.
class RecordHistory
{
public:
    /// Visiting a record cuts what lies ahead and appends it, unless it is the last one already.
    void insert(const QString &identifier);

    /// Drops every entry of a deleted record except one at index 0, which is never looked at.
    void remove(const QString &identifier);

    bool canGoBack() const { return g_identifiers.size() >= 2 && g_position != 0; }
    bool canGoForward() const { return g_identifiers.size() >= 2 && g_position < g_identifiers.size() - 1; }

    /// Steps and gives the identifier now at the position; null when there is nowhere to go.
    QString goBack();
    QString goForward();

    /// Called once after the first record was inserted: the first insertion leaves the position at 1.
    void resetPosition() { g_position = 0; }

    QStringList identifiers() const { return g_identifiers; }
    qsizetype position() const { return g_position; }

private:
    QStringList g_identifiers;
    qsizetype g_position = 0;
};

} // namespace tavrin
