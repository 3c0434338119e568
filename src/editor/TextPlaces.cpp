// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TextPlaces.h"

#include <algorithm>

namespace tavrin {

using text::Match;

namespace {

constexpr QStringView twoUnits = u"\r\n";

qsizetype storedPlace(QStringView stored, qsizetype shown)
{
    qsizetype place = shown;
    for (qsizetype at = stored.indexOf(twoUnits); at >= 0 && at < place;
         at = stored.indexOf(twoUnits, at + 2))
        ++place;
    return std::min(place, stored.size());
}

qsizetype shownPlace(QStringView stored, qsizetype place)
{
    return place - stored.first(place).count(twoUnits);
}

Match between(qsizetype start, qsizetype end)
{
    return {start, end - start};
}

} // namespace

Match storedPlaces(QStringView stored, const Match &shown)
{
    return between(storedPlace(stored, shown.start), storedPlace(stored, shown.start + shown.length));
}

Match shownPlaces(QStringView stored, const Match &range)
{
    return between(shownPlace(stored, range.start), shownPlace(stored, range.start + range.length));
}

} // namespace tavrin
