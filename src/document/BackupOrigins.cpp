// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/BackupOrigins.h"

#include "base/DurableFile.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

#include <QFileInfo>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QString indexIn(const QString &folder)
{
    return folder + u"/.origins.plist"_s;
}

} // namespace

BackupOrigins::BackupOrigins(const QString &folder) : g_folder(folder)
{
    const Result<QByteArray> bytes = readWhole(indexIn(folder));
    if (!bytes)
        return;
    // With a damaged one nothing is known.
    if (const Result<plist::Dictionary> origins = plist::readDictionary(*bytes))
        g_origins = *origins;
}

QString BackupOrigins::originOf(const QString &backup) const
{
    return g_origins.value(QFileInfo(backup).fileName()).toText();
}

Result<> BackupOrigins::add(const QString &backup, const QString &datafile)
{
    plist::Dictionary present;
    g_origins.forEach([&](const QString &name, const plist::Value &origin) {
        if (QFileInfo::exists(g_folder + u'/' + name))
            present.insert(name, origin);
    });
    present.insert(QFileInfo(backup).fileName(), pathOf(datafile));
    g_origins = present;
    return writeDurably(indexIn(g_folder), plist::toXml(g_origins));
}

QString BackupOrigins::pathOf(const QString &datafile)
{
    const QFileInfo file(datafile);
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

} // namespace tavrin
