// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/BinaryTable.h"

namespace tavrin::plist {

/// Goes over everything that the root refers to and refuses what readBinary() does, for the same reason at
/// the same offset, but makes no values. Takes 4 bytes an object and 16 a container while it runs.
///
/// Unsupported when there are more objects than it can number, about 2^32.
Result<> checkObjects(const BinaryTable &table);

} // namespace tavrin::plist
