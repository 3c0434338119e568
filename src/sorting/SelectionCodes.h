// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace tavrin {

/// The stored numbers of what a condition is based on. Any other means the field that is named beside it.
enum class SelectionBasis : qint64 {
    AnyField = 1000, ///< The Freeform Text Area, too.
    CreatedDate = 1001,
    ModifiedDate = 1002,
    FreeformText = 1003,
};

/// The stored numbers of how values are treated.
enum class TreatAs : qint64 {
    CaseInsensitiveText = 1000,
    CaseSensitiveText = 1001,
    Dates = 1002,
    Numbers = 1003,
};

/// The stored numbers of the operators. Any other never matches.
enum class SelectionOperator : qint64 {
    Contains = 1000,
    DoesNotContain = 1001,
    TextEquals = 1002,
    TextDoesNotEqual = 1003,
    BeginsWith = 1004,
    DoesNotBeginWith = 1005,
    IsEmpty = 1006,
    IsNotEmpty = 1007,
    DateEquals = 1008,
    DateDoesNotEqual = 1009,
    IsLaterThan = 1010,
    IsEarlierThan = 1011,
    IsLessThan = 1012,
    IsGreaterThan = 1013,
    NumberEquals = 1014,
    NumberDoesNotEqual = 1015,
};

} // namespace tavrin
