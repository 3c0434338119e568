// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/FileParts.h"
#include "base/SharedBytes.h"

#include <vector>

namespace tavrin {

/// Reads a file that was just written, but for some stretches of it, in the order of their places: what is
/// left, joined. Io.
Result<SharedBytes>
readBack(const Descriptor &file, const QString &path, const std::vector<FileStretch> &without);

} // namespace tavrin
