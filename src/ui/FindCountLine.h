// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QLineEdit;
class QStatusBar;

namespace tavrin {

/// The line of a status bar that tells how many records hold the find box's keys. It comes when the person
/// types, or with the focus in the find box, and then never in the place of another message.
class FindCountLine : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the bar. The entry outlives it.
    FindCountLine(QStatusBar &bar, const QLineEdit &entry);

    /// An empty line takes the last one away.
    void show(const QString &line);

private:
    QStatusBar &g_bar;
    const QLineEdit &g_entry;
    QString g_line; ///< The last one shown.
    bool g_isAwaited = false;
};

} // namespace tavrin
