// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/NumberReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace tavrin::text {

using namespace Qt::StringLiterals;

/// Those that a double holds exactly.
constexpr std::array powersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Digits read so far. Few of them, as nearly always, make a number without a detour through text.
struct Digits
{
    quint64 value = 0;
    int count = 0;      ///< Without leading zeros.
    int afterPoint = 0; ///< How many of them stand behind the decimal point.
    int taken = 0;      ///< With them.
    std::string asText; ///< Filled once they are too many for `value`.

    static constexpr int exact = 15;

    void add(int digit)
    {
        ++taken;
        if (count == exact)
            asText = std::to_string(value);
        if (count >= exact)
            asText += static_cast<char>('0' + digit);
        else
            value = value * 10 + static_cast<quint64>(digit);
        if (count > 0 || digit != 0)
            ++count;
    }

    double toDouble(int exponent) const
    {
        constexpr int greatestPower = static_cast<int>(powersOfTen.size()) - 1;
        const int scale = exponent - afterPoint;
        // Both operands are exact, so the result is the nearest number.
        if (asText.empty() && std::abs(scale) <= greatestPower) {
            const double power = powersOfTen[static_cast<size_t>(std::abs(scale))];
            const auto whole = static_cast<double>(value);
            return scale < 0 ? whole / power : whole * power;
        }
        const std::string text =
            (asText.empty() ? std::to_string(value) : asText) + 'e' + std::to_string(scale);
        double number = 0;
        const auto outcome = std::from_chars(text.data(), text.data() + text.size(), number);
        if (outcome.ec == std::errc::result_out_of_range)
            return scale < 0 ? 0 : std::numeric_limits<double>::infinity();
        return number;
    }
};

namespace {

/// Whether "12 kg" is no number, rather than 12.
constexpr bool mustUseWholeText = true;

/// -1 for what is no decimal digit of any script.
int digitOf(QChar c)
{
    const int ascii = c.unicode() - u'0';
    if (c.unicode() < 0x80)
        return ascii >= 0 && ascii <= 9 ? ascii : -1;
    return c.isDigit() ? c.digitValue() : -1;
}

bool takeDigit(QStringView &text, Digits &digits)
{
    const int digit = text.isEmpty() ? -1 : digitOf(text.front());
    if (digit < 0)
        return false;
    digits.add(digit);
    text = text.sliced(1);
    return true;
}

/// An exponent with at least one digit; otherwise nothing is taken, and it is 0.
int takeExponent(QStringView &text)
{
    QStringView rest = text;
    if (!rest.startsWith(u'e') && !rest.startsWith(u'E'))
        return 0;
    rest = rest.sliced(1);
    const bool isNegative = rest.startsWith(u'-');
    if (isNegative || rest.startsWith(u'+'))
        rest = rest.sliced(1);
    Digits digits;
    while (takeDigit(rest, digits)) {
    }
    if (digits.taken == 0)
        return 0;
    text = rest;
    constexpr quint64 greatest = 9999;
    const int exponent =
        static_cast<int>(digits.asText.empty() ? std::min(digits.value, greatest) : greatest);
    return isNegative ? -exponent : exponent;
}

QChar onlyUnit(const QString &text)
{
    return text.size() == 1 ? text.front() : QChar();
}

} // namespace

NumberReader::NumberReader(const QLocale &locale)
    : g_decimalPoint(onlyUnit(locale.decimalPoint()))
    , g_minusSigns(u"-\u2212"_s)
    ,
    // People mix up blanks and apostrophes, which nothing else in a number could mean.
    g_groupSeparators(u" \u00A0\u2009\u202F'\u2019,."_s)
{
    g_minusSigns += onlyUnit(locale.negativeSign());
    g_groupSeparators += onlyUnit(locale.groupSeparator());
    g_groupSeparators.remove(g_decimalPoint);

    QLocale grouping = locale;
    grouping.setNumberOptions(QLocale::DefaultNumberOptions);
    std::vector<qsizetype> groups{0};
    for (const QChar c : grouping.toString(qint64(1234567890))) {
        if (c.isDigit())
            ++groups.back();
        else if (isGroupSeparator(c))
            groups.push_back(0);
    }
    if (groups.size() >= 3) {
        g_lastGroup = groups.back();
        g_otherGroups = groups[groups.size() - 2];
    }
    if (g_lastGroup == 3 && g_otherGroups == 3)
        g_groupSeparator = onlyUnit(locale.groupSeparator());
}

