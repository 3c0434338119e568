// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/ReadBack.h"

#include "base/SystemFile.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tavrin {

namespace {

bool readExactly(const Descriptor &file, char *destination, qsizetype size, qint64 offset)
{
    while (size > 0) {
        const ssize_t got = readSomeAt(file, destination, size, offset);
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

/// Compares pieces in parts that stay in the processor's cache.
class PieceComparer
{
public:
    explicit PieceComparer(const Descriptor &file) : g_file(file), g_buffer(partSize, Qt::Uninitialized) {}

    /// False with errno when the file holds something else.
    bool isInFile(const CopiedPiece &piece)
    {
        for (qsizetype at = 0; at < piece.bytes.size(); at += partSize) {
            const qsizetype size = std::min(partSize, piece.bytes.size() - at);
            if (!readExactly(g_file, g_buffer.data(), size, piece.offset + at))
                return false;
            if (std::memcmp(g_buffer.constData(), piece.bytes.data() + at, static_cast<size_t>(size)) != 0) {
                errno = EIO;
                return false;
            }
        }
        return true;
    }

private:
    static constexpr qsizetype partSize = 256 * 1024;

    const Descriptor &g_file;
    QByteArray g_buffer;
};

} // namespace

Result<SharedBytes>
readBack(const Descriptor &file, const QString &path, const std::vector<CopiedPiece> &copied)
{
    if (copied.empty()) {
        Progress unwatched;
        return SharedBytes::readOpened(file, path, unwatched);
    }
    struct stat status = {};
    if (::fstat(file.value(), &status) != 0)
        return systemError(path);
    qint64 rest = status.st_size;
    for (const CopiedPiece &piece : copied)
        rest -= piece.bytes.size();
    if (rest < 0) {
        errno = EIO;
        return systemError(path);
    }
    const auto fill = [&](char *destination) {
        PieceComparer comparer(file);
        qint64 at = 0;
        const auto readUntil = [&](qint64 offset) {
            const qint64 size = offset - at;
            const bool isRead = readExactly(file, destination, size, at);
            destination += size;
            return isRead;
        };
        for (const CopiedPiece &piece : copied) {
            if (!readUntil(piece.offset) || !comparer.isInFile(piece))
                return false;
            at = piece.offset + piece.bytes.size();
        }
        return readUntil(status.st_size);
    };
    return SharedBytes::filled(rest, path, fill);
}

} // namespace tavrin
