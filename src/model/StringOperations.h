// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// A size for people: "Zero KB", "512 bytes", "1.5 MB". Counts in the 32 bits of the format's first platform.
QString stringAsBytesWithInt(qint32 count);

QString left(const QString &text, qint64 length);
/// The whole text when the length is not below the text's own.
QString right(const QString &text, qint64 length);
/// Empty when the index is not inside the text.
QString from(const QString &text, qint64 index, qint64 length);

/// An empty part is contained in nothing.
bool containsString(const QString &text, const QString &part);

/// One pass, from the start; what was put in is not searched again.
QString
stringByReplacingAllOccurrencesOf(const QString &text, const QString &part, const QString &replacement);
/// Until none is left. A replacement that contains the part throws InternalInconsistency.
void replaceAllOccurrencesOf(QString &text, const QString &part, const QString &replacement);

/// Removes blanks only, no other white space.
void deleteLeadingSpaces(QString &text, bool leading, bool trailing);

/// A complete web address of what a person typed: a scheme, a dotted host and a path.
QString stringByCleaningURLWithDefaultScheme(const QString &text, const QString &defaultScheme = {});

/// A text that can name a file in every file system we know; the default when nothing remains.
QString stringByCleaningFilenameWithDefault(const QString &text, const QString &defaultName);

/// Paths are texts here: their parts are cut as the datafile's own platform cuts them, which differs from
/// QFileInfo for hidden files, trailing slashes and extensions with a blank.
QString lastPathComponent(const QString &path);
QString pathExtension(const QString &path);
QString stringByDeletingPathExtension(const QString &path);
QString lastPathComponentWithoutExtension(const QString &path);

/// "~" at the start stands for the home folder.
QString stringByExpandingTildeInPath(const QString &path, const QString &home);
QString stringByAbbreviatingWithTildeInPath(const QString &path, const QString &home);
/// The path as it is when it names nothing.
QString stringByResolvingSymlinksInPath(const QString &path);
/// The path when it names a folder, else null.
QString validatedDirectoryPath(const QString &path);

} // namespace tavrin
