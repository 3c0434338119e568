// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileBackups.h"

#include "base/DurableFile.h"
#include "base/Log.h"
#include "document/BackupOrigins.h"
#include "document/DatafileDocument.h"
#include "document/FileStamp.h"
#include "model/Preferences.h"
#include "model/StringOperations.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar bullet(0x2022);

/// The long form, which alone has the seconds, without the time zone.
QString mediumTimeFormat(const QLocale &locale)
{
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(u't');
    return format.trimmed();
}

/// Whether it is what fullDateTime() makes in some locale: no other file may be taken for an old one.
bool isStamp(QStringView text)
{
    return text.contains(u",_") && !text.contains(u' ')
           && std::ranges::any_of(text, [](QChar character) { return character.isDigit(); });
}

/// Also under another name, through a link or another way to its folder.
bool isSameFile(const QString &one, const QString &other)
{
    const FileStamp stamp = FileStamp::of(one);
    const FileStamp otherStamp = FileStamp::of(other);
    return one == other
           || (stamp.size >= 0 && otherStamp.size >= 0 && stamp.device == otherStamp.device
               && stamp.inode == otherStamp.inode);
}

Error notRead(const QFile &file)
{
    return {Error::Kind::Io,
            DatafileBackups::tr("The backup could not be read."),
            file.fileName() + u": "_s + file.errorString()};
}

} // namespace

QString datafilesFolderPath(const Preferences *preferences)
{
    const auto preferred = [preferences](const QString &key) {
        return preferences ? preferences->stringForKey(key) : registeredDefaults().value(key).toText();
    };
    const QString chosen = preferred(u"DatafilesFolderURL"_s);
    const QUrl url(chosen);
    if (url.isLocalFile())
        return url.toLocalFile();
    return stringByExpandingTildeInPath(chosen.isEmpty() ? preferred(u"DatafilesFolderPath"_s) : chosen,
                                        QDir::homePath());
}

QString fullDateTime(const QDateTime &dateTime, const QLocale &locale)
{
    QString text = locale.toString(dateTime.date(), QLocale::ShortFormat) + u", "_s
                   + locale.toString(dateTime.time(), mediumTimeFormat(locale));
    for (QChar &character : text) {
        if (character == u'/')
            character = u'-';
        else if (character == u':')
            character = bullet;
        else if (character.isSpace())
            character = u'_';
    }
    return text;
}

QString DatafileBackups::parentFolder() const
{
    return g_document.services().preferences ? datafilesFolderPath(g_document.services().preferences)
                                             : QFileInfo(g_document.filePath()).path();
}

QString DatafileBackups::folder() const
{
    return stringByResolvingSymlinksInPath(parentFolder() + u"/Backups"_s);
}

bool DatafileBackups::isOfBackup() const
{
    // What is not there has no path, like a datafile without a file.
    const QString backups = QFileInfo(folder()).canonicalFilePath();
    return !backups.isEmpty() && QFileInfo(g_document.filePath()).canonicalPath() == backups;
}

QString DatafileBackups::pathForCopyOf(const QString &backup) const
{
    const QFileInfo file(backup);
    // The stamp has no blanks.
    const QString name = file.completeBaseName().section(u' ', 0, -2);
    const QString origin = BackupOrigins(folder()).originOf(file.fileName());
    const QString place = origin.isEmpty() ? parentFolder() : QFileInfo(origin).path();
    return place + u'/' + tr("%1 restored").arg(name.isEmpty() ? file.completeBaseName() : name) + u'.'
           + file.suffix();
}

QString DatafileBackups::title() const
{
    const QString name = g_document.displayName();
    return datafileKindOfPath(name) ? QFileInfo(name).completeBaseName() : name;
}

QString DatafileBackups::extension() const
{
    return g_document.isMobile() ? u".tvk"_s : u".tv3"_s;
}

Result<QString> DatafileBackups::newPath() const
{
    const QString folder = this->folder();
    if (!QDir().mkpath(folder))
        return Error{Error::Kind::Io, tr("The folder for backups could not be made."), folder};
    const QDateTime now = g_document.services().environment.now().toDateTime().toLocalTime();
    const QString start = folder + u'/' + title() + u' ' + fullDateTime(now);
    QString path = start + extension();
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = start + u"_%1"_s.arg(number) + extension();
    return path;
}

Result<QString> DatafileBackups::write() const
{
    Result<QString> path = newPath();
    if (!path)
        return path;
    if (const Result<> written = g_document.saveCopyAs(*path); !written)
        return written.error();
    didWrite(*path);
    return path;
}

void DatafileBackups::didWrite(const QString &path) const
{
    // Of a datafile without a file nothing can be told later.
    if (!g_document.filePath().isEmpty()) {
        if (const Result<> added = BackupOrigins(folder()).add(path, g_document.filePath()); !added)
            qCWarning(log) << "A backup will not be known again:" << added.error().detail;
    }
    Q_EMIT g_document.fileWritten();
    removeOld();
}

void DatafileBackups::removeOld() const
{
    const Preferences *preferences = g_document.services().preferences;
    const qint64 kept = preferences ? preferences->integerForKey(u"BackupsToKeep"_s) : 0;
    if (kept <= 0)
        return;
    QList<Backup> backups = list();
    backups.removeIf([](const Backup &backup) { return !backup.isOwn; });
    for (qsizetype i = kept; i < backups.size(); ++i) {
        if (!QFile::remove(backups[i].path))
            qCWarning(log) << "An old backup was not removed:" << backups[i].path;
    }
}

QList<DatafileBackups::Backup> DatafileBackups::list() const
{
    const QString beginning = title() + u' ';
    const BackupOrigins origins(folder());
    const QString own = BackupOrigins::pathOf(g_document.filePath());
    QList<Backup> backups;
    const QFileInfoList files = QDir(folder()).entryInfoList(QDir::Files);
    for (const QFileInfo &file : files) {
        // The stamp has no blanks: the backups of "A B" are none of "A".
        const QString name = file.fileName();
        if (!name.startsWith(beginning) || !name.endsWith(extension())
            || !isStamp(QStringView(name).sliced(beginning.size())))
            continue;
        const QString origin = origins.originOf(name);
        const bool isOwn = origin == own && !g_document.filePath().isEmpty();
        // Where its datafile is gone, this may be that one under another path.
        if (isOwn || !QFileInfo::exists(origin))
            backups.append({file.filePath(), file.lastModified(), file.size(), isOwn});
    }
    std::ranges::sort(backups, [](const Backup &one, const Backup &other) {
        return one.written != other.written ? one.written > other.written : one.path > other.path;
    });
    return backups;
}

Result<> DatafileBackups::restore(const QString &backup, const QString &target, const QStringList &filesInUse)
{
    if (isSameFile(backup, target))
        return Error{Error::Kind::Refused, tr("A backup cannot be replaced by itself."), target};
    for (const QString &file : filesInUse) {
        if (isSameFile(file, target))
            return Error{Error::Kind::Refused, tr("An open datafile cannot be replaced."), target};
    }
    QFile file(backup);
    if (!file.open(QIODevice::ReadOnly))
        return notRead(file);
    return writeDurably(target, [&file](const ByteSink &sink) -> Result<> {
        constexpr qint64 part = 1 << 20;
        while (!file.atEnd()) {
            const QByteArray bytes = file.read(part);
            if (bytes.isEmpty())
                break;
            if (!sink(bytes))
                return {}; // Whoever gave the sink knows of it.
        }
        return file.error() == QFile::NoError ? Result<>() : Result<>(notRead(file));
    });
}

} // namespace tavrin
