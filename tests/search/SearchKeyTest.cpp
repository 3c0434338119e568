// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/PlainSearch.h"
#include "search/TargetStringList.h"
#include "text/RandomText.h"

#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class SearchKeyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysAreCutAsTheStyleSays_data();
    void keysAreCutAsTheStyleSays();
    void wholeWordsHaveNothingOfAWordBesideThem();
    void occurrencesAreWhereThePlainRuleHasThem_data();
    void occurrencesAreWhereThePlainRuleHasThem();
    void theSieveHoldsBackNothingThatMatches();
};

void SearchKeyTest::keysAreCutAsTheStyleSays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("classic");
    QTest::addColumn<QStringList>("internet");

    const auto row = [](const QString &text, const QStringList &classic, const QStringList &internet) {
        QTest::newRow(qPrintable(u'[' + text + u']')) << text << classic << internet;
    };
    row(u""_s, {}, {});
    row(u"red"_s, {u"red"_s}, {u"red"_s});
    row(u"red&&blue"_s, {u"red"_s, u"blue"_s}, {u"red&&blue"_s});
    row(u"&&red"_s, {u""_s, u"red"_s}, {u"&&red"_s});
    row(u"red&&"_s, {u"red"_s}, {u"red&&"_s});
    row(u"a&&&b"_s, {u"a"_s, u"&b"_s}, {u"a&&&b"_s});
    row(u"  red  blue "_s, {u"  red  blue "_s}, {u"red"_s, u"blue"_s});
    row(u"\"red  blue\"green"_s, {u"\"red  blue\"green"_s}, {u"red  blue"_s, u"green"_s});
    row(u"\"red blue"_s, {u"\"red blue"_s}, {u"red blue"_s});
    row(u"\"\"a"_s, {u"\"\"a"_s}, {u""_s, u"a"_s});
    row(u"a\"b c\"d"_s, {u"a\"b c\"d"_s}, {u"a\"b"_s, u"c"_s, u"d"_s});
    row(u"a\"b\""_s, {u"a\"b\""_s}, {u"a"_s, u"b"_s});
    row(u"a\""_s, {u"a\""_s}, {u"a"_s, u""_s});
}

void SearchKeyTest::keysAreCutAsTheStyleSays()
{
    QFETCH(QString, text);
    QTEST(targetStringList(text, FindEntryStyle::Classic), "classic");
    QTEST(targetStringList(text, FindEntryStyle::Internet), "internet");
}

void SearchKeyTest::wholeWordsHaveNothingOfAWordBesideThem()
{
    const SearchKey cat(u"cat"_s, {.wholeWord = true});
    const auto firstIn = [&cat](const QString &text) { return cat.firstIn(text).start; };

    QCOMPARE(firstIn(u"catalog, Cat."_s), 9);
    QCOMPARE(firstIn(u"concat 5cat cat\u00B2 cat_"_s), 17);
    QCOMPARE(firstIn(u"cat\u0903"_s), -1);
    // A surrogate is no letter, whatever the pair may be.
    QCOMPARE(firstIn(u"\U00010400cat\U00010400"_s), 2);
    QCOMPARE(cat.lastIn(u"a cat, catalog"_s, 14).start, 2);
}

void SearchKeyTest::occurrencesAreWhereThePlainRuleHasThem_data()
{
    QTest::addColumn<int>("longestKey");
    QTest::addColumn<int>("longestText");
    QTest::newRow("one letter") << 1 << 20;
    QTest::newRow("short") << 3 << 12;
    QTest::newRow("longer than the text") << 20 << 10;
    QTest::newRow("text of several windows") << 2 << 1500;
}

void SearchKeyTest::occurrencesAreWhereThePlainRuleHasThem()
{
    QFETCH(int, longestKey);
    QFETCH(int, longestText);
    std::mt19937 random(20260102);
    for (int round = 0; round < 30000 / longestText; ++round) {
        const QString text = randomText(random, longestText);
        const QString searched = randomText(random, longestKey);
        for (const bool wholeWord : {false, true}) {
            const KeyOptions options{.caseSensitive = random() % 2 == 0, .wholeWord = wholeWord};
            const SearchKey key(searched, options);
            const PlainSearch plain(searched, options);
            const QByteArray what =
                "in " + text.toUtf8().toPercentEncoding() + " of " + searched.toUtf8().toPercentEncoding();
            QVERIFY2(key.allIn(text) == plain.all(text), what.constData());
            qsizetype before = static_cast<qsizetype>(random() % (static_cast<quint32>(text.size()) + 1));
            for (int steps = 0; steps < 3 && before >= 0; ++steps) {
                const Match match = key.lastIn(text, before);
                QVERIFY2(match == plain.last(text, before), what.constData());
                before = match.start;
            }
        }
    }
}

void SearchKeyTest::theSieveHoldsBackNothingThatMatches()
{
    const auto passes = [](const text::TextSieve &sieve, const QString &text) {
        const QByteArray bytes = text.toHtmlEscaped().toUtf8();
        return sieve.passes(bytes, [](qsizetype) { return true; });
    };
    // Whatever folds to ASCII, and a key of that with letters around it.
    for (char32_t codePoint = 0x80; codePoint < 0x30000; ++codePoint) {
        if (QChar::isSurrogate(codePoint))
            continue;
        const QString character = QString::fromUcs4(&codePoint, 1);
        for (const bool caseInsensitive : {false, true}) {
            const text::Sameness sameness{.caseInsensitive = caseInsensitive};
            const QString form = text::folded(character, sameness);
            if (form == character)
                continue;
            for (const QString &around : {u""_s, u"a"_s, u"k"_s, u"s"_s, u"f"_s, u"abc"_s}) {
                const QString key = around + form + around;
                QVERIFY2(passes(text::TextSieve(key, sameness), around + character + around),
                         qPrintable(key));
            }
        }
    }
    std::mt19937 random(20260103);
    constexpr std::array entities{u'&', u'<', u'>', u'"', u'\''};
    for (int round = 0; round < 20000; ++round) {
        QString key = randomText(random, 3);
        if (random() % 2)
            key.insert(static_cast<qsizetype>(random()) % (key.size() + 1), entities[random() % 5]);
        const QString text =
            randomText(random, 2) + (random() % 2 ? key.toUpper() : key) + randomText(random, 2);
        if (QString::fromUtf8(text.toUtf8()) == text && PlainSearch(key, {}).first(text))
            QVERIFY2(passes(text::TextSieve(key, {}), text), qPrintable(key));
    }
    QVERIFY(!passes(text::TextSieve(u"abc", {}), u"ab c\u00E9"_s));
    QVERIFY(!passes(text::TextSieve(u"kiss", {}), u"kis s\u00E9"_s));
    QVERIFY(!passes(text::TextSieve(u"é", {}), u"plain"_s));
    QVERIFY(!passes(text::TextSieve(u"", {}), u"plain é"_s));
}

QTEST_GUILESS_MAIN(SearchKeyTest)
#include "SearchKeyTest.moc"
