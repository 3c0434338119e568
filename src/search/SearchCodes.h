// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace tavrin {

/// Where in a record to search. Any other value is the index of the one field to search in.
namespace FieldsToSearchIn {
inline constexpr qint64 freeformText = 1001;
inline constexpr qint64 everything = 1002; ///< Every field, then the Freeform Text Area.
} // namespace FieldsToSearchIn

/// Where a hit is. Any value from 0 below these is the index of a field.
namespace HitField {
inline constexpr qint64 freeformText = 9999;
} // namespace HitField

/// What a window remembers of its last hit, besides the index of a field, and the number of fields + 1 for a
/// hit of several keys.
namespace LastHitField {
inline constexpr qint64 none = -1;
inline constexpr qint64 freeformText = -2;
} // namespace LastHitField

} // namespace tavrin
