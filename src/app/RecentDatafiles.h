// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace tavrin {

class Preferences;

/// The datafiles opened last, newest first, at most 10. One that is gone stays: its disk may come back.
class RecentDatafiles
{
public:
    static constexpr qsizetype Most = 10;

    /// The preferences outlive it.
    explicit RecentDatafiles(Preferences &preferences) : g_preferences(preferences) {}

    QStringList paths() const;
    void remember(const QString &path);
    void clear();

    /// The preference that holds them; changed whenever they do.
    static QString key();

private:
    Preferences &g_preferences;
};

} // namespace tavrin
