// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/TextMatcher.h"

namespace tavrin {

// A text may be stored with "\r\n" between its lines; what shows it has one unit there.

/// A range of the shown text as a range of the stored one, no longer than that.
text::Match storedPlaces(QStringView stored, const text::Match &shown);
/// A range of the stored text as a range of the shown one.
text::Match shownPlaces(QStringView stored, const text::Match &range);

} // namespace tavrin
