// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/StringReadings.h"

#include <QTest>

#include <limits>

using namespace tavrin;

class StringReadingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsReadAsBooleans_data();
    void textsReadAsBooleans();
    void textsReadAsNumbers_data();
    void textsReadAsNumbers();
};

void StringReadingsTest::textsReadAsBooleans_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    for (const char *yes : {"YES", "y", "true", "T", "1", "-1", " 007", "+9x"})
        QTest::addRow("yes '%s'", yes) << QString::fromLatin1(yes) << true;
    for (const char *no : {"NO", "false", "on", "0", "", " ", "-0", "000", "+", "x1"})
        QTest::addRow("no '%s'", no) << QString::fromLatin1(no) << false;
}

void StringReadingsTest::textsReadAsBooleans()
{
    QFETCH(QString, text);
    QTEST(boolValue(text), "expected");
}

void StringReadingsTest::textsReadAsNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("integer");
    QTest::addColumn<double>("real");
    QTest::addRow("stops at a letter") << QStringLiteral(" 12abc") << qint64(12) << 12.0;
    QTest::addRow("fraction") << QStringLiteral("-3.75e1kg") << qint64(-3) << -37.5;
    QTest::addRow("no digits") << QStringLiteral("abc") << qint64(0) << 0.0;
    QTest::addRow("lone point") << QStringLiteral(".") << qint64(0) << 0.0;
    QTest::addRow("exponent without digits") << QStringLiteral("2e+") << qint64(2) << 2.0;
    QTest::addRow("too large") << QStringLiteral("99999999999999999999") << std::numeric_limits<qint64>::max()
                               << 1e20;
}

void StringReadingsTest::textsReadAsNumbers()
{
    QFETCH(QString, text);
    QTEST(integerValue(text), "integer");
    QTEST(doubleValue(text), "real");
}

QTEST_GUILESS_MAIN(StringReadingsTest)
#include "StringReadingsTest.moc"
