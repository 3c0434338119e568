// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/SharedBytes.h"

#include "base/DurableFile.h"
#include "base/LargeMemory.h"
#include "base/Parallel.h"
#include "base/SystemFile.h"

#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

namespace tavrin {

namespace {

constexpr qsizetype parallelFrom = qsizetype(32) << 20;

/// Reads one part of a file, in pieces.
class PartReader
{
public:
    PartReader(const Descriptor &descriptor, char *destination, qsizetype size, int parts)
        : g_descriptor(descriptor)
        , g_destination(destination)
        , g_size(size)
        , g_parts(parts)
    {}

    /// The first part tells the progress, for all.
    void read(int part, Progress &progress)
    {
        constexpr qsizetype piece = qsizetype(4) << 20;
        const qsizetype start = g_size / g_parts * part;
        const qsizetype end = part + 1 == g_parts ? g_size : g_size / g_parts * (part + 1);
        for (qsizetype at = start; at < end && !g_isOver;) {
            const ssize_t got = readSomeAt(g_descriptor, g_destination + at, std::min(piece, end - at), at);
            if (got <= 0) {
                g_failure = got < 0 ? errno : EIO; // It was cut short while we read.
                g_isOver = true;
                return;
            }
            at += got;
            if (part == 0) {
                progress.setDone((at - start) * g_parts, g_size);
                g_isOver = g_isOver || progress.isCancelled();
            }
        }
    }

    int failure() const { return g_failure; }

private:
    const Descriptor &g_descriptor;
    char *g_destination;
    qsizetype g_size;
    int g_parts;
    std::atomic<bool> g_isOver = false;
    std::atomic<int> g_failure = 0;
};

Error tooLittleMemory(const QString &path)
{
    errno = ENOMEM;
    return systemError(path);
}

} // namespace

std::shared_ptr<char> SharedBytes::allocated(qsizetype size)
{
    const auto wanted = static_cast<size_t>(size + padding);
    void *memory = LargeMemory::allocate(wanted);
    if (!memory)
        return nullptr;
    return {static_cast<char *>(memory), [wanted](char *start) { LargeMemory::release(start, wanted); }};
}

Result<SharedBytes> SharedBytes::copyOf(QByteArrayView bytes)
{
    const std::shared_ptr<char> copy = allocated(bytes.size());
    if (!copy)
        return tooLittleMemory({});
    std::copy(bytes.begin(), bytes.end(), copy.get());
    return SharedBytes(copy, bytes.size());
}

Result<SharedBytes>
SharedBytes::filled(qsizetype size, const QString &path, const std::function<bool(char *destination)> &fill)
{
    const std::shared_ptr<char> start = allocated(size);
    if (!start)
        return tooLittleMemory(path);
    if (!fill(start.get()))
        return systemError(path);
    return SharedBytes(start, size);
}

SharedBytes SharedBytes::unowned(QByteArrayView bytes)
{
    return {std::shared_ptr<const char>(std::shared_ptr<void>(), bytes.data()), bytes.size()};
}

Result<SharedBytes> SharedBytes::readFile(const QString &path, Progress &progress)
{
    const Descriptor file = openToRead(path);
    if (!file.isOpen())
        return systemError(path);
    return readOpened(file, path, progress);
}

Result<SharedBytes> SharedBytes::readOpened(const Descriptor &file, const QString &path, Progress &progress)
{
    struct stat status = {};
    if (::fstat(file.value(), &status) != 0)
        return systemError(path);
    if (!S_ISREG(status.st_mode)) {
        // A pipe does not say how much it holds.
        const Result<QByteArray> whole = readWhole(path);
        if (!whole)
            return whole.error();
        return copyOf(*whole);
    }
    const auto size = static_cast<qsizetype>(status.st_size);
    const std::shared_ptr<char> start = allocated(size);
    if (!start)
        return tooLittleMemory(path);
    const int parts = size < parallelFrom ? 1 : parallelParts();
    PartReader reader(file, start.get(), size, parts);
    inParallel(parts, [&](int part) { reader.read(part, progress); });
    if (progress.isCancelled())
        return Error{Error::Kind::Cancelled, {}, path};
    if (reader.failure() != 0) {
        errno = reader.failure();
        return systemError(path);
    }
    return SharedBytes(start, size);
}

} // namespace tavrin
