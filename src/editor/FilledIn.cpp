// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FilledIn.h"

namespace tavrin {

using namespace Qt::StringLiterals;

QString filledIn(const QString &text, std::initializer_list<QString> arguments)
{
    QString filled;
    QStringView rest = text;
    for (const QString &argument : arguments) {
        const qsizetype object = rest.indexOf("%@"_L1);
        const qsizetype number = rest.indexOf("%lu"_L1);
        const bool isNumber = object < 0 || (number >= 0 && number < object);
        const qsizetype place = isNumber ? number : object;
        if (place < 0)
            break;
        filled += rest.first(place);
        filled += argument;
        rest = rest.sliced(place + (isNumber ? 3 : 2));
    }
    filled += rest;
    return filled;
}

} // namespace tavrin
