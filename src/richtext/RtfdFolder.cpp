// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/DurableFile.h"
#include "base/PendingFolder.h"
#include "base/SystemFile.h"
#include "richtext/AttachmentName.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"
#include "richtext/Rtfd.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <cerrno>

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

/// Whether something is there that must not go for a document: a folder with other things in it.
bool isAnotherFolder(const QString &path)
{
    const QDir folder(path);
    return folder.exists() && !folder.isEmpty() && !QFileInfo(folder.filePath(nameOfText)).isFile();
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
    if (isAnotherFolder(path))
        return Error{
            Error::Kind::Unsupported,
            QCoreApplication::translate("RichText", "A folder that is no RTFD document is in the way."),
            path};
    Result<PendingFolder> pending = PendingFolder::beside(path);
    if (!pending)
        return pending.error();
    const QDir folder(pending->path());
    if (const Result<> written = writeDurably(folder.filePath(nameOfText), writeRtf(text)); !written)
        return written;
    const AttachmentFiles attachments(text);
    for (const AttachmentFiles::File &file : attachments.files()) {
        if (file.bytes.isNull())
            continue;
        if (const Result<> copied = writeDurably(folder.filePath(file.key), file.bytes); !copied)
            return copied;
    }
    return pending->takePlace();
}

} // namespace tavrin::richtext
