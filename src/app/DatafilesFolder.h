// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace tavrin {

class Preferences;

/// A datafile, or a folder that holds some, in the Datafiles menu.
struct DatafilesMenuItem
{
    QString title;
    QString path; ///< Empty for a folder.
    QList<DatafilesMenuItem> children;

    friend bool operator==(const DatafilesMenuItem &left, const DatafilesMenuItem &right);
};

/// The folder in which people keep their datafiles.
class DatafilesFolder
{
public:
    /// The preferences outlive it.
    explicit DatafilesFolder(Preferences &preferences) : g_preferences(preferences) {}

    /// The chosen folder, or the default one in the documents folder; it need not exist.
    QString path() const;
    void setPath(const QString &path);

    /// Its datafiles and the folders that hold any, folders last, each level sorted by name. Looks at most a
    /// few levels deep and never follows a link back up.
    QList<DatafilesMenuItem> scan() const;

private:
    Preferences &g_preferences;
};

} // namespace tavrin
