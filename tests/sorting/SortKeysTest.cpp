// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SortKeys.h"

#include "sorting/QVSortTermsData.h"
#include "sorting/QVSortedData.h"
#include "text/Comparison.h"
#include "text/RandomText.h"

#include <QTest>

#include <numeric>

using namespace tavrin;
using namespace Qt::StringLiterals;

class SortKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsSortAsTheyCompare_data();
    void textsSortAsTheyCompare();
    void numbersSortAsTheyCompare();
    void termsBringTheirObjectsIntoOrder();
    void termsThatDoNotCompareKeepTheirOrder();
    void missingTermsAreFaults();
    void sortedDataReversesTheAscendingOrder();
};

void SortKeysTest::textsSortAsTheyCompare_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("few") << 40 << u""_s;
    QTest::newRow("many") << 3000 << u""_s;
    QTest::newRow("many that begin alike") << 3000 << u"eightlet"_s;
    QTest::newRow("longer than kept") << 2000 << QString(60, u'q');
    QTest::newRow("longer than kept, with marks") << 2000 << QString(QString(62, u'q') + QChar(0x00E9));
}

void SortKeysTest::textsSortAsTheyCompare()
{
    QFETCH(int, count);
    QFETCH(QString, prefix);
    std::mt19937 random(11);
    std::vector<QString> texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(random() % 9 == 0 ? QString() : prefix + randomText(random, 9));

    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
        TextSortKeys keys(sensitivity,
                          [&](quint32 place, QString &) { return QAnyStringView(texts[place]); });
        for (const QString &text : texts)
            keys.add(text);
        std::vector<quint32> expected(texts.size());
        std::iota(expected.begin(), expected.end(), 0U);
        std::vector<std::string> wholes;
        for (const QString &text : texts)
            wholes.push_back(text::comparisonKey(text, sensitivity));
        std::ranges::stable_sort(
            expected, {}, [&](quint32 place) -> const std::string & { return wholes[place]; });
        QCOMPARE(keys.sorted(), expected);
    }
}

void SortKeysTest::numbersSortAsTheyCompare()
{
    std::mt19937_64 random(5);
    std::vector<double> numbers{
        0.0, -0.0, 1e308, -1e308, -INFINITY, INFINITY, 5e-324, -399999999, -400000000};
    for (int i = 0; i < 3000; ++i)
        numbers.push_back((static_cast<double>(random() % 2001) - 1000) / 7);
    NumberSortKeys keys;
    for (const double number : numbers)
        keys.add(number);
    std::vector<quint32> expected(numbers.size());
    std::iota(expected.begin(), expected.end(), 0U);
    std::ranges::stable_sort(expected, {}, [&](quint32 place) { return numbers[place]; });
    QCOMPARE(keys.sorted(), expected);
}

void SortKeysTest::termsBringTheirObjectsIntoOrder()
{
    const std::vector<QString> names{u"b"_s, u"_"_s, u"B"_s, u"a"_s};
    const auto itself = [](const QString &name) { return plist::Value(name); };
    QCOMPARE(QVSortTermsData<QString>::sortObjectsFromArray(names, itself),
             (std::vector<QString>{u"_"_s, u"a"_s, u"b"_s, u"B"_s}));

    QVSortTermsData<QString> terms;
    terms.addTermsFromArray({u"b"_s, u"_"_s, u"B"_s, u"a"_s}, names);
    terms.sortCaseSensitive(true);
    QCOMPARE(terms.objects(), (std::vector<QString>{u"B"_s, u"_"_s, u"a"_s, u"b"_s}));
    QCOMPARE(terms.terms(), (plist::Array{u"B"_s, u"_"_s, u"a"_s, u"b"_s}));

    QVSortTermsData<int> numbers;
    numbers.addTermsFromArray({qint64(10), 9.5, true, qint64(-1)}, {1, 2, 3, 4});
    numbers.sort();
    QCOMPARE(numbers.objects(), (std::vector<int>{4, 3, 2, 1}));
    QVSortTermsData<int> dates;
    dates.addTermsFromArray({Date{5}, Date{-5}, Date{0}}, {1, 2, 3});
    dates.sort();
    QCOMPARE(dates.objects(), (std::vector<int>{2, 3, 1}));
}

void SortKeysTest::termsThatDoNotCompareKeepTheirOrder()
{
    using Bit = QVSortTermsBitData<int>;
    QCOMPARE((Bit{1.0, 0}.caseInsensitiveCompare({u"0"_s, 0})), 0);
    QCOMPARE((Bit{u"a"_s, 0}.compare({u"B"_s, 0})), 1);
    QCOMPARE((Bit{u"a"_s, 0}.caseInsensitiveCompare({u"B"_s, 0})), -1);

    QVSortTermsData<int> terms;
    terms.addTermsFromArray({plist::Array(), u"b"_s, plist::Dictionary()}, {1, 2, 3});
    terms.sort();
    QCOMPARE(terms.objects(), (std::vector<int>{1, 2, 3}));
}

void SortKeysTest::missingTermsAreFaults()
{
    QVSortTermsData<const int *> terms;
    const int one = 1;
    const auto messageOf = [](const auto &action) -> QByteArray {
        try {
            action();
        } catch (const InternalInconsistency &fault) {
            return fault.what();
        }
        return {};
    };
    QCOMPARE(messageOf([&] { terms.addTerm({}, &one); }),
             QByteArray("-addTerm:forObject: -- The term is missing."));
    QCOMPARE(messageOf([&] { terms.addTerm(u"a"_s, nullptr); }),
             QByteArray("-addTerm:forObject: -- The object is missing."));
    QCOMPARE(messageOf([&] {
                 terms.addTermsFromArray({u"a"_s, u"b"_s}, {&one});
             }),
             QByteArray("-addTermsFromArray:forObjectsFromArray: -- The number of terms and objects does not "
                        "match."));
    QVERIFY(terms.collection().empty());
}

void SortKeysTest::sortedDataReversesTheAscendingOrder()
{
    struct Thing
    {
        int rank = 0;
        int number = 0;
        bool operator<(const Thing &other) const { return rank < other.rank; }
        bool operator==(const Thing &) const = default;
    };
    QVSortCriteriaData criteria;
    criteria.setDescending(true);
    const auto data = QVSortedData<Thing>::sortedDataWithArray({{2, 1}, {1, 2}, {2, 3}}, criteria);
    QCOMPARE(data.sortedArray(), (QList<Thing>{{2, 3}, {2, 1}, {1, 2}}));
    QCOMPARE(data.indexOfObject(Thing{1, 2}), 2);
    QCOMPARE(data.indexOfObject(Thing{1, 9}), NotFound);
    QCOMPARE(data.indexOfObject({}), NotFound);
    QVERIFY(!data.objectAtIndex(3) && !data.objectAtIndex(-1) && data.objectAtIndex(0)->number == 3);
    QVERIFY(!QVSortedData<int>().objectAtIndex(0));
}

QTEST_GUILESS_MAIN(SortKeysTest)
#include "SortKeysTest.moc"
