// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/ReadBack.h"

#include "base/SystemFile.h"

#include <sys/stat.h>

#include <cerrno>

namespace tavrin {

Result<SharedBytes>
readBack(const Descriptor &file, const QString &path, const std::vector<FileStretch> &without)
{
    if (without.empty()) {
        Progress unwatched;
        return SharedBytes::readOpened(file, path, unwatched);
    }
    struct stat status = {};
    if (::fstat(file.value(), &status) != 0)
        return systemError(path);
    qint64 rest = status.st_size;
    for (const FileStretch &stretch : without)
        rest -= stretch.size;
    if (rest < 0) {
        errno = EIO;
        return systemError(path);
    }
    const auto fill = [&](char *destination) {
        qint64 at = 0;
        const auto readUntil = [&](qint64 offset) {
            const qint64 size = offset - at;
            const bool isRead = readAllAt(file, destination, size, at);
            destination += size;
            return isRead;
        };
        for (const FileStretch &stretch : without) {
            if (!readUntil(stretch.offset))
                return false;
            at = stretch.offset + stretch.size;
        }
        return readUntil(status.st_size);
    };
    return SharedBytes::filled(rest, path, fill);
}

} // namespace tavrin
