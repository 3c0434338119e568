// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/RandomTree.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::plist;
using namespace Qt::StringLiterals;

class RoundTripTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomTreesSurviveEachForm();
    void everyTruncationIsRefused_data();
    void everyTruncationIsRefused();
    void everyDamagedByteIsSurvived_data() { everyTruncationIsRefused_data(); }
    void everyDamagedByteIsSurvived();
};

void RoundTripTest::randomTreesSurviveEachForm()
{
    for (quint32 seed = 1; seed <= 60; ++seed) {
        const Value any = RandomTree(seed, {}).dictionary();
        const Result<PropertyList> binary = read(toBinary(any));
        QVERIFY2(binary && binary->root == any, qPrintable(u"binary, seed %1"_s.arg(seed)));

        const Value whole = RandomTree(seed, {.wholeDates = true}).dictionary();
        const QByteArray text = toXml(whole);
        const Result<PropertyList> xml = read(text);
        QVERIFY2(xml && xml->root == whole, qPrintable(u"XML, seed %1"_s.arg(seed)));
        // Equality overlooks the order of keys; the bytes do not.
        QCOMPARE(toXml(xml->root), text);
    }
}

void RoundTripTest::everyTruncationIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const Value tree = Dictionary{{u"name"_s, u"é<b>"_s},
                                  {u"list"_s, Array{1, -1, 2.5, 0.5F, true, Date{7}, Uid{300}}},
                                  {u"long key of the list"_s, QByteArray(40, 'x')}};
    QByteArray xml = toXml(tree);
    xml.chop(1); // the last line end says nothing
    QTest::newRow("XML") << xml;
    QTest::newRow("binary") << toBinary(tree);
    QTest::newRow("ASCII") << QByteArray("{name = \"\\U00e9\\341\"; /* x */ list = (a, <00 ff>, 'b c'); }");
}

void RoundTripTest::everyTruncationIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(readDictionary(bytes));
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        // A copy of its own, so that the sanitizer sees a reader that looks behind the end.
        const QByteArray truncated(bytes.constData(), length);
        QVERIFY2(!readDictionary(truncated), qPrintable(u"length %1"_s.arg(length)));
    }
}

void RoundTripTest::everyDamagedByteIsSurvived()
{
    QFETCH(const QByteArray, bytes);
    for (qsizetype place = 0; place < bytes.size(); ++place) {
        for (int value = 0; value < 256; value += value < 0x10 ? 1 : 17) {
            QByteArray damaged = bytes;
            damaged[place] = static_cast<char>(value);
            const Result<PropertyList> list = read(damaged);
            QVERIFY(!list || !list->root.isNull());
            QVERIFY(list || !list.error().detail.isEmpty());
        }
    }
}

QTEST_GUILESS_MAIN(RoundTripTest)
#include "RoundTripTest.moc"
