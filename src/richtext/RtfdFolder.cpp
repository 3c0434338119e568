// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/DurableFile.h"
#include "base/SystemFile.h"
#include "richtext/AttachmentName.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"
#include "richtext/Rtfd.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>

namespace tavrin::richtext {

namespace {

using namespace Qt::StringLiterals;

constexpr QLatin1StringView nameOfText("TXT.rtf");

/// Null unless the folder itself has such a file: a text from elsewhere must not bring in what it finds here.
QByteArray fileInFolder(const QDir &folder, const QString &name)
{
    if (name.isEmpty() || name.contains(u'/') || name == u"."_s || name == u".."_s)
        return {};
    const QFileInfo file(folder.filePath(name));
    if (file.isSymLink() || !file.isFile())
        return {};
    const Result<QByteArray> bytes = readWhole(file.filePath());
    return bytes.value_or(QByteArray());
}

bool renamed(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

void removeWhatIs(const QString &path)
{
    const QFileInfo found(path);
    if (found.isDir() && !found.isSymLink())
        QDir(path).removeRecursively();
    else
        QFile::remove(path);
}

/// Puts the finished folder in the place of whatever is there, by way of a name that nobody else has.
Result<> takePlace(const QString &finished, const QString &path)
{
    const QFileInfo place(path);
    if (!place.exists() && !place.isSymLink())
        return renamed(finished, path) ? Result<>() : systemError(path);
    const QString away = finished + u".old"_s;
    if (!renamed(path, away))
        return systemError(path);
    if (!renamed(finished, path)) {
        const Error error = systemError(path);
        renamed(away, path);
        return error;
    }
    removeWhatIs(away);
    return {};
}

} // namespace

Result<AttributedText> readRtfdFolder(const QString &path)
{
    const QDir folder(path);
    const QString text = folder.filePath(nameOfText);
    // Reading anything but a file could wait for ever.
    if (QFileInfo(text).exists() && !QFileInfo(text).isFile()) {
        errno = EINVAL;
        return systemError(text);
    }
    const Result<QByteArray> rtf = readWhole(text);
    if (!rtf)
        return rtf.error();
    QHash<QString, QByteArray> read;
    return readRtf(*rtf, [&](const QString &key) {
        const auto known = read.constFind(key);
        return known != read.cend() ? *known : *read.insert(key, fileInFolder(folder, key));
    });
}

Result<> writeRtfdFolder(const QString &path, const AttributedText &text)
{
    const QString place = QFileInfo(path).absoluteFilePath();
    QTemporaryDir folder(place + u".XXXXXX"_s);
    if (!folder.isValid())
        return systemError(place);
    // What was made for nobody else becomes a folder like any other.
    QFile::setPermissions(folder.path(), QFileInfo(QFileInfo(place).absolutePath()).permissions());
    const Result<> written = writeDurably(folder.filePath(nameOfText), writeRtf(text));
    if (!written)
        return written;
    const AttachmentFiles attachments(text);
    for (const AttachmentFiles::File &file : attachments.files()) {
        if (file.bytes.isNull())
            continue;
        if (const Result<> copied = writeDurably(folder.filePath(file.key), file.bytes); !copied)
            return copied;
    }
    const Result<> placed = takePlace(folder.path(), place);
    if (placed)
        folder.setAutoRemove(false);
    return placed;
}

} // namespace tavrin::richtext
