// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/DurableFile.h"

#include "base/Parallel.h"
#include "base/ReadBack.h"
#include "base/SystemFile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <vector>

namespace tavrin {

namespace {

/// The target's path with a unique ending, which mkostemp fills in. A name near the longest allowed one is
/// cut (between characters), so that every file that exists can be written again.
QByteArray temporaryPattern(const QByteArray &target)
{
    const QByteArray ending = ".XXXXXX";
    const qsizetype longestPath = target.lastIndexOf('/') + 1 + NAME_MAX - ending.size();
    qsizetype size = std::min(target.size(), longestPath);
    const auto isInsideCharacter = [&] {
        return size < target.size() && (static_cast<unsigned char>(target[size]) & 0xC0) == 0x80;
    };
    while (isInsideCharacter())
        --size;
    return target.first(size) + ending;
}

/// The process's mask for new files. Asking by setting it, as there is no other way elsewhere, would let what
/// another thread makes at that moment be open to everybody.
mode_t creationMask()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArray lines = status.readAll();
        constexpr QByteArrayView name("\nUmask:");
        const qsizetype found = lines.indexOf(name);
        const qsizetype start = found + name.size();
        if (found >= 0)
            return static_cast<mode_t>(
                lines.mid(start, lines.indexOf('\n', start) - start).trimmed().toUInt(nullptr, 8));
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

/// The temporary file beside a file that is being replaced; removed unless it took its place.
class TemporaryFile
{
public:
    explicit TemporaryFile(const QByteArray &target)
        : g_path(temporaryPattern(target))
        , g_descriptor(mkostemp(g_path.data(), O_CLOEXEC))
    {}
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile()
    {
        if (g_exists)
            ::unlink(g_path.constData());
    }

    bool isOpen()
    {
        g_exists = g_exists || g_descriptor.isOpen();
        return g_descriptor.isOpen();
    }

    /// Gives the file the permissions and, best effort, the owner of the one it replaces; a new file gets
    /// what any program's new file gets.
    void takeAttributes(const QByteArray &target)
    {
        struct stat old = {};
        if (::stat(target.constData(), &old) == 0) {
            // Owner first: changing it drops the set-id bits of the mode.
            if (::fchown(g_descriptor.value(), old.st_uid, old.st_gid) != 0)
                static_cast<void>(::fchown(g_descriptor.value(), static_cast<uid_t>(-1), old.st_gid));
            ::fchmod(g_descriptor.value(), old.st_mode & 07777);
            return;
        }
        ::fchmod(g_descriptor.value(), 0666 & ~creationMask());
    }

    const Descriptor &descriptor() const { return g_descriptor; }
    bool flushToDisk() { return ::fsync(g_descriptor.value()) == 0; }

