// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "search/RecordRow.h"

#include <functional>

namespace tavrin {

/// Goes over the records of a row one by one, in either direction, however many there are.
class RecordWalk
{
public:
    /// Says whether to go on. The record is given by its place in the row.
    using Visitor = std::function<bool(qint64 record, const RecordView &view)>;

    /// `total` is how many records are to be visited in all, for the progress. All of them outlive it.
    RecordWalk(const RecordRow &row, qint64 total, Progress &progress)
        : g_row(row)
        , g_total(total)
        , g_progress(progress)
    {}

    /// From the first to the last record, both included; backwards when the last comes before the first.
    /// Entries that name no record are passed over. False when the visitor or the progress stopped it.
    bool visit(qint64 first, qint64 last, const Visitor &visitor);

private:
    bool goesOn();

    const RecordRow &g_row;
    qint64 g_total;
    Progress &g_progress;
    qint64 g_done = 0;
    qint64 g_nextReport = 0;
};

} // namespace tavrin
