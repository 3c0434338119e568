// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/ExportFolder.h"

#include "io/RecordLoop.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Error cannotWrite(const QString &detail)
{
    return {
        Error::Kind::Io, QCoreApplication::translate("Export", "The folder could not be written."), detail};
}

} // namespace

ExportFolder::ExportFolder(QString path, std::unique_ptr<QTemporaryDir> folder, bool replaces)
    : g_path(std::move(path))
    , g_folder(std::move(folder))
    , g_replaces(replaces)
{}

ExportFolder::ExportFolder(ExportFolder &&) noexcept = default;
ExportFolder &ExportFolder::operator=(ExportFolder &&) noexcept = default;
ExportFolder::~ExportFolder() = default;

Result<ExportFolder> ExportFolder::begin(const QString &path, bool replaces)
{
    if (!replaces && QFileInfo::exists(path))
        return Error{Error::Kind::Refused,
                     QCoreApplication::translate("Export", "A folder of that name exists already."),
                     path};
    const QString parent = QFileInfo(path).path();
    if (!QDir().mkpath(parent))
        return cannotWrite(parent);
    // Hidden, for as long as it is not whole.
    auto folder = std::make_unique<QTemporaryDir>(parent + u"/.export-XXXXXX"_s);
    if (!folder->isValid())
        return cannotWrite(folder->errorString());
    return ExportFolder(path, std::move(folder), replaces);
}

QString ExportFolder::pathOf(const QString &name) const
{
    return g_folder->path() + u'/' + name;
}

Result<> ExportFolder::writeFile(const QString &name, const QByteArray &bytes) const
{
    QFile file(pathOf(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(bytes) != bytes.size()
        || !file.flush())
        return cannotWrite(name + u": "_s + file.errorString());
    return {};
}

Result<> ExportFolder::finish()
{
    const QString old = g_folder->path() + u".old"_s;
    const bool hasOld = QFileInfo::exists(g_path);
    if (hasOld && (!g_replaces || !QFile::rename(g_path, old)))
        return cannotWrite(g_path);
    const QFile::Permissions usual = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup
                                     | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(g_folder->path(), usual);
    if (!QDir().rename(g_folder->path(), g_path)) {
        if (hasOld)
            QFile::rename(old, g_path);
        return cannotWrite(g_path);
    }
    g_folder->setAutoRemove(false);
    const bool isFolder = QFileInfo(old).isDir() && !QFileInfo(old).isSymLink();
    if (hasOld && isFolder)
        QDir(old).removeRecursively();
    else if (hasOld)
        QFile::remove(old);
    return {};
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
