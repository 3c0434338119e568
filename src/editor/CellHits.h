// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

namespace tavrin {

/// What the table models tell of the hits in a cell, beside its text.
namespace CellRole {
inline constexpr int hitRanges = Qt::UserRole + 1; ///< A QList<text::Match>; nothing when there are none.
inline constexpr int hitColor = Qt::UserRole + 2;
} // namespace CellRole

} // namespace tavrin
