// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

namespace tavrin {

/// How a stored text reads as a number or a yes: from its start, as far as it makes sense, never failing.

/// Skips blanks; Y, y, T or t first means yes; so does an optional sign and zeros before a digit 1-9.
bool boolValue(QStringView text);

/// Blanks, sign, decimal digits up to the first other character; 0 when there are none; clamped to 64 bits.
qint64 integerValue(QStringView text);

/// Blanks, sign, digits, ".", digits, exponent up to the first other character; 0 when there are none.
double doubleValue(QStringView text);

} // namespace tavrin
