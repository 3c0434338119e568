// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/RecordCount.h"

#include "base/Parallel.h"
#include "search/RecordWalk.h"

#include <atomic>

namespace tavrin {

qint64 countRecordsHolding(const RecordRow &row,
                           const RecordSearch &search,
                           const std::vector<SearchKey> &keys,
                           Progress &progress)
{
    // Below that, beginning a thread takes longer.
    constexpr qint64 parallelFrom = 2000;
    const qint64 count = row.count();
    if (count == 0 || keys.empty())
        return 0;
    const int parts = count < parallelFrom ? 1 : parallelParts();
    std::atomic<qint64> found{0};
    inParallel(parts, [&](int part) {
        const qint64 first = count * part / parts;
        const qint64 last = count * (part + 1) / parts - 1;
        qint64 inPart = 0;
        RecordWalk(row, count, progress).visit(first, last, [&](qint64, const RecordView &view) {
            inPart += search.holds(view, keys) ? 1 : 0;
            return true;
        });
        found += inPart;
    });
    return found;
}

} // namespace tavrin
