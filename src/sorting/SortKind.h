// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace tavrin {

/// The stored numbers of the kinds of sort. Others sort as text; so does 0.
enum class SortKind : qint64 {
    Text = 1,
    Numbers = 2,
    StandardDates = 3,
    EmailDates = 4,
    AllFields = 5,
    FreeformName = 6,
    FreeformWord = 7,
    PostalCode = 8,
    CreatedDate = 9,
    ModifiedDate = 10,
    FreeformText = 11,
};

/// Stored in the place of a line or word number.
namespace SortPlace {
inline constexpr qint64 lastLineOfAddress = -1; ///< Of the name.
inline constexpr qint64 lastLineOfText = -2;    ///< Of the name.
inline constexpr qint64 lastWord = -3;
inline constexpr qint64 fromStartOfAddress = -4; ///< Where the word's line is counted from.
inline constexpr qint64 fromEndOfAddress = -5;
inline constexpr qint64 fromStartOfText = -6;
inline constexpr qint64 fromEndOfText = -7;
} // namespace SortPlace

} // namespace tavrin
