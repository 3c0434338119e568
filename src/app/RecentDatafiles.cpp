// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/RecentDatafiles.h"

#include "model/Preferences.h"

namespace tavrin {

using namespace Qt::StringLiterals;

QString RecentDatafiles::key()
{
    return u"RecentDatafilePaths"_s;
}

QStringList RecentDatafiles::paths() const
{
    QStringList paths;
    const plist::Array stored = g_preferences.arrayForKey(key());
    for (const plist::Value &value : stored) {
        if (const QString *path = value.string(); path && !path->isEmpty() && paths.size() < Most)
            paths.append(*path);
    }
    return paths;
}

void RecentDatafiles::remember(const QString &path)
{
    QStringList paths = this->paths();
    if (!paths.isEmpty() && paths.front() == path)
        return;
    paths.removeAll(path);
    paths.prepend(path);
    plist::Array stored;
    for (const QString &each : paths.mid(0, Most))
        stored.append(each);
    g_preferences.setObject(stored, key());
}

void RecentDatafiles::clear()
{
    g_preferences.remove(key());
}

} // namespace tavrin
