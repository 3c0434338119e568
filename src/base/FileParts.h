// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

namespace tavrin {

class Descriptor;

/// A stretch of a file that is made, written and checked part by part, on several threads at once.
class FileParts
{
public:
    FileParts() = default;
    FileParts(const FileParts &) = delete;
    FileParts &operator=(const FileParts &) = delete;
    virtual ~FileParts() = default;

    virtual size_t count() const = 0;

    /// The bytes of a part, on any thread: put into the room, whose content is whatever was there before, or
    /// somewhere else where they stay.
    virtual QByteArrayView bytes(size_t part, QByteArray &room) const = 0;

    /// Judges those bytes, on any thread.
    virtual Result<> check(size_t part, QByteArrayView bytes) const = 0;
};

/// Where a stretch of a file lies.
struct FileStretch
{
    qint64 offset;
    qint64 size;
};

/// Bytes that stay where they are, and where in a file they were put.
struct CopiedPiece
{
    qint64 offset;
    QByteArrayView bytes;
};

struct WrittenParts
{
    FileStretch stretch;
    std::vector<CopiedPiece> copies; ///< To be compared yet.
};

/// Writes the parts into the file, one behind the other from `offset` on. What was put into the room is read
/// again at once and compared, while it is in the processor's cache: no memory is needed for the file as a
/// whole. What stays elsewhere can be compared when the disk takes the file. Io, also where something else
/// comes back, or what a part's check says.
Result<WrittenParts>
writeParts(const FileParts &parts, const Descriptor &file, const QString &path, qint64 offset);

/// Reads the pieces again and compares them. Io, also where something else comes back.
Result<> compareCopies(const Descriptor &file, const QString &path, const std::vector<CopiedPiece> &copies);

} // namespace tavrin
