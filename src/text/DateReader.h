// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Date.h"

#include <QStringView>
#include <QTimeZone>

#include <optional>

namespace tavrin::text {

/// Reads the dates that people write, the same ones in every locale: "Mar 5, 2007", with the month in full
/// or in three letters, and ISO 8601, "2007-03-05" or "2007-03-05T10:15:00Z".
///
/// A date without a time is the first instant of that day in the given zone, as is a time without a zone
/// there. What follows the date is passed over.
class DateReader
{
public:
    explicit DateReader(const QTimeZone &zone = QTimeZone::systemTimeZone()) : g_zone(zone) {}

    /// None when the text does not begin with a date.
    std::optional<Date> read(QStringView text) const;

private:
    std::optional<Date> readMedium(QStringView text) const;
    std::optional<Date> readIso(QStringView text) const;
    std::optional<Date> startOfDay(qint64 year, qint64 month, qint64 day) const;

    QTimeZone g_zone;
};

} // namespace tavrin::text
