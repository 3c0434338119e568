// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "io/RecordBatch.h"
#include "model/RecordData.h"

#include <QSet>

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

} // namespace tavrin
