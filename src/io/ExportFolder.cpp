// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/ExportFolder.h"

#include "base/SystemFile.h"
#include "io/RecordLoop.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Error nameIsTaken(const QString &path)
{
    return {Error::Kind::Refused,
            QCoreApplication::translate("Export", "A folder of that name exists already."),
            path};
}

} // namespace

ExportFolder::ExportFolder(PendingFolder folder, bool replaces)
    : g_folder(std::move(folder))
    , g_replaces(replaces)
{}

Result<ExportFolder> ExportFolder::begin(const QString &path, bool replaces)
{
    if (!replaces && QFileInfo::exists(path))
        return nameIsTaken(path);
    if (!QDir().mkpath(QFileInfo(QDir::cleanPath(path)).path()))
        return systemError(path);
    Result<PendingFolder> folder = PendingFolder::beside(path);
    if (!folder)
        return folder.error();
    return ExportFolder(std::move(*folder), replaces);
}

QString ExportFolder::pathOf(const QString &name) const
{
    return g_folder.path() + u'/' + name;
}

Result<> ExportFolder::writeFile(const QString &name, const QByteArray &bytes) const
{
    QFile file(pathOf(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(bytes) != bytes.size()
        || !file.flush())
        return systemError(name);
    return {};
}

Result<> ExportFolder::finish()
{
    // It may have come while the files were written.
    if (!g_replaces && QFileInfo::exists(g_folder.place()))
        return nameIsTaken(g_folder.place());
    return g_folder.takePlace();
}

Result<qsizetype>
exportRecordFolder(const ExportedRecords &records,
                   const QString &path,
                   bool replaces,
                   Progress &progress,
                   const std::function<Result<>(const ExportFolder &folder, qsizetype index)> &write)
{
    Result<ExportFolder> folder = ExportFolder::begin(path, replaces);
    if (!folder)
        return folder.error();
    const Result<> written =
        forEachRecord(records, progress, [&](qsizetype index) { return write(*folder, index); });
    if (!written)
        return written.error();
    if (const Result<> finished = folder->finish(); !finished)
        return finished.error();
    return records.count();
}

QString fileNamePart(const QString &text)
{
    constexpr qsizetype longest = 80; // In UTF-8 that is at most 240 bytes.
    QString part;
    for (const QChar character : text.simplified()) {
        const bool isForbidden = u"/\\:*?\"<>|"_s.contains(character) || character.unicode() < 0x20;
        part.append(isForbidden ? u'-' : character);
    }
    // A leading full stop would hide the file.
    if (part.startsWith(u'.'))
        part[0] = u'-';
    part.truncate(longest);
    if (!part.isEmpty() && part.back().isHighSurrogate())
        part.chop(1);
    while (part.toUtf8().size() > 200)
        part.chop(part.back().isLowSurrogate() ? 2 : 1);
    return part.trimmed();
}

} // namespace tavrin
