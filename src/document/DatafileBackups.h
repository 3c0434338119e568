// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QList>
#include <QLocale>
#include <QStringList>

namespace tavrin {

class DatafileDocument;
class Preferences;

/// The folder in which the person keeps datafiles; without preferences, the usual one.
QString datafilesFolderPath(const Preferences *preferences);

/// A date and a time as a part of a file's name, in the forms of a locale: never with a slash, a colon or a
/// blank.
QString fullDateTime(const QDateTime &dateTime, const QLocale &locale = QLocale());

/// The dated copies of a datafile in the "Backups" folder of the datafiles folder. A document without
/// preferences has it beside its own file.
class DatafileBackups
{
    Q_DECLARE_TR_FUNCTIONS(DatafileBackups)

public:
    struct Backup
    {
        QString path;
        QDateTime written;
        qint64 size; ///< In bytes.
        bool isOwn;  ///< Written of this datafile. Otherwise it may be of another one of the same name.
    };

    /// The document outlives it.
    explicit DatafileBackups(DatafileDocument &document) : g_document(document) {}

    QString folder() const;
    /// Where a backup of now goes; the folder is made. Io.
    Result<QString> newPath() const;

    /// Writes a backup of what the document holds now, and removes the oldest ones where the person keeps
    /// only so many. The document stays at its own file. Its path.
    Result<QString> write() const;
    /// A backup was written there: remembers of what, and removes those beyond what the person keeps; nothing
    /// where all are kept, and none that may be of another datafile.
    void didWrite(const QString &path) const;

    /// Of this datafile and those of which it is not known, the newest first.
    QList<Backup> list() const;

    /// The document is a backup itself: there to be looked at.
    bool isOfBackup() const;
    /// Where a copy of a backup belongs: beside the datafile of which it is, or in the datafiles folder where
    /// that is not known.
    QString pathForCopyOf(const QString &backup) const;

    /// Copies a backup, whole or not at all, in the place of what may be there. Refused where that is the
    /// backup itself or one of the files in use, by whatever name; NotFound or Io.
    static Result<> restore(const QString &backup, const QString &target, const QStringList &filesInUse);

private:
    void removeOld() const;
    QString parentFolder() const;
    QString title() const;
    QString extension() const;

    DatafileDocument &g_document;
};

} // namespace tavrin
