// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/ScalarText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace tavrin::plist {

namespace {

constexpr qint64 secondsPerDay = 86400;

// Instants stop here, where seconds still fit in 64 bits; the year is a little farther out.
constexpr double farthestInstant = 6.3e18;
constexpr qint64 farthestYear = 200'000'000'000;

struct CivilDay
{
    qint64 year;
    qint64 month; ///< 1 to 12
    qint64 day;   ///< 1 to 31
};

constexpr qint64 floorDivided(qint64 value, qint64 divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Days since 2001-01-01. Years are counted from March, so that the leap day is the last of its year.
qint64 daysSinceReference(qint64 year, qint64 month, qint64 day)
{
    const qint64 months = month - 3;
    const qint64 marchYear = year + floorDivided(months, 12);
    const qint64 marchMonth = months - 12 * floorDivided(months, 12);
    const qint64 era = floorDivided(marchYear, 400);
    const qint64 yearOfEra = marchYear - era * 400;
    const qint64 dayOfYear = (153 * marchMonth + 2) / 5 + day - 1;
    constexpr qint64 daysToReference = 730791; // from 0000-03-01 to 2001-01-01
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - daysToReference;
}

CivilDay civilDay(qint64 days)
{
    // The year is guessed from the mean length and put right by at most one step.
    const qint64 estimate = 2001 + floorDivided(days * 400, 146097);
    qint64 year = estimate + 1;
    while (daysSinceReference(year, 1, 1) > days)
        --year;
    qint64 month = 12;
    while (daysSinceReference(year, month, 1) > days)
        --month;
    return {year, month, days - daysSinceReference(year, month, 1) + 1};
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

// "-MM-DDThh:mm:ssZ", where each letter of the pattern below stands for a digit of that field.
bool parseFields(QByteArrayView text, std::array<qint64, 5> &fields)
{
    constexpr QByteArrayView pattern("-00-11T22:33:44Z");
    if (text.size() != pattern.size())
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isDigit(pattern[i])) {
            if (text[i] != pattern[i])
                return false;
            continue;
        }
        if (!isDigit(text[i]))
            return false;
        qint64 &field = fields[static_cast<size_t>(pattern[i] - '0')];
        field = field * 10 + (text[i] - '0');
    }
    return true;
}

// Whether a decimal that no double can hold is too large rather than too small.
bool isAboveOne(QByteArrayView text)
{
    const char *mantissaEnd =
        std::find_if(text.begin(), text.end(), [](char byte) { return byte == 'e' || byte == 'E'; });
    const char *point = std::find(text.begin(), mantissaEnd, '.');
    const char *leading =
        std::find_if(text.begin(), mantissaEnd, [](char byte) { return byte >= '1' && byte <= '9'; });
    const qint64 magnitude = point - leading; // of the leading digit, in powers of ten
    const char *exponentStart = mantissaEnd;
    if (exponentStart != text.end())
        ++exponentStart;
    const bool isNegative = exponentStart != text.end() && *exponentStart == '-';
    if (exponentStart != text.end() && (isNegative || *exponentStart == '+'))
        ++exponentStart;
    qint64 exponent = 0;
    if (std::from_chars(exponentStart, text.end(), exponent).ec == std::errc::result_out_of_range)
        exponent = std::numeric_limits<qint32>::max() * qint64(text.size());
    return magnitude + (isNegative ? -exponent : exponent) > 0;
}

bool equalsIgnoringCase(QByteArrayView text, QByteArrayView name)
{
    return text.compare(name, Qt::CaseInsensitive) == 0;
}

} // namespace

std::optional<Value> parseInteger(QByteArrayView text)
{
    const char *at = text.begin();
    const char *end = text.end();
    const auto skipBlanks = [&at, end] {
        at = std::find_if(at, end, [](char byte) { return static_cast<uchar>(byte) > ' '; });
    };
    skipBlanks();
    const bool isNegative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) {
        ++at;
        skipBlanks();
    }
    const bool isHexadecimal = end - at > 2 && at[0] == '0' && (at[1] == 'x' || at[1] == 'X');
    if (isHexadecimal)
        at += 2;
    quint64 magnitude = 0;
    const auto [stop, error] = std::from_chars(at, end, magnitude, isHexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end)
        return {};
    if (!isNegative)
        return Value(magnitude);
    constexpr quint64 largest = quint64(1) << 63;
    if (magnitude > largest)
        return {};
    return Value(static_cast<qint64>(0 - magnitude));
}

