// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FindCountLine.h"

#include <QLineEdit>
#include <QStatusBar>

namespace tavrin {

FindCountLine::FindCountLine(QStatusBar &bar, const QLineEdit &entry)
    : QObject(&bar)
    , g_bar(bar)
    , g_entry(entry)
{
    connect(&entry, &QLineEdit::textChanged, this, [this](const QString &text) {
        g_isAwaited = !text.isEmpty();
    });
}

void FindCountLine::show(const QString &line)
{
    // Records that change are counted again, too: nobody waits for that.
    const QString shown = g_bar.currentMessage();
    const bool isOurs = !shown.isEmpty() && shown == g_line;
    const bool isWanted = g_isAwaited || isOurs || (shown.isEmpty() && g_entry.hasFocus());
    if (line.isEmpty() ? !isOurs : !isWanted)
        return;
    g_isAwaited = false;
    g_line = line;
    g_bar.showMessage(line);
}

} // namespace tavrin
