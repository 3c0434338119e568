// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "io/RecordFiles.h"
#include "richtext/AttributedText.h"

#include <QStringList>

#include <optional>

namespace tavrin {

/// The files of a folder that are to be read, in the natural order of their names ("2" before "10").
struct FolderFiles
{
    QStringList paths;
    qsizetype skippedCount = 0; ///< Hidden files, and those of other kinds.
};

/// Of those extensions (without full stop, lower case). A folder called "x.rtfd" counts as a file where rtfd
/// is one of them. NotFound.
Result<FolderFiles>
filesOfFolder(const QString &folder, const QStringList &extensions, bool includingSubfolders);

struct FolderImportOptions
{
    bool includingSubfolders = false;
    bool includingFileNames = false; ///< They go into the first field.
};

/// Reads the text files of a folder (txt, text, md, rtf, rtfd, html), each as the text of a record. Binary
/// files and those that cannot be read are passed over, and counted.
Result<ReadRecords>
readTextFolder(const QString &folder, const FolderImportOptions &options, Progress &progress);

/// Whether a text is to be read by readRichTextFile(). One that is called txt or text is plain, whatever is
/// in it.
bool isRichTextFile(const QString &path);
/// The RTFD document in which the file is, for panels in which a folder cannot be chosen; else the file
/// itself.
QString richTextDocumentOf(const QString &path);
/// Reads a file of rich text: RTF or RTFD, in either form. Corrupt, NotFound, Io.
Result<richtext::AttributedText> readRichTextFile(const QString &path);

/// The stretches between delimiters, as texts of records; see readCustomDelimited().
ReadRecords cutRichText(const richtext::AttributedText &text, const QString &delimiter);

/// The text of an HTML page, without its head, scripts and tags.
QString textOfHtml(const QString &html);

} // namespace tavrin
