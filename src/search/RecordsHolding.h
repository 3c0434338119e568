// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "search/RecordRow.h"
#include "search/RecordSearch.h"

#include <optional>
#include <vector>

namespace tavrin {

/// The places of the records of the row that hold every key, in order; none when it was cancelled.
///
/// All processors look for them: the row is read, and the progress told, on several threads at once.
std::optional<std::vector<qint64>> recordsHolding(const RecordRow &row,
                                                  const RecordSearch &search,
                                                  const std::vector<SearchKey> &keys,
                                                  Progress &progress);

} // namespace tavrin
