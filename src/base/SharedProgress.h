// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"

#include <atomic>

namespace tavrin {

/// A Progress that one thread works with while another one watches it and may cancel.
class SharedProgress : public Progress
{
public:
    void setDone(qint64 done, qint64 total) override
    {
        g_total = total;
        g_done = done;
    }
    bool isCancelled() const override { return g_cancelled; }

    void cancel() { g_cancelled = true; }

    /// Between 0 and 1; negative while the total is not known.
    double fraction() const
    {
        const qint64 total = g_total;
        return total > 0 ? static_cast<double>(g_done) / static_cast<double>(total) : -1;
    }

    qint64 done() const { return g_done; }
    /// 0 while it is not known.
    qint64 total() const { return g_total; }

private:
    std::atomic<qint64> g_done{0};
    std::atomic<qint64> g_total{0};
    std::atomic<bool> g_cancelled{false};
};

} // namespace tavrin
