// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "io/ReadProgress.h"
#include "io/RecordBatch.h"
#include "model/RecordData.h"
#include "sorting/WorkSteps.h"

#include <QSet>
#include <QStringList>

#include <vector>

namespace tavrin {

/// Collects records that are made one by one, for files that hold them so.
class BatchBuilder
{
public:
    explicit BatchBuilder(const Environment &environment);

    /// An empty record, stamped as modified now.
    RecordData newRecord() const;
    /// The record gets an identifier of its own when it has none that can be kept: one of the usual length
    /// that came only once and is not `taken`.
    void add(RecordData record);
    void setTaken(const QSet<QString> &identifiers) { g_taken = identifiers; }
    qsizetype count() const { return static_cast<qsizetype>(g_records.size()); }

    /// Io when there is too little memory.
    Result<RecordBatch> finish();

private:
    Environment g_environment;
    RecordData g_pattern;
    std::vector<plist::Dictionary> g_records;
    QByteArray g_identifiers;
    QSet<QString> g_taken;
};

/// The datafile for which records are made, as far as they need it.
struct RecordsGoal
{
    QStringList fields;  ///< Identifiers of the fields that take values, in the order of the values.
    QSet<QString> taken; ///< Identifiers of records that are not used again.
    Environment environment;
};

/// The records of things, each filled from one of them by `fill(thing, record)`. Io, Cancelled.
template <typename Things, typename Fill>
Result<RecordBatch>
batchOfEach(const Things &things, const RecordsGoal &goal, Progress &progress, const Fill &fill)
{
    BatchBuilder builder(goal.environment);
    builder.setTaken(goal.taken);
    WorkSteps steps(progress, static_cast<size_t>(things.size()));
    for (const auto &thing : things) {
        if (!steps.goOn())
            return cancelled();
        RecordData record = builder.newRecord();
        fill(thing, record);
        builder.add(std::move(record));
    }
    return builder.finish();
}

} // namespace tavrin
