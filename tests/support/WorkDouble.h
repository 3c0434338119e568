// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedProgress.h"
#include "editor/LongWork.h"

#include <deque>
#include <vector>

namespace tavrin {

/// Does all work at once, or when the test says so.
class WorkDouble : public WorkHost
{
public:
    void begin(std::unique_ptr<LongWork> work) override
    {
        g_held.push_back(std::move(work));
        if (!g_holds)
            finishNext();
    }

    void finishNext(bool cancelled = false)
    {
        g_done.push_back(std::move(g_held.front())); // Kept: a handler may still be running.
        g_held.pop_front();
        LongWork &next = *g_done.back();
        SharedProgress progress;
        if (cancelled)
            progress.cancel();
        next.run(progress);
        Q_EMIT next.ended();
    }

    bool g_holds = false;
    std::deque<std::unique_ptr<LongWork>> g_held;

private:
    std::vector<std::unique_ptr<LongWork>> g_done;
};

} // namespace tavrin
