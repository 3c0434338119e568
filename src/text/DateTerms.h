// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Date.h"

#include <QLocale>

#include <optional>

namespace tavrin::text {

/// What a date typed as text sorts by. Texts, compared as such: only what reads year first comes out in the
/// order of time.

/// The term of an empty date.
QString emptyDateTerm();

/// The text itself, unless it is cut into a day, a month, a year and a time; the weekday goes. None when it
/// is a weekday alone, or has other pieces than these.
std::optional<QString> reassembledStandardDateString(const QString &text);

/// The date of an e-mail, "Mon, 5 Mar 2007 10:15:00 +0000", as "2007-03-05 10:15:00 UTC": the zone is
/// dropped, the time is not converted. None when there is no day, month, year and time in that order.
std::optional<QString> reassembledEmailDateString(const QString &text);

/// "2007-03-05 10:15:00 +0000": sorts as text in the order of time.
QString dateDescription(Date date);

/// The pattern in which a short date is written: "M/d/yy".
QString getShortDateFormat(const QLocale &locale);

/// The order of year, month and day in such a pattern, and the time: "MDYH".
QString dateElementOrder(const QString &shortDateFormat);

} // namespace tavrin::text
