// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "io/ExportedRecords.h"

#include <optional>

namespace tavrin {

/// Writes all records into one text file in UTF-16, durably.
Result<> exportTextFile(const ExportedRecords &records, const QString &path, Progress &progress);

/// How a folder with a file for each record is made.
struct FolderExportOptions
{
    QString parent;                    ///< The folder in which it is made.
    std::optional<int> nameField = {}; ///< Whose content names the files; none: the datafile's name does.
    bool replacesFolder = false;       ///< Else a folder of that name is Refused.
};

/// Makes a folder of text files in UTF-8. How many files there are; when it fails there is none.
Result<qsizetype>
exportTextFolder(const ExportedRecords &records, const FolderExportOptions &options, Progress &progress);

/// The text of one record as a file of the folder holds it; the field that names the file is left out.
QString plainTextOfRecord(const ExportedRecords &records, qsizetype index, std::optional<int> nameField);

/// The name of a record's file without its extension: "Name_1".
QString exportedFileName(const ExportedRecords &records, qsizetype index, std::optional<int> nameField);

/// As one document with a heading for each record, durably.
Result<> exportRtfd(const ExportedRecords &records, const QString &path, Progress &progress);

/// Makes a folder of rich text documents, one a record.
Result<qsizetype>
exportRtfdFolder(const ExportedRecords &records, const FolderExportOptions &options, Progress &progress);

} // namespace tavrin
