// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <QByteArrayView>

#include <optional>

namespace tavrin::plist {

// Numbers and dates as the XML form spells them; independent of the locale.

/// Decimal or 0x hexadecimal, -2^63 to 2^64 - 1; blanks may stand before the number and after its sign.
std::optional<Value> parseInteger(QByteArrayView text);

/// Decimal with optional point and exponent, or a name of infinity or "nan"; blanks may stand before it.
std::optional<double> parseReal(QByteArrayView text);

/// "YYYY-MM-DDThh:mm:ssZ", the year of any length. Months and days out of range count on, as in a calendar.
std::optional<Date> parseDate(QByteArrayView text);

QByteArray formatReal(double value);

/// In whole seconds, the fraction dropped toward the earlier one.
QByteArray formatDate(Date date);

} // namespace tavrin::plist
