// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/SystemFile.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace tavrin {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("DurableFile", text);
}

} // namespace

Error systemError(const QString &path)
{
    const int code = errno;
    Error error{Error::Kind::Io, {}, path + QStringLiteral(": ") + qt_error_string(code)};
    switch (code) {
    case ENOSPC:
    case EDQUOT:
        error.message = translated("The disk is full.");
        break;
    case ENOENT:
    case ENOTDIR:
        error.kind = Error::Kind::NotFound;
        error.message = translated("The file or its folder does not exist.");
        break;
    case EACCES:
    case EPERM:
        error.message = translated("You do not have the permission to do this.");
        break;
    case ENOMEM:
        error.message = translated("There is not enough memory for a file of this size.");
        break;
    case EROFS:
        error.message = translated("The disk is read-only.");
        break;
    case EFBIG:
        error.message = translated("The file would be larger than the system allows.");
        break;
    default:
        error.message =
            translated("The system could not read or write the file: %1.").arg(qt_error_string(code));
    }
    return error;
}

Descriptor openToRead(const QString &path)
{
    Descriptor descriptor(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    struct stat status = {};
    if (descriptor.isOpen() && ::fstat(descriptor.value(), &status) == 0 && S_ISDIR(status.st_mode)) {
        descriptor.close();
        errno = EISDIR;
    }
    return descriptor;
}

ssize_t readSome(const Descriptor &descriptor, char *destination, qsizetype size)
{
    ssize_t got = -1;
    do {
        got = ::read(descriptor.value(), destination, static_cast<size_t>(size));
    } while (got < 0 && errno == EINTR);
    return got;
}

ssize_t readSomeAt(const Descriptor &descriptor, char *destination, qsizetype size, qint64 offset)
{
    ssize_t got = -1;
    do {
        got = ::pread(descriptor.value(), destination, static_cast<size_t>(size), offset);
    } while (got < 0 && errno == EINTR);
    return got;
}

bool readAllAt(const Descriptor &descriptor, char *destination, qsizetype size, qint64 offset)
{
    while (size > 0) {
        const ssize_t got = readSomeAt(descriptor, destination, size, offset);
        if (got == 0)
            errno = EIO; // It was cut short.
        if (got <= 0)
            return false;
        destination += got;
        offset += got;
        size -= got;
    }
    return true;
}

bool writeAllAt(const Descriptor &descriptor, QByteArrayView bytes, qint64 offset)
{
    while (!bytes.isEmpty()) {
        const ssize_t written =
            ::pwrite(descriptor.value(), bytes.data(), static_cast<size_t>(bytes.size()), offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes = bytes.sliced(written);
        offset += written;
    }
    return true;
}

} // namespace tavrin
