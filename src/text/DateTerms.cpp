// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/DateTerms.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace tavrin::text {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 12> months{
    u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};

bool isNoPartOfDate(const QString &piece)
{
    constexpr std::array<QStringView, 9> others{
        u"", u" ", u"Mon,", u"Tue,", u"Wed,", u"Thu,", u"Fri,", u"Sat,", u"Sun,"};
    return std::ranges::find(others, QStringView(piece)) != others.end();
}

QString twoDigits(qsizetype number)
{
    return QString::number(number).rightJustified(2, u'0');
}

/// From day, month, year and time.
std::optional<QString> assembled(const QStringList &pieces)
{
    if (pieces.size() < 4)
        return std::nullopt;
    const auto month = std::ranges::find(months, QStringView(pieces[1]));
    if (month == months.end())
        return std::nullopt;
    const QString &day = pieces[0];
    const bool isSingleDigit = day.size() == 1 && day.front() >= u'1' && day.front() <= u'9';
    return pieces[2] + u'-' + twoDigits(month - months.begin() + 1) + u'-' + (isSingleDigit ? u"0"_s : u""_s)
           + day + u' ' + pieces[3] + u" UTC"_s;
}

} // namespace

QString emptyDateTerm()
{
    return u"0100-01-01 01:01:01 UTC"_s;
}

std::optional<QString> reassembledStandardDateString(const QString &text)
{
    if (text.isEmpty())
        return emptyDateTerm();
    // Files are sorted by this separator, which no date has: a date stays as it was typed.
    QStringList pieces = text.split(u"dateElementSeparator"_s);
    pieces.removeIf(isNoPartOfDate);
    return pieces.size() == 1 ? pieces.front() : assembled(pieces);
}

std::optional<QString> reassembledEmailDateString(const QString &text)
{
    if (text.isEmpty())
        return emptyDateTerm();
    QStringList pieces = text.split(u' ');
    pieces.removeIf(isNoPartOfDate);
    return assembled(pieces);
}

QString dateDescription(Date date)
{
    return date.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s) + u" +0000"_s;
}

QString getShortDateFormat(const QLocale &locale)
{
    return locale.dateFormat(QLocale::ShortFormat).replace(u"yyyy"_s, u"y"_s);
}

QString dateElementOrder(const QString &shortDateFormat)
{
    const QString elements = shortDateFormat.toUpper().replace(u'E', u'D');
    if (elements.startsWith(u'Y'))
        return elements.endsWith(u'D') ? u"YMDH"_s : u"YDMH"_s;
    if (elements.startsWith(u'D'))
        return elements.endsWith(u'M') ? u"DYMH"_s : u"DMYH"_s;
    return elements.endsWith(u'D') ? u"MYDH"_s : u"MDYH"_s;
}

} // namespace tavrin::text
