// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/DateReader.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavrin::text {

namespace {

constexpr std::array<QStringView, 12> months{u"January",
                                             u"February",
                                             u"March",
                                             u"April",
                                             u"May",
                                             u"June",
                                             u"July",
                                             u"August",
                                             u"September",
                                             u"October",
                                             u"November",
                                             u"December"};

/// Takes the parts of a date off the front of a text; what does not fit stays.
class Scanner
{
public:
    explicit Scanner(QStringView text) : g_rest(text) {}

    bool takeBlanks()
    {
        const auto end = std::ranges::find_if_not(g_rest, [](QChar c) { return c.isSpace(); });
        const qsizetype count = end - g_rest.begin();
        g_rest = g_rest.sliced(count);
        return count > 0;
    }

    bool take(QChar c)
    {
        if (!g_rest.startsWith(c))
            return false;
        g_rest = g_rest.sliced(1);
        return true;
    }

    /// The digits that come next; none when they are too few or too many.
    std::optional<QStringView> takeDigits(qsizetype fewest, qsizetype most)
    {
        qsizetype count = 0;
        while (count < g_rest.size() && g_rest[count] >= u'0' && g_rest[count] <= u'9')
            ++count;
        if (count < fewest || count > most)
            return std::nullopt;
        const QStringView digits = g_rest.first(count);
        g_rest = g_rest.sliced(count);
        return digits;
    }

    std::optional<qint64> takeNumber(qsizetype fewest, qsizetype most)
    {
        const auto digits = takeDigits(fewest, most);
        return digits ? std::optional(digits->toLongLong()) : std::nullopt;
    }

    /// The number of the month, of which the whole name or its first three letters come next.
    std::optional<qint64> takeMonth()
    {
        qsizetype size = 0;
        while (size < g_rest.size() && g_rest[size].isLetter())
            ++size;
        const QStringView word = g_rest.first(size);
        const auto month = std::ranges::find_if(months, [word](QStringView name) {
            return word.compare(name, Qt::CaseInsensitive) == 0
                   || word.compare(name.first(3), Qt::CaseInsensitive) == 0;
        });
        if (month == months.end())
            return std::nullopt;
        g_rest = g_rest.sliced(size);
        return month - months.begin() + 1;
    }

    bool isAtEnd() const { return g_rest.isEmpty(); }

private:
    QStringView g_rest;
};

/// "10:15", with seconds and a fraction perhaps.
std::optional<double> takeTime(Scanner &scanner)
{
    const auto hour = scanner.takeNumber(2, 2);
    if (!hour || *hour > 24 || !scanner.take(u':'))
        return std::nullopt;
    const auto minute = scanner.takeNumber(2, 2);
    if (!minute || *minute > 59)
        return std::nullopt;
    double second = 0;
    if (scanner.take(u':')) {
        const auto whole = scanner.takeNumber(2, 2);
        if (!whole || *whole > 60)
            return std::nullopt;
        second = static_cast<double>(*whole);
        if (scanner.take(u'.') || scanner.take(u',')) {
            const auto fraction = scanner.takeDigits(1, 9);
            if (!fraction)
                return std::nullopt;
            second += fraction->toDouble() / std::pow(10.0, fraction->size());
        }
    }
    // The day ends at 24:00, as it does after a leap second.
    constexpr double secondsOfDay = 24 * 60 * 60;
    const double time = static_cast<double>(*hour * 3600 + *minute * 60) + second;
    return time <= secondsOfDay ? std::optional(time) : std::nullopt;
}

/// Seconds east of Greenwich: "Z", "+01:00", "+0100" or "+01".
std::optional<qint64> takeZone(Scanner &scanner)
{
    scanner.takeBlanks();
    if (scanner.take(u'Z') || scanner.take(u'z'))
        return 0;
    const bool isWest = scanner.take(u'-');
    if (!isWest && !scanner.take(u'+'))
        return std::nullopt;
    const auto digits = scanner.takeDigits(2, 4);
    if (!digits || digits->size() == 3)
        return std::nullopt;
    qint64 minutes = digits->first(2).toLongLong() * 60;
    if (digits->size() == 4)
        minutes += digits->last(2).toLongLong();
    else if (scanner.take(u':'))
        minutes += scanner.takeNumber(2, 2).value_or(0);
    return minutes * (isWest ? -60 : 60);
}

} // namespace

std::optional<Date> DateReader::read(QStringView text) const
{
    const std::optional<Date> date = readMedium(text);
    return date ? date : readIso(text);
}

std::optional<Date> DateReader::readMedium(QStringView text) const
{
    Scanner scanner(text);
    scanner.takeBlanks();
    const auto month = scanner.takeMonth();
    if (!month || !scanner.takeBlanks())
        return std::nullopt;
    const auto day = scanner.takeNumber(1, 2);
    if (!day || !scanner.take(u',') || !scanner.takeBlanks())
        return std::nullopt;
    const auto digits = scanner.takeDigits(1, 6);
    if (!digits)
        return std::nullopt;
    qint64 year = digits->toLongLong();
    if (digits->size() == 2)
        year += year < 50 ? 2000 : 1900;
    return startOfDay(year, *month, *day);
}

std::optional<Date> DateReader::readIso(QStringView text) const
{
    Scanner scanner(text);
    scanner.takeBlanks();
    const auto year = scanner.takeNumber(4, 4);
    if (!year || !scanner.take(u'-'))
        return std::nullopt;
    const auto month = scanner.takeNumber(2, 2);
    if (!month || !scanner.take(u'-'))
        return std::nullopt;
    const auto day = scanner.takeNumber(2, 2);
    if (!day)
        return std::nullopt;
    const std::optional<Date> midnight = startOfDay(*year, *month, *day);
    if (!midnight || (!scanner.take(u'T') && !scanner.takeBlanks()))
        return midnight;
    const auto time = takeTime(scanner);
    if (!time)
        return midnight;
    const QDate date(static_cast<int>(*year), static_cast<int>(*month), static_cast<int>(*day));
    if (const auto zone = takeZone(scanner)) {
        const Date greenwich = Date::fromDateTime(date.startOfDay(Qt::UTC));
        return Date{greenwich.secondsSinceReference + *time - static_cast<double>(*zone)};
    }
    const double whole = std::floor(*time);
    constexpr int secondsOfDay = 24 * 60 * 60;
    const int seconds = static_cast<int>(whole);
    const QDateTime local(
        date.addDays(seconds / secondsOfDay), QTime(0, 0).addSecs(seconds % secondsOfDay), g_zone);
    return Date{Date::fromDateTime(local).secondsSinceReference + (*time - whole)};
}

std::optional<Date> DateReader::startOfDay(qint64 year, qint64 month, qint64 day) const
{
    const QDate date(static_cast<int>(year), static_cast<int>(month), static_cast<int>(day));
    if (!date.isValid())
        return std::nullopt;
    return Date::fromDateTime(date.startOfDay(g_zone));
}

} // namespace tavrin::text