std::optional<double> parseReal(QByteArrayView text)
{
    while (!text.isEmpty() && (text.front() == ' ' || (text.front() >= '\t' && text.front() <= '\r')))
        text = text.sliced(1);
    const bool isNegative = text.startsWith('-');
    if (isNegative || text.startsWith('+'))
        text = text.sliced(1);
    const double sign = isNegative ? -1.0 : 1.0;
    if (equalsIgnoringCase(text, "inf") || equalsIgnoringCase(text, "infinity"))
        return sign * std::numeric_limits<double>::infinity();
    if (equalsIgnoringCase(text, "nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (text.isEmpty() || (!isDigit(text.front()) && text.front() != '.'))
        return {};
    double magnitude = 0;
    const auto [stop, error] = std::from_chars(text.begin(), text.end(), magnitude);
    if (stop != text.end() || error == std::errc::invalid_argument)
        return {};
    if (error == std::errc::result_out_of_range)
        magnitude = isAboveOne(text) ? std::numeric_limits<double>::infinity() : 0.0;
    return sign * magnitude;
}

std::optional<Date> parseDate(QByteArrayView text)
{
    const bool isNegative = text.startsWith('-');
    if (isNegative)
        text = text.sliced(1);
    const char *yearEnd = std::find_if_not(text.begin(), text.end(), isDigit);
    qint64 year = 0;
    if (yearEnd == text.begin())
        return {};
    if (std::from_chars(text.begin(), yearEnd, year).ec != std::errc())
        year = farthestYear;
    year = std::min(year, farthestYear);
    std::array<qint64, 5> fields{};
    if (!parseFields(text.sliced(yearEnd - text.begin()), fields))
        return {};
    const auto [month, day, hours, minutes, seconds] = fields;
    const qint64 days = daysSinceReference(isNegative ? -year : year, month, day);
    const auto instant = static_cast<double>(days * secondsPerDay + hours * 3600 + minutes * 60 + seconds);
    return Date{std::clamp(instant, -farthestInstant, farthestInstant)};
}

QByteArray formatReal(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value > 0 ? "+infinity" : "-infinity";
    if (value == 0)
        return "0.0";
    std::array<char, 32> digits{};
    const auto [end, error] =
        std::to_chars(digits.begin(), digits.end(), value, std::chars_format::general, 17);
    return {digits.data(), end - digits.data()};
}

namespace {

/// In decimal, with zeros before it when it takes less than so many characters, the sign being one. Many
/// dates are written, and what the standard library prints with takes three times as long.
char *putDigits(qint64 value, int width, char *out)
{
    if (value < 0) {
        *out++ = '-';
        value = -value;
        --width;
    }
    std::array<char, 20> digits{};
    const char *end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    out = std::fill_n(out, std::max<qsizetype>(width - (end - digits.begin()), 0), '0');
    return std::copy(std::as_const(digits).begin(), end, out);
}

} // namespace

QByteArray formatDate(Date date)
{
    const double seconds = std::isnan(date.secondsSinceReference)
                               ? 0.0
                               : std::clamp(date.secondsSinceReference, -farthestInstant, farthestInstant);
    const auto whole = static_cast<qint64>(std::floor(seconds));
    const qint64 days = floorDivided(whole, secondsPerDay);
    const qint64 ofDay = whole - days * secondsPerDay;
    const CivilDay civil = civilDay(days);
    std::array<char, 64> text{};
    char *end = putDigits(civil.year, 4, text.data());
    const auto put = [&end](char separator, qint64 value) {
        *end++ = separator;
        end = putDigits(value, 2, end);
    };
    put('-', civil.month);
    put('-', civil.day);
    put('T', ofDay / 3600);
    put(':', ofDay / 60 % 60);
    put(':', ofDay % 60);
    *end++ = 'Z';
    return {text.data(), end - text.data()};
}

} // namespace tavrin::plist
