// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/Date.h"

#include <algorithm>
#include <cmath>

namespace tavrin {

Date Date::fromDateTime(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return {};
    return {static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000.0 - unixTimeOfReference};
}

QDateTime Date::toDateTime() const
{
    // The farthest instants that QDateTime can still name: years of six digits are ample for records.
    constexpr double limit = 8.0e12;
    const double seconds =
        std::isnan(secondsSinceReference) ? 0.0 : std::clamp(secondsSinceReference, -limit, limit);
    const auto milliseconds = static_cast<qint64>(std::floor((seconds + unixTimeOfReference) * 1000.0));
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

} // namespace tavrin
