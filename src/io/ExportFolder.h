// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"

#include <QString>

#include <functional>
#include <memory>

class QTemporaryDir;

namespace tavrin {

class ExportedRecords;

/// A folder that is filled beside its place and put there when it is whole. Until then, and when it goes
/// before that, nothing of it is left.
class ExportFolder
{
public:
    /// Refused when there is something at the path and it is not to be replaced; Io.
    static Result<ExportFolder> begin(const QString &path, bool replaces);

    ExportFolder(ExportFolder &&) noexcept;
    ExportFolder &operator=(ExportFolder &&) noexcept;
    ~ExportFolder();

    /// Where a file of that name goes for now.
    QString pathOf(const QString &name) const;
    Result<> writeFile(const QString &name, const QByteArray &bytes) const;
    /// Puts it in its place. What was there before is back when that fails.
    Result<> finish();

private:
    ExportFolder(QString path, std::unique_ptr<QTemporaryDir> folder, bool replaces);

    QString g_path;
    std::unique_ptr<QTemporaryDir> g_folder;
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
