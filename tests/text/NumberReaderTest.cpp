// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/NumberReader.h"

#include <QTest>

#include <random>

using namespace tavrin::text;
using namespace Qt::StringLiterals;

class NumberReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeTextsAreNumbers_data();
    void wholeTextsAreNumbers();
    void whatStandsBeforeANumberIsDropped();
    void numbersReadToTheLastBit();
};

void NumberReaderTest::wholeTextsAreNumbers_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<std::optional<double>>("number");

    const std::optional<double> none;
    const auto row =
        [](const char *locale, const char *name, const QStringList &texts, std::optional<double> number) {
            QTest::addRow("%s %s", locale, name) << QString::fromLatin1(locale) << texts << number;
        };
    row("en_US",
        "1234",
        {u"1234"_s,
         u"1,234"_s,
         u" 1234"_s,
         u"01234"_s,
         u"1 234"_s,
         u"1\u00A0234"_s,
         u"1\u202F234"_s,
         u"1'234"_s,
         u"1’234"_s,
         u"1234."_s,
         u"1234.0"_s,
         u"1.234e3"_s,
         u"1.234E+3"_s,
         u"12340e-1"_s,
         u"١٢٣٤"_s,
         u"１２３４"_s},
        1234);
    row("en_US", "-0.5", {u"-.5"_s, u"-0.50"_s, u"\u22120.5"_s}, -0.5);
    row("en_US", "millions", {u"1,234,567.89"_s, u"1234567.89"_s}, 1234567.89);
    row("en_US", "small", {u"0.00045"_s, u".00045"_s, u"4.5e-4"_s}, 0.00045);
    row("en_US", "large", {u"99999999999999999999"_s}, 1e20);
    row("en_US",
        "none",
        {u""_s,        u"12 "_s,       u"12abc"_s, u"12 kg"_s, u"50%"_s,   u"1-2"_s,       u"2007-03-05"_s,
         u"12/05"_s,   u"1e"_s,        u"1_000"_s, u"0x10"_s,  u"1234,"_s, u"1,,2"_s,      u"1.2.3"_s,
         u"1.234,5"_s, u"+12"_s,       u"- 5"_s,   u"--5"_s,   u"-+5"_s,   u"12,34"_s,     u"1,2,3"_s,
         u",12"_s,     u"12345,678"_s, u"0,5"_s,   u"1 2"_s,   u"(5)"_s,   u"$5"_s,        u"-"_s,
         u"."_s,       u"-."_s,        u"abc"_s,   u"NaN"_s,   u"inf"_s,   u"1,234 567"_s, u".\u2070"_s},
        none);
    row("de_DE", "1234", {u"1.234"_s, u"1234"_s, u"1 234,0"_s}, 1234);
    row("de_DE", "1.5", {u"1,5"_s}, 1.5);
    row("de_DE", "none", {u".5"_s, u"12.50"_s, u"1.234.5"_s}, none);
    row("fr_FR", "1234.5", {u"1 234,5"_s, u"1\u202F234,5"_s, u"1\u00A0234,5"_s}, 1234.5);
    row("en_IN", "lakh", {u"12,34,567"_s}, 1234567);
    row("de_CH", "1234.5", {u"1’234.5"_s}, 1234.5);
    row("sv_SE", "-1", {u"-1"_s, u"\u22121"_s}, -1);
    row("C", "1234.5", {u"1,234.5"_s, u"1234.5"_s}, 1234.5);
}

void NumberReaderTest::wholeTextsAreNumbers()
{
    QFETCH(QString, locale);
    QFETCH(QStringList, texts);
    QFETCH(std::optional<double>, number);

    const NumberReader reader{QLocale(locale)};
    for (const QString &text : texts)
        QVERIFY2(reader.read(text) == number, qPrintable(text));
}

void NumberReaderTest::whatStandsBeforeANumberIsDropped()
{
    const NumberReader english{QLocale(u"en_US"_s)};
    QCOMPARE(english.readLeniently(u"$12"), 12);
    QCOMPARE(english.readLeniently(u"v.5"), 0.5);
    QCOMPARE(english.readLeniently(u"+5"), 5);
    QCOMPARE(english.readLeniently(u"abc-"), 0);
    QCOMPARE(english.readLeniently(u"12 kg"), 0);
    QCOMPARE(english.readLeniently(u""), 0);
    const NumberReader german{QLocale(u"de_DE"_s)};
    QCOMPARE(german.readLeniently(u"EUR 1.234"), 1234);
    QCOMPARE(german.readLeniently(u"EUR .5"), 0);
}

void NumberReaderTest::numbersReadToTheLastBit()
{
    const NumberReader reader(QLocale::c());
    std::mt19937_64 random(3);
    for (int round = 0; round < 20000; ++round) {
        const auto digits = static_cast<int>(random() % 19);
        const QString text = QString::number(random() >> random() % 60) + u'.'
                             + QString::number(random()).left(digits) + u"e"_s
                             + QString::number(static_cast<int>(random() % 60) - 30);
        QCOMPARE(reader.read(text), std::optional(text.toDouble()));
    }
}

QTEST_GUILESS_MAIN(NumberReaderTest)
#include "NumberReaderTest.moc"
