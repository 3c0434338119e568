// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/RecordWalk.h"

#include <algorithm>

namespace tavrin {

bool RecordWalk::goesOn()
{
    if (++g_done < g_nextReport)
        return true;
    g_nextReport = g_done + std::max<qint64>(1, g_total / 200);
    g_progress.setDone(std::min(g_done, g_total), g_total);
    return !g_progress.isCancelled();
}

bool RecordWalk::visit(qint64 first, qint64 last, const Visitor &visitor)
{
    // The next hit is often near.
    constexpr qint64 firstPiece = 16;
    constexpr qint64 largestPiece = 4096;
    // What is looked at has to come from memory, mostly; meanwhile the ones before it are looked at.
    constexpr qint64 ahead = 3;
    const qint64 step = first <= last ? 1 : -1;
    const qint64 end = last + step;
    qint64 size = firstPiece;
    for (qint64 at = first; at != end; size = std::min(2 * size, largestPiece)) {
        const qint64 count = std::min(size, std::abs(end - at));
        const std::vector<quint32> numbers = g_row.numbers(step > 0 ? at : at - count + 1, count);
        const auto viewOf = [&](qint64 i) {
            return g_row.view(numbers[static_cast<size_t>(step > 0 ? i : count - 1 - i)]);
        };
        for (qint64 i = 0; i < count; ++i, at += step) {
            if (const auto next = i + ahead < count ? viewOf(i + ahead) : std::nullopt)
                next->fetch();
            const std::optional<RecordView> view = viewOf(i);
            if (!goesOn() || (view && !visitor(at, *view)))
                return false;
        }
    }
    return true;
}

} // namespace tavrin
