// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "io/BatchBuilder.h"
#include "io/ExportedRecords.h"

#include <QJsonObject>
#include <QStringList>

#include <functional>

namespace tavrin {

/// Records of a file that is no table: what they need, and what they are once there are fields for them.
struct ReadRecords
{
    QStringList fieldNames;
    QString textName = {}; ///< Empty: the usual one.
    qsizetype count = 0;
    qsizetype skippedCount = 0; ///< Files that were passed over.
    /// The records themselves, on any thread. Io, Cancelled.
    std::function<Result<RecordBatch>(const RecordsGoal &goal, Progress &progress)> make;
};

/// Writes an array of records, each as `tavrin-cli list --json` gives it with what else is stored of it, one
/// a line, durably. The first one names the fields.
Result<> exportJson(const ExportedRecords &records, const QString &path, Progress &progress);

/// Reads what exportJson() writes, or any array of objects: their keys are then the fields. Corrupt.
Result<ReadRecords> readJson(QByteArrayView bytes);

/// Makes a folder of Markdown files, one a record, with fields and bookkeeping in the front matter. Returns
/// how many.
Result<qsizetype>
exportMarkdown(const ExportedRecords &records, const QString &folder, bool replaces, Progress &progress);

/// Reads the Markdown files of a folder, in the order of their numbers or else of their names. NotFound, Io.
Result<ReadRecords> readMarkdownFolder(const QString &folder, Progress &progress);

/// The flags and dates of a record, as JSON has them.
QJsonObject jsonOfState(const RecordView &record);
/// A record as JSON has it, without number.
QJsonObject jsonOfRecord(const ExportedRecords &records, qsizetype index);
/// The bookkeeping and the texts that such an object holds, put into the record. Fields are not.
void takeBookkeeping(const QJsonObject &object, RecordData &record);

} // namespace tavrin
