// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfEscape.h"

#include <utility>

namespace tavrin::richtext {

bool isWrittenByNumber(char16_t unit)
{
    return (unit < 0x20 && unit != u'\t') || unit > 0x7E;
}

void appendEscaped(QByteArray &rtf, char16_t unit)
{
    if (unit == u'\\' || unit == u'{' || unit == u'}') {
        rtf += '\\';
        rtf += static_cast<char>(unit);
    } else if (isWrittenByNumber(unit)) {
        rtf += "\\u" + QByteArray::number(unit) + ' ';
    } else {
        rtf += static_cast<char>(unit);
    }
}

void appendEscaped(QByteArray &rtf, QStringView text)
{
    bool isUnicodeSaid = false;
    for (const QChar unit : text) {
        if (isWrittenByNumber(unit.unicode()) && !std::exchange(isUnicodeSaid, true))
            rtf += "\\uc0";
        appendEscaped(rtf, unit.unicode());
    }
}

void appendWord(QByteArray &rtf, const char *word, qint32 number)
{
    rtf += word;
    rtf += QByteArray::number(number);
}

} // namespace tavrin::richtext
