// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/DateReader.h"
#include "text/DateTerms.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::text;
using namespace Qt::StringLiterals;

class DateTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void datesOfPeopleAreRead_data();
    void datesOfPeopleAreRead();
    void daysBeginInTheirZone();
    void dateTermsAreReassembled_data();
    void dateTermsAreReassembled();
    void shortDatesHaveTheLocalesOrder_data();
    void shortDatesHaveTheLocalesOrder();
};

void DateTextTest::datesOfPeopleAreRead_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("date"); // empty: no date

    QTest::newRow("day") << QStringList{u"Mar 5, 2007"_s,
                                        u"mar 5, 2007"_s,
                                        u"MARCH 05, 2007"_s,
                                        u" Mar  5,\t2007"_s,
                                        u"Mar\u00A05, 2007"_s,
                                        u"Mar 5, 07"_s,
                                        u"Mar 5, 2007 10:00"_s,
                                        u"Mar 5, 2007abc"_s,
                                        u"2007-03-05"_s,
                                        u" 2007-03-05 "_s,
                                        u"2007-03-05T24:30"_s,
                                        u"2007-03-05T00:00:00Z"_s,
                                        u"2007-03-05 01:00 +0100"_s}
                         << u"2007-03-05 00:00:00 +0000"_s;
    QTest::newRow("time") << QStringList{u"2007-03-05T10:15:00Z"_s,
                                         u"2007-03-05T10:15:00.25Z"_s,
                                         u"2007-03-05 10:15:00 +0000"_s,
                                         u"2007-03-05T10:15"_s,
                                         u"2007-03-05T11:15:00+01:00"_s,
                                         u"2007-03-05T05:15:00-05"_s}
                          << u"2007-03-05 10:15:00 +0000"_s;
    QTest::newRow("midnight") << QStringList{u"2007-03-04T24:00"_s, u"2007-03-04T23:59:60Z"_s}
                              << u"2007-03-05 00:00:00 +0000"_s;
    QTest::newRow("window's end") << QStringList{u"Mar 5, 49"_s} << u"2049-03-05 00:00:00 +0000"_s;
    QTest::newRow("window's start") << QStringList{u"Mar 5, 50"_s} << u"1950-03-05 00:00:00 +0000"_s;
    QTest::newRow("year 7") << QStringList{u"Mar 5, 7"_s, u"Mar 5, 007"_s, u"Mar 5, 0007"_s}
                            << u"0007-03-05 00:00:00 +0000"_s;
    QTest::newRow("none") << QStringList{u"Mar 5 2007"_s,
                                         u"Mar 5,2007"_s,
                                         u"Mar. 5, 2007"_s,
                                         u"Sept 5, 2007"_s,
                                         u"3/5/07"_s,
                                         u"5 Mar 2007"_s,
                                         u"Mar 5 , 2007"_s,
                                         u"Febr 1, 2020"_s,
                                         u"Mar 32, 2007"_s,
                                         u"Feb 30, 2007"_s,
                                         u"Mar +5, 2007"_s,
                                         u"Mar 5"_s,
                                         u""_s,
                                         u"2007-3-5"_s,
                                         u"2007-02-30"_s,
                                         u"20070305"_s}
                          << QString();
}

void DateTextTest::datesOfPeopleAreRead()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, date);

    const DateReader reader(QTimeZone::utc());
    for (const QString &text : texts) {
        const std::optional<Date> read = reader.read(text);
        QVERIFY2((read ? dateDescription(*read) : QString()) == date, qPrintable(text));
    }
}

void DateTextTest::daysBeginInTheirZone()
{
    const DateReader berlin(QTimeZone("Europe/Berlin"));
    QCOMPARE(dateDescription(*berlin.read(u"Jul 1, 2020")), u"2020-06-30 22:00:00 +0000"_s);
    QCOMPARE(dateDescription(*berlin.read(u"2020-07-01T08:00")), u"2020-07-01 06:00:00 +0000"_s);
    // Midnight was left out that day.
    const DateReader beirut(QTimeZone("Asia/Beirut"));
    QCOMPARE(dateDescription(*beirut.read(u"Mar 28, 2021")), u"2021-03-27 22:00:00 +0000"_s);
}

void DateTextTest::dateTermsAreReassembled_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::optional<QString>>("standard");
    QTest::addColumn<std::optional<QString>>("email");

    using Term = std::optional<QString>;
    const QString mail = u"Mon, 5 Mar 2007 10:15:00 +0000"_s;
    QTest::newRow("mail") << mail << Term(mail) << Term(u"2007-03-05 10:15:00 UTC"_s);
    QTest::newRow("no weekday") << u"25  Dec 2007  1:00"_s << Term(u"25  Dec 2007  1:00"_s)
                                << Term(u"2007-12-25 1:00 UTC"_s);
    QTest::newRow("empty") << u""_s << Term(emptyDateTerm()) << Term(emptyDateTerm());
    QTest::newRow("short") << u"5 Mar"_s << Term(u"5 Mar"_s) << Term();
    QTest::newRow("weekday") << u"Sun,"_s << Term() << Term();
    QTest::newRow("blank") << u" "_s << Term() << Term();
    QTest::newRow("foreign month") << u"5 Mai 2007 10:15"_s << Term(u"5 Mai 2007 10:15"_s) << Term();
    QTest::newRow("separators") << QStringList{u"Mon,"_s, u"5"_s, u"Mar"_s, u"2007"_s, u"10:15"_s}.join(
        u"dateElementSeparator"_s)
                                << Term(u"2007-03-05 10:15 UTC"_s) << Term();
    QTest::newRow("too few") << u"5dateElementSeparatorMar"_s << Term() << Term();
}

void DateTextTest::dateTermsAreReassembled()
{
    QFETCH(QString, text);
    QFETCH(std::optional<QString>, standard);
    QFETCH(std::optional<QString>, email);

    QCOMPARE(reassembledStandardDateString(text), standard);
    QCOMPARE(reassembledEmailDateString(text), email);
}

void DateTextTest::shortDatesHaveTheLocalesOrder_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("order");
    QTest::newRow("en_US") << u"M/d/yy"_s << u"MDYH"_s;
    QTest::newRow("en_GB") << u"dd/MM/y"_s << u"DMYH"_s;
    QTest::newRow("de_DE") << u"dd.MM.yy"_s << u"DMYH"_s;
    QTest::newRow("sv_SE") << u"y-MM-dd"_s << u"YMDH"_s;
    QTest::newRow("ja_JP") << u"y/MM/dd"_s << u"YMDH"_s;
    QTest::newRow("ko_KR") << u"yy. M. d."_s << u"YDMH"_s;
}

void DateTextTest::shortDatesHaveTheLocalesOrder()
{
    QFETCH(QString, format);
    QFETCH(QString, order);

    QCOMPARE(getShortDateFormat(QLocale(QString::fromLatin1(QTest::currentDataTag()))), format);
    QCOMPARE(dateElementOrder(format), order);
}

QTEST_GUILESS_MAIN(DateTextTest)
#include "DateTextTest.moc"
