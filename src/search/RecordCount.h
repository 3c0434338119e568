// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "search/RecordRow.h"
#include "search/RecordSearch.h"

namespace tavrin {

/// How many records of the row hold every key. All processors do it; the progress is asked, and told, on
/// several threads at once. When it is cancelled, what has been found until then.
qint64 countRecordsHolding(const RecordRow &row,
                           const RecordSearch &search,
                           const std::vector<SearchKey> &keys,
                           Progress &progress);

} // namespace tavrin
