// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"

#include <QCoreApplication>

namespace tavrin {

/// Tells a Progress now and then how far the reading of a text is: how many rows were read, of how many that
/// there will be if the others are as long.
class ReadProgress
{
public:
    ReadProgress(qsizetype total, Progress &progress)
        : g_total(total)
        , g_step(qMax<qsizetype>(total / 200, qsizetype(1) << 16))
        , g_progress(progress)
    {}

    /// With the bytes that the rows take. False when the work was cancelled.
    bool setDone(qsizetype done, quint32 rows)
    {
        if (done < g_next)
            return true;
        g_next = done + g_step;
        const double expected =
            static_cast<double>(rows) * static_cast<double>(g_total) / static_cast<double>(done);
        g_progress.setDone(rows, static_cast<qint64>(expected));
        return !g_progress.isCancelled();
    }

private:
    qsizetype g_total;
    qsizetype g_step;
    qsizetype g_next = 1;
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
