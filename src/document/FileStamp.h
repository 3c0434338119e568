// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// What tells one content of a file from another without reading it: identity, size and time of change.
struct FileStamp
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = -1; ///< -1: there was no file.
    qint64 modifiedNanoseconds = 0;

    /// The file as it stands now; links are followed.
    static FileStamp of(const QString &path);

    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

} // namespace tavrin