    bool takePlaceOf(const QByteArray &target)
    {
        if (!g_descriptor.close() || ::rename(g_path.constData(), target.constData()) != 0)
            return false;
        g_exists = false;
        return true;
    }

private:
    QByteArray g_path;
    Descriptor g_descriptor;
    bool g_exists = false;
};

/// Flushes the folder, so that the new name survives a power cut. Some file systems do not know how;
/// the rename has happened, so this cannot fail the write any more.
void flushFolder(const QString &folder)
{
    const Descriptor descriptor(
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        ::fsync(descriptor.value());
}

/// The file that a chain of symbolic links ends in, also when that file does not exist yet.
QString followLinks(QString path)
{
    constexpr int longestChain = 40;
    for (int i = 0; i < longestChain; ++i) {
        const QFileInfo info(path);
        if (!info.isSymLink())
            return path;
        path = info.symLinkTarget();
    }
    return path;
}

/// Renaming over a device, a pipe or a link that leads nowhere would destroy it.
bool mayBeReplaced(const QByteArray &target)
{
    struct stat status = {};
    if (::lstat(target.constData(), &status) != 0 || S_ISREG(status.st_mode))
        return true;
    errno = S_ISDIR(status.st_mode) ? EISDIR : S_ISLNK(status.st_mode) ? ELOOP : EINVAL;
    return false;
}

/// Producers write in small pieces; the system is asked in large ones. Nothing is written after a failure.
class PieceWriter
{
public:
    PieceWriter(const Descriptor &file, const QString &path) : g_file(file), g_path(path)
    {
        g_buffer.reserve(pieceSize);
    }

    bool append(QByteArrayView bytes)
    {
        if (g_buffer.size() + bytes.size() > pieceSize && !flush())
            return false;
        if (bytes.size() >= directFrom)
            return flush() && writeNow(bytes);
        g_buffer.append(bytes);
        return g_outcome.has_value();
    }

    bool appendParts(const FileParts &parts)
    {
        if (!flush())
            return false;
        const Result<WrittenParts> written = writeParts(parts, g_file, g_path, g_size);
        if (written) {
            g_size += written->stretch.size;
            g_inParts.push_back(written->stretch);
            g_copies.insert(g_copies.end(), written->copies.begin(), written->copies.end());
        } else {
            g_outcome = written.error();
        }
        return g_outcome.has_value();
    }

    bool flush()
    {
        const bool written = writeNow(g_buffer);
        g_buffer.resize(0);
        return written;
    }

    const Result<> &outcome() const { return g_outcome; }
    const std::vector<FileStretch> &inParts() const { return g_inParts; }
    const std::vector<CopiedPiece> &copies() const { return g_copies; }

private:
    static constexpr qsizetype pieceSize = 1 << 20;
    static constexpr qsizetype directFrom = 1 << 16;

    bool writeNow(QByteArrayView bytes)
    {
        if (g_outcome && !writeAllAt(g_file, bytes, g_size))
            g_outcome = systemError(g_path);
        g_size += bytes.size();
        return g_outcome.has_value();
    }

    const Descriptor &g_file;
    const QString &g_path;
    QByteArray g_buffer;
    qint64 g_size = 0; ///< Of what was written.
    std::vector<FileStretch> g_inParts;
    std::vector<CopiedPiece> g_copies;
    Result<> g_outcome;
};

/// What was not made in parts. It is read into memory of our own: a mapped file whose last bytes a full or
/// lost share throws away would end the program.
Result<> checkRest(const TemporaryFile &file,
                   const QString &path,
                   const std::vector<FileStretch> &inParts,
                   const FileCheck &check)
{
    if (!check)
        return {};
    const Result<SharedBytes> written = readBack(file.descriptor(), path, inParts);
    return written ? check(written->view()) : Result<>(written.error());
}

/// What was not looked at yet is, while the disk takes the file.
Result<>
flushAndCheck(TemporaryFile &file, const QString &path, const PieceWriter &writer, const FileCheck &check)
{
    if (!check && writer.copies().empty())
        return file.flushToDisk() ? Result<>() : systemError(path);
    int failure = 0;
    Result<> checked;
    inParallel(2, [&](int part) {
        if (part == 1) {
            failure = file.flushToDisk() ? 0 : errno;
            return;
        }
        checked = compareCopies(file.descriptor(), path, writer.copies());
        if (checked)
            checked = checkRest(file, path, writer.inParts(), check);
    });
    errno = failure;
    return failure == 0 ? checked : systemError(path);
}

Result<>
write(const QString &path, const std::function<Result<>(PieceWriter &)> &produce, const FileCheck &check)
{
    const QString targetPath = followLinks(path);
    const QByteArray target = QFile::encodeName(targetPath);
    if (!mayBeReplaced(target))
        return systemError(targetPath);
    TemporaryFile file(target);
    if (!file.isOpen())
        return systemError(targetPath);

    PieceWriter writer(file.descriptor(), targetPath);
    const Result<> produced = produce(writer);
    if (produced)
        writer.flush();
    if (!writer.outcome())
        return writer.outcome();
    if (!produced)
        return produced;
    file.takeAttributes(target);
    if (const Result<> flushed = flushAndCheck(file, targetPath, writer, check); !flushed)
        return flushed;
    if (!file.takePlaceOf(target))
        return systemError(targetPath);
    flushFolder(QFileInfo(targetPath).absolutePath());
    return {};
}

} // namespace

Result<> writeDurably(const QString &path, const std::function<Result<>(const ByteSink &)> &produce)
{
    const auto produceAll = [&produce](PieceWriter &writer) {
        return produce([&writer](QByteArrayView bytes) { return writer.append(bytes); });
    };
    return write(path, produceAll, {});
}

Result<>
writeCheckedDurably(const QString &path,
                    const std::function<Result<>(const ByteSink &sink, const PartsSink &parts)> &produce,
                    const FileCheck &check)
{
    const auto produceAll = [&produce](PieceWriter &writer) {
        return produce([&writer](QByteArrayView bytes) { return writer.append(bytes); },
                       [&writer](const FileParts &parts) { return writer.appendParts(parts); });
    };
    return write(path, produceAll, check);
}

Result<> writeDurably(const QString &path, QByteArrayView bytes)
{
    return writeDurably(path, [bytes](const ByteSink &sink) -> Result<> {
        sink(bytes);
        return {};
    });
}

Result<QByteArray> readWhole(const QString &path)
{
    const Descriptor descriptor = openToRead(path);
    struct stat status = {};
    if (!descriptor.isOpen() || ::fstat(descriptor.value(), &status) != 0)
        return systemError(path);
    // One byte more than the file says it has, so that its end is seen without growing. It may have more:
    // a pipe says nothing.
    QByteArray bytes(static_cast<qsizetype>(status.st_size) + 1, Qt::Uninitialized);
    qsizetype size = 0;
    while (true) {
        if (size == bytes.size())
            bytes.resize(2 * size);
        const ssize_t got = readSome(descriptor, bytes.data() + size, bytes.size() - size);
        if (got < 0)
            return systemError(path);
        if (got == 0) {
            bytes.truncate(size);
            return bytes;
        }
        size += got;
    }
}

} // namespace tavrin
