// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/FilledIn.h"

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// The length of the place at the start of the text; 0 when there is none.
qsizetype placeLength(QStringView text)
{
    constexpr std::array places{"%@"_L1, "%U"_L1, "%d"_L1, "%lu"_L1, "%ld"_L1};
    const auto *found =
        std::ranges::find_if(places, [text](QLatin1StringView place) { return text.startsWith(place); });
    return found == places.end() ? 0 : found->size();
}

} // namespace

QString filledIn(const QString &text, std::initializer_list<QString> arguments)
{
    QString filled;
    QStringView rest = text;
    for (const QString &argument : arguments) {
        qsizetype place = rest.indexOf(u'%');
        while (place >= 0 && placeLength(rest.sliced(place)) == 0)
            place = rest.indexOf(u'%', place + 1);
        if (place < 0)
            break;
        filled += rest.first(place);
        filled += argument;
        rest = rest.sliced(place + placeLength(rest.sliced(place)));
    }
    filled += rest;
    return filled;
}

} // namespace tavrin