bool NumberReader::isGroupSeparator(QChar c) const
{
    return g_groupSeparators.contains(c);
}

/// The digits before the decimal point. False when they are grouped wrongly.
bool NumberReader::takeInteger(QStringView &text, Digits &digits) const
{
    QChar separator;
    qsizetype groupSize = 0;
    for (bool isFirst = true;; isFirst = false) {
        groupSize = 0;
        while (takeDigit(text, digits))
            ++groupSize;
        const bool goesOn =
            text.size() > 1 && groupSize > 0 && digitOf(text[1]) >= 0
            && (separator.isNull() ? isGroupSeparator(text.front()) : text.front() == separator);
        if (!goesOn)
            break;
        if (isFirst ? groupSize > g_otherGroups : groupSize != g_otherGroups)
            return false;
        separator = text.front();
        text = text.sliced(1);
    }
    return separator.isNull() || groupSize == g_lastGroup;
}

/// What nearly all numbers are: a few digits with the locale's own separators. None for all that is not
/// surely right.
std::optional<double> NumberReader::readPlain(QStringView text) const
{
    quint64 value = 0;
    int digits = 0;
    int afterPoint = 0;
    int group = 0;
    bool isGrouped = false;
    bool hasPoint = false;
    for (const QChar c : text) {
        const unsigned digit = c.unicode() - u'0';
        if (digit < 10) {
            value = value * 10 + digit;
            ++digits;
            ++(hasPoint ? afterPoint : group);
        } else if (c == g_decimalPoint && !hasPoint) {
            hasPoint = true;
        } else if (c == g_groupSeparator && !hasPoint
                   && (isGrouped ? group == 3 : group >= 1 && group <= 3)) {
            isGrouped = true;
            group = 0;
        } else {
            return std::nullopt;
        }
    }
    if (digits == 0 || digits > Digits::exact || (isGrouped && group != 3))
        return std::nullopt;
    return static_cast<double>(value) / powersOfTen[static_cast<size_t>(afterPoint)];
}

std::optional<double> NumberReader::read(QStringView text) const
{
    while (!text.isEmpty() && (text.front() <= u' ' || text.front() >= QChar(0x80)) && text.front().isSpace())
        text = text.sliced(1);
    const bool isNegative = !text.isEmpty() && g_minusSigns.contains(text.front());
    if (isNegative)
        text = text.sliced(1);
    if (const std::optional<double> plain = readPlain(text))
        return isNegative ? -*plain : *plain;
    Digits digits;
    if (!takeInteger(text, digits))
        return std::nullopt;
    if (text.startsWith(g_decimalPoint)) {
        text = text.sliced(1);
        const int beforePoint = digits.taken;
        while (takeDigit(text, digits)) {
        }
        digits.afterPoint = digits.taken - beforePoint;
    }
    if (digits.taken == 0)
        return std::nullopt;
    const int exponent = takeExponent(text);
    if (mustUseWholeText && !text.isEmpty())
        return std::nullopt;
    const double number = digits.toDouble(exponent);
    return isNegative ? -number : number;
}

double NumberReader::readLeniently(QStringView text) const
{
    const auto starts = [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'-' || c == u'.'; };
    const auto start = std::ranges::find_if(text, starts);
    if (start != text.end())
        text = text.sliced(start - text.begin());
    return read(text).value_or(0);
}

} // namespace tavrin::text
