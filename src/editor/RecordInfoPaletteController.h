// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>

namespace tavrin {

/// What the record information palette shows: one for all windows, it follows the one in use.
class RecordInfoPaletteController : public QObject
{
    Q_OBJECT

public:
    RecordInfoPaletteController() = default;

    /// `info` is a window's recordInfo(): dates modified, viewed and created, by whom each, the size.
    void setRecord(const QString &title, const QStringList &info);
    QString title() const { return g_title; }
    const QStringList &info() const { return g_info; }

    /// "12.03.2026, Ann Lee"; either may be missing.
    QString modified() const { return joined(0); }
    QString viewed() const { return joined(1); }
    QString created() const { return joined(2); }
    QString size() const { return g_info.value(6); }

    bool isShown() const { return g_shown; }
    void setShown(bool shown);

Q_SIGNALS:
    void changed();
    void shownChanged();

private:
    QString joined(qsizetype which) const;

    QString g_title;
    QStringList g_info;
    bool g_shown = false;
};

} // namespace tavrin
