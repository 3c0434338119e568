// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"

#include <algorithm>

namespace tavrin {

/// Counts the steps of long work, and now and then reports them and asks whether the work goes on.
class WorkSteps
{
public:
    WorkSteps(Progress &progress, size_t total)
        : g_progress(progress)
        , g_total(total)
        , g_interval(std::max<size_t>(1, total / 200))
    {}

    /// False when the work is to stop; it stays false.
    bool goOn(size_t steps = 1)
    {
        g_done += steps;
        if (g_done >= g_nextReport) {
            g_nextReport = g_done + g_interval;
            g_progress.setDone(static_cast<qint64>(std::min(g_done, g_total)), static_cast<qint64>(g_total));
            g_isStopped = g_isStopped || g_progress.isCancelled();
        }
        return !g_isStopped;
    }
    bool isStopped() const { return g_isStopped; }

private:
    Progress &g_progress;
    size_t g_total;
    size_t g_interval;
    size_t g_done = 0;
    size_t g_nextReport = 0;
    bool g_isStopped = false;
};

} // namespace tavrin
