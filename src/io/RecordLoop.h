// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "io/ExportedRecords.h"
#include "io/ReadProgress.h"
#include "sorting/WorkSteps.h"

namespace tavrin {

/// Calls visit(index), which gives a Result<>, for each record in its order. What fails ends it, and so does
/// whoever cancels.
template <typename Visit>
Result<> forEachRecord(const ExportedRecords &records, Progress &progress, Visit &&visit)
{
    WorkSteps steps(progress, static_cast<size_t>(records.count()));
    for (qsizetype index = 0; index < records.count(); ++index) {
        if (!steps.goOn())
            return cancelled();
        if (Result<> done = visit(index); !done)
            return done;
    }
    return {};
}

} // namespace tavrin
