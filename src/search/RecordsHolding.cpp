// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/RecordsHolding.h"

#include "base/Parallel.h"
#include "search/RecordWalk.h"

#include <atomic>

namespace tavrin {

std::optional<std::vector<qint64>> recordsHolding(const RecordRow &row,
                                                  const RecordSearch &search,
                                                  const std::vector<SearchKey> &keys,
                                                  Progress &progress)
{
    // Of fewer, beginning a thread takes longer.
    constexpr qint64 parallelFrom = 2000;
    const qint64 count = row.count();
    if (count == 0 || keys.empty())
        return std::vector<qint64>();
    const int parts = count < parallelFrom ? 1 : parallelParts();
    std::vector<std::vector<qint64>> found(static_cast<size_t>(parts));
    std::atomic<bool> isFinished{true};
    inParallel(parts, [&](int part) {
        const qint64 first = count * part / parts;
        const qint64 last = count * (part + 1) / parts - 1;
        std::vector<qint64> inPart;
        const auto look = [&](qint64 record, const RecordView &view) {
            if (search.holds(view, keys))
                inPart.push_back(record);
            return true;
        };
        if (!RecordWalk(row, count, progress).visit(first, last, look))
            isFinished = false;
        found[static_cast<size_t>(part)] = std::move(inPart);
    });
    if (!isFinished)
        return {};
    std::vector<qint64> all = std::move(found.front());
    for (size_t part = 1; part < found.size(); ++part)
        all.insert(all.end(), found[part].begin(), found[part].end());
    return all;
}

} // namespace tavrin
