// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/FileParts.h"

#include "base/Parallel.h"
#include "base/SystemFile.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace tavrin {

namespace {

/// False with errno when the file holds something else there. It is read in pieces that stay in the
/// processor's cache.
bool isInFile(QByteArrayView bytes, const Descriptor &file, qint64 offset, QByteArray &room)
{
    constexpr qsizetype pieceSize = 1 << 17;
    room.resize(std::min(pieceSize, bytes.size()));
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize) {
        const qsizetype size = std::min(pieceSize, bytes.size() - at);
        if (!readAllAt(file, room.data(), size, offset + at))
            return false;
        if (std::memcmp(room.constData(), bytes.data() + at, static_cast<size_t>(size)) != 0) {
            errno = EIO;
            return false;
        }
    }
    return true;
}

/// What the threads share that write the parts of one stretch.
class PartsWriter
{
public:
    PartsWriter(const FileParts &parts, const Descriptor &file, const QString &path, qint64 offset)
        : g_parts(parts)
        , g_file(file)
        , g_path(path)
        , g_start(offset)
        , g_end(offset)
    {}

    /// Writes one part after the other until none is left; on each thread.
    void run() noexcept
    {
        QByteArray made;
        QByteArray read;
        while (const std::optional<size_t> part = nextPart()) {
            try {
                if (const Result<> written = write(*part, made, read); !written)
                    stop([&] { g_failure = written.error(); });
            } catch (...) {
                stop([this] { g_thrown = std::current_exception(); });
            }
        }
    }

    /// Once all threads have ended.
    Result<WrittenParts> outcome() &&
    {
        if (g_thrown)
            std::rethrow_exception(g_thrown);
        if (g_failure)
            return *g_failure;
        return WrittenParts{{g_start, g_end - g_start}, std::move(g_copies)};
    }

private:
    std::optional<size_t> nextPart()
    {
        const std::lock_guard lock(g_mutex);
        if (g_isStopped || g_next == g_parts.count())
            return {};
        return g_next++;
    }

    Result<> write(size_t part, QByteArray &made, QByteArray &read)
    {
        const QByteArrayView bytes = g_parts.bytes(part, made);
        const std::optional<qint64> offset = placeOf(part, bytes.size());
        if (!offset)
            return {};
        if (!writeAllAt(g_file, bytes, *offset))
            return systemError(g_path);
        if (bytes.data() != made.constData()) {
            const std::lock_guard lock(g_mutex);
            g_copies.push_back({*offset, bytes});
        } else if (!isInFile(bytes, g_file, *offset, read)) {
            return systemError(g_path);
        }
        return g_parts.check(part, bytes);
    }

    /// Waits until the parts before have their places. None when the writing is given up.
    std::optional<qint64> placeOf(size_t part, qsizetype size)
    {
        std::unique_lock lock(g_mutex);
        g_changed.wait(lock, [&] { return g_placed == part || g_isStopped; });
        if (g_isStopped)
            return {};
        ++g_placed;
        g_changed.notify_all();
        return std::exchange(g_end, g_end + size);
    }

    template <typename Note>
    void stop(const Note &note)
    {
        const std::lock_guard lock(g_mutex);
        if (!g_isStopped)
            note();
        g_isStopped = true;
        g_changed.notify_all();
    }

    const FileParts &g_parts;
    const Descriptor &g_file;
    const QString &g_path;
    qint64 g_start;

    std::mutex g_mutex; ///< For all that follows.
    std::condition_variable g_changed;
    size_t g_next = 0;   ///< The first part that nobody has taken yet.
    size_t g_placed = 0; ///< How many parts know where they go.
    qint64 g_end;        ///< Of those.
    std::vector<CopiedPiece> g_copies;
    bool g_isStopped = false;
    std::optional<Error> g_failure;
    std::exception_ptr g_thrown;
};

} // namespace

Result<WrittenParts>
writeParts(const FileParts &parts, const Descriptor &file, const QString &path, qint64 offset)
{
    PartsWriter writer(parts, file, path, offset);
    const int threads = static_cast<int>(std::min(parts.count(), static_cast<size_t>(parallelParts())));
    inParallel(threads, [&writer](int) { writer.run(); });
    return std::move(writer).outcome();
}

Result<> compareCopies(const Descriptor &file, const QString &path, const std::vector<CopiedPiece> &copies)
{
    QByteArray room;
    for (const CopiedPiece &copy : copies) {
        if (!isInFile(copy.bytes, file, copy.offset, room))
            return systemError(path);
    }
    return {};
}

} // namespace tavrin
