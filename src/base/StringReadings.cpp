// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/StringReadings.h"

#include <QByteArray>

#include <charconv>
#include <limits>

namespace tavrin {

namespace {

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isSign(QChar c)
{
    return c == u'+' || c == u'-';
}

qsizetype digitsFrom(QStringView text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && isAsciiDigit(text[end]))
        ++end;
    return end;
}

/// The end of the longest prefix that is a decimal number: digits, a point and digits, an exponent.
qsizetype endOfDecimal(QStringView text, qsizetype start)
{
    qsizetype end = digitsFrom(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = digitsFrom(text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0)
        return start;
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        qsizetype exponent = end + 1;
        if (exponent < text.size() && isSign(text[exponent]))
            ++exponent;
        const qsizetype exponentEnd = digitsFrom(text, exponent);
        if (exponentEnd > exponent)
            end = exponentEnd;
    }
    return end;
}

} // namespace

bool boolValue(QStringView text)
{
    text = text.trimmed();
    if (text.isEmpty())
        return false;
    if (QStringView(u"YyTt").contains(text.front()))
        return true;
    if (isSign(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && text.front() == u'0')
        text = text.sliced(1);
    return !text.isEmpty() && isAsciiDigit(text.front());
}

qint64 integerValue(QStringView text)
{
    text = text.trimmed();
    const bool negative = text.startsWith(u'-');
    if (!text.isEmpty() && isSign(text.front()))
        text = text.sliced(1);
    const qsizetype end = digitsFrom(text, 0);
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    qint64 value = 0;
    for (QChar c : text.first(end)) {
        const qint64 digit = c.unicode() - u'0';
        if (value > (largest - digit) / 10)
            return negative ? std::numeric_limits<qint64>::min() : largest;
        value = value * 10 + digit;
    }
    return negative ? -value : value;
}

double doubleValue(QStringView text)
{
    text = text.trimmed();
    const bool negative = text.startsWith(u'-');
    if (!text.isEmpty() && isSign(text.front()))
        text = text.sliced(1);
    const QByteArray digits = text.first(endOfDecimal(text, 0)).toLatin1();
    double value = 0;
    const auto outcome = std::from_chars(digits.begin(), digits.end(), value);
    if (outcome.ec == std::errc::result_out_of_range)
        value =
            digits.contains("e-") || digits.contains("E-") ? 0.0 : std::numeric_limits<double>::infinity();
    return negative ? -value : value;
}

} // namespace tavrin
