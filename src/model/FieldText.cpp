// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/FieldText.h"

#include <algorithm>

namespace tavrin {

QString singleLineFieldText(QString text)
{
    const auto endsLine = [](QChar unit) {
        return unit == u'\n' || unit == u'\r' || unit == u'\t' || unit == QChar::LineSeparator
               || unit == QChar::ParagraphSeparator;
    };
    // Nearly every text is clean already, and then goes on sharing its characters.
    if (std::any_of(text.cbegin(), text.cend(), endsLine))
        std::ranges::replace_if(text, endsLine, u' ');
    return text;
}

} // namespace tavrin
