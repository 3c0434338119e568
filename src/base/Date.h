// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>

#include <compare>

namespace tavrin {

/// An instant, as property lists store it: seconds since 2001-01-01T00:00:00Z.
struct Date
{
    double secondsSinceReference = 0;

    static constexpr double unixTimeOfReference = 978307200.0;

    /// Invalid date-times give the reference instant.
    static Date fromDateTime(const QDateTime &dateTime);

    /// The instant in UTC, to the millisecond; an instant beyond what QDateTime holds is clamped.
    QDateTime toDateTime() const;

    friend auto operator<=>(const Date &, const Date &) = default;
};

} // namespace tavrin
