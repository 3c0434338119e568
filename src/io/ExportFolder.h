// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/PendingFolder.h"
#include "base/Progress.h"
#include "base/Result.h"

#include <QString>

#include <functional>

namespace tavrin {

class ExportedRecords;

/// A folder for exported files, which is there only when it is whole.
class ExportFolder
{
public:
    /// Refused when there is something at the path and it is not to be replaced; Io.
    static Result<ExportFolder> begin(const QString &path, bool replaces);

    /// Where a file of that name goes for now.
    QString pathOf(const QString &name) const;
    Result<> writeFile(const QString &name, const QByteArray &bytes) const;
    /// Puts it in its place. What was there before is back when that fails. Refused, Io.
    Result<> finish();

private:
    ExportFolder(PendingFolder folder, bool replaces);

    PendingFolder g_folder;
    bool g_replaces;
};

/// Makes such a folder with a file for each record, which `write` writes into it. How many there are; when it
/// fails there is none.
Result<qsizetype>
exportRecordFolder(const ExportedRecords &records,
                   const QString &path,
                   bool replaces,
                   Progress &progress,
                   const std::function<Result<>(const ExportFolder &folder, qsizetype index)> &write);

/// Text as part of a file's name: what file systems do not take becomes "-", and it is not too long.
QString fileNamePart(const QString &text);

} // namespace tavrin
