// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace tavrin {

/// How many parts to cut work into: as many as there are processors, at most 8.
int parallelParts();

/// Calls work(part) for every part from 0 on, each on a thread of its own but for the first, which the caller
/// does. Returns when all are done. The work must not throw.
void inParallel(int parts, const std::function<void(int part)> &work);

} // namespace tavrin
