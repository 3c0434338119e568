// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "document/FileStamp.h"

#include <QString>

namespace tavrin {

/// The file beside a shared datafile that says that it is in use.
///
/// It removes only a lock file that it made itself, and none that somebody else has put in its place since.
class LockFile
{
public:
    LockFile() = default;
    LockFile(const LockFile &) = delete;
    LockFile &operator=(const LockFile &) = delete;
    ~LockFile();

    /// The datafile's whole file name with ".lock" behind it, in the datafile's folder.
    static QString pathFor(const QString &datafilePath);

    /// The name that people are told to look for: without the datafile's extension. Deliberately not the
    /// name of the file itself.
    static QString shownNameFor(const QString &datafilePath);

    static bool exists(const QString &datafilePath);

    /// Makes the lock file, holding the path of this program; exclusive: of two that try at once, one fails
    /// with Refused. Io when the folder does not allow it.
    Result<> create(const QString &datafilePath, const QString &executablePath);

    /// Removes it if this object made it and it still is the same file. Failures are ignored.
    void remove();

    bool isHeld() const { return !g_path.isEmpty(); }

private:
    QString g_path;
    FileStamp g_stamp; ///< As we made it: a number of a file alone may be given to the next one.
};

} // namespace tavrin
