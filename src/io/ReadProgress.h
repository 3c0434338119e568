// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"

#include <QCoreApplication>

namespace tavrin {

/// Tells a Progress now and then how far the reading of a text is.
class ReadProgress
{
public:
    ReadProgress(qsizetype total, Progress &progress)
        : g_total(total)
        , g_step(qMax<qsizetype>(total / 200, qsizetype(1) << 16))
        , g_progress(progress)
    {}

    /// False when the work was cancelled.
    bool setDone(qsizetype done)
    {
        if (done < g_next)
            return true;
        g_next = done + g_step;
        g_progress.setDone(done, g_total);
        return !g_progress.isCancelled();
    }

private:
    qsizetype g_total;
    qsizetype g_step;
    qsizetype g_next = 0;
    Progress &g_progress;
};

inline Error cancelled()
{
    return {Error::Kind::Cancelled, QCoreApplication::translate("Import", "The work was cancelled.")};
}

inline Error tooManyCells()
{
    return {
        Error::Kind::Unsupported, QCoreApplication::translate("Import", "The file has too many values."), {}};
}

} // namespace tavrin
