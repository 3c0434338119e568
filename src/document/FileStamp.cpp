// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

namespace tavrin {

FileStamp FileStamp::of(const QString &path)
{
    struct stat status = {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
#ifdef Q_OS_DARWIN
    const timespec modified = status.st_mtimespec;
#else
    const timespec modified = status.st_mtim;
#endif
    constexpr qint64 nanosecondsInSecond = 1'000'000'000;
    return {static_cast<quint64>(status.st_dev),
            static_cast<quint64>(status.st_ino),
            static_cast<qint64>(status.st_size),
            static_cast<qint64>(modified.tv_sec) * nanosecondsInSecond
                + static_cast<qint64>(modified.tv_nsec)};
}

} // namespace tavrin
