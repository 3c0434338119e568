// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QString>

namespace tavrin {

/// Of which datafile each backup in a folder was written: two datafiles of one name have backups of one name.
/// It is kept in a hidden file beside them.
///
/// What is not known there, as a backup that was brought from elsewhere, may be of any datafile.
class BackupOrigins
{
public:
    explicit BackupOrigins(const QString &folder);

    /// Null when it is not known.
    QString originOf(const QString &backup) const;
    /// Remembers it, and forgets the backups that are gone. Io.
    Result<> add(const QString &backup, const QString &datafile);

    /// By what a datafile is known here: its path, without links.
    static QString pathOf(const QString &datafile);

private:
    QString g_folder;
    plist::Dictionary g_origins; ///< Paths of datafiles by the names of their backups.
};

} // namespace tavrin
