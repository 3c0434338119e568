// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <limits>

namespace tavrin {

/// The index of what is not there, in every list of the system: 0x7fffffffffffffff.
inline constexpr qint64 NotFound = std::numeric_limits<qint64>::max();

} // namespace tavrin
