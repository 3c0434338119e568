// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/RecordHistory.h"

#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class RecordHistoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRepeatIsNotRecorded();
    void aWindowThatOpenedWithoutARecordGoesBackInOrder();
    void removingKeepsTheFirstEntryAndThePosition_data();
    void removingKeepsTheFirstEntryAndThePosition();

private:
    /// As the window begins: the first record is in, the position stands on it.
    static RecordHistory begun(const QString &visited)
    {
        RecordHistory history;
        for (const QChar record : visited) {
            history.insert(record);
            if (history.identifiers().size() == 1)
                history.resetPosition();
        }
        return history;
    }
};

void RecordHistoryTest::aRepeatIsNotRecorded()
{
    const RecordHistory history = begun(u"ABBA"_s);

    QCOMPARE(history.identifiers().join(u""_s), u"ABA"_s);
    QCOMPARE(history.position(), 2);
}

void RecordHistoryTest::aWindowThatOpenedWithoutARecordGoesBackInOrder()
{
    RecordHistory history;
    history.resetPosition();
    for (const QChar record : u"ABC"_s)
        history.insert(record);

    QCOMPARE(history.identifiers().join(u""_s), u"ABC"_s);
    QCOMPARE(history.goBack(), u"B"_s);
    QCOMPARE(history.goBack(), u"A"_s);
    QVERIFY(!history.canGoBack());
}

void RecordHistoryTest::removingKeepsTheFirstEntryAndThePosition_data()
{
    QTest::addColumn<QString>("visited");
    QTest::addColumn<int>("steps");
    QTest::addColumn<QString>("left");
    QTest::addColumn<int>("position");
    QTest::newRow("the one shown") << u"ABC"_s << 0 << u"AB"_s << 1;
    QTest::newRow("several times") << u"ACBC"_s << 0 << u"AB"_s << 1;
    QTest::newRow("ahead of the position") << u"ABC"_s << 2 << u"AB"_s << 0;
    QTest::newRow("the first entry stays") << u"CAC"_s << 0 << u"CA"_s << 1;
    QTest::newRow("none of them") << u"AB"_s << 0 << u"AB"_s << 1;
}

void RecordHistoryTest::removingKeepsTheFirstEntryAndThePosition()
{
    QFETCH(const QString, visited);
    QFETCH(const int, steps);
    RecordHistory history = begun(visited);
    for (int i = 0; i < steps; ++i)
        history.goBack();

    history.remove(u"C"_s);

    QTEST(history.identifiers().join(u""_s), "left");
    QTEST(static_cast<int>(history.position()), "position");
}

QTEST_GUILESS_MAIN(RecordHistoryTest)
#include "RecordHistoryTest.moc"
