// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/TextMatcher.h"

#include "text/RandomText.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::text;
using namespace Qt::StringLiterals;

namespace {

constexpr Sameness exactCase{.caseInsensitive = false};
constexpr Sameness anyCase{};
constexpr Sameness literal{.caseInsensitive = false, .literal = true};
constexpr Sameness literalAnyCase{.literal = true};

/// The rule as it is stated, without any of the short cuts.
Match slowMatchAt(QStringView text, const QString &needle, Sameness sameness, qsizetype start)
{
    QString found;
    for (qsizetype i = start; i < text.size() && needle.startsWith(found);) {
        const qsizetype end = characterEnd(text, i, sameness.literal);
        found += folded(text.sliced(i, end - i), sameness);
        i = end;
        if (found == needle)
            return {start, end - start};
    }
    return {};
}

Match slowSearch(QStringView text, QStringView needle, Sameness sameness, bool backwards)
{
    Match best;
    const QString form = folded(needle, sameness);
    for (qsizetype i = 0; i < text.size() && !form.isEmpty(); ++i) {
        if (i > 0 && text[i].isLowSurrogate() && text[i - 1].isHighSurrogate())
            continue;
        if (const Match match = slowMatchAt(text, form, sameness, i); match && (backwards || !best))
            best = match;
    }
    return best;
}

} // namespace

class TextMatcherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matchesAreWhereThePlatformHasThem_data();
    void matchesAreWhereThePlatformHasThem();
    void theEmptyNeedleIsNowhere();
    void partsOfTheTextAreSearchedOnTheirOwn();
    void shortCutsFindWhatTheExactRuleFinds_data();
    void shortCutsFindWhatTheExactRuleFinds();
};

void TextMatcherTest::matchesAreWhereThePlatformHasThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("needle");
    QTest::addColumn<bool>("caseInsensitive");
    QTest::addColumn<Match>("match");
    QTest::addColumn<Match>("literalMatch");

    const Match none;
    QTest::newRow("letter of a marked letter") << u"cafe\u0301"_s << u"e"_s << false << none << Match{3, 1};
    QTest::newRow("letter of one code point") << u"café"_s << u"e"_s << false << none << none;
    QTest::newRow("NFC in NFD") << u"cafe\u0301"_s << u"é"_s << false << Match{3, 2} << none;
    QTest::newRow("NFD in NFC") << u"café"_s << u"e\u0301"_s << false << Match{3, 1} << none;
    QTest::newRow("capital é") << u"CAFÉ"_s << u"é"_s << true << Match{3, 1} << Match{3, 1};
    QTest::newRow("behind a marked one")
        << u"cafe\u0301 cafe"_s << u"cafe"_s << false << Match{6, 4} << Match{0, 4};
    QTest::newRow("ss in ß") << u"straße"_s << u"ss"_s << true << Match{4, 1} << Match{4, 1};
    QTest::newRow("half of ß") << u"ß"_s << u"s"_s << true << none << none;
    QTest::newRow("ß in ss") << u"strasse"_s << u"ß"_s << true << Match{4, 2} << Match{4, 2};
    QTest::newRow("dotted capital I") << u"İstanbul"_s << u"i"_s << true << none << none;
    QTest::newRow("final sigma") << u"ΣΑΣ"_s << u"ς"_s << true << Match{0, 1} << Match{0, 1};
    QTest::newRow("micro sign") << u"x\u00B5"_s << u"\u03BC"_s << true << Match{1, 1} << Match{1, 1};
    QTest::newRow("CR of CR LF") << u"a\r\nb"_s << u"\r"_s << false << Match{1, 1} << Match{1, 1};
    QTest::newRow("skin tone") << u"\U0001F44D\U0001F3FB"_s << u"\U0001F44D"_s << false << none
                               << Match{0, 2};
    QTest::newRow("joined") << u"\U0001F468\u200D\U0001F469"_s << u"\U0001F468"_s << false << Match{0, 2}
                            << Match{0, 2};
    QTest::newRow("blank") << u"a\u00A0b"_s << u" "_s << false << none << none;
    QTest::newRow("Kelvin") << u"5 \u212A"_s << u"k"_s << true << Match{2, 1} << Match{2, 1};
    QTest::newRow("far into plain text")
        << QString(u"the quick brown fox "_s + QString(50, u'x') + u"JUMPS"_s) << u"jumps"_s << true
        << Match{70, 5} << Match{70, 5};
    QTest::newRow("case counts") << u"abcABC"_s << u"BC"_s << false << Match{4, 2} << Match{4, 2};
}

void TextMatcherTest::matchesAreWhereThePlatformHasThem()
{
    QFETCH(QString, text);
    QFETCH(QString, needle);
    QFETCH(bool, caseInsensitive);
    QFETCH(Match, match);
    QFETCH(Match, literalMatch);

    QCOMPARE(TextMatcher(needle, {.caseInsensitive = caseInsensitive}).firstIn(text), match);
    QCOMPARE(TextMatcher(needle, {.caseInsensitive = caseInsensitive, .literal = true}).firstIn(text),
             literalMatch);
}

void TextMatcherTest::theEmptyNeedleIsNowhere()
{
    const TextMatcher matcher(u"", anyCase);

    QVERIFY(!matcher.isIn(u"a") && !matcher.isIn(u"") && !matcher.lastIn(u"a"));
    QVERIFY(!matcher.atStartOf(u"") && !matcher.atEndOf(u"") && !matcher.equals(u""));
}

void TextMatcherTest::partsOfTheTextAreSearchedOnTheirOwn()
{
    const TextMatcher matcher(u"aa", anyCase);

    QCOMPARE(matcher.firstIn(u"aaa", 1), (Match{1, 2}));
    QCOMPARE(matcher.lastIn(u"aaa"), (Match{1, 2}));
    QCOMPARE(matcher.atEndOf(u"baA"), (Match{1, 2}));
    QVERIFY(!matcher.atStartOf(u"baa") && matcher.equals(u"Aa") && !matcher.equals(u"aaa"));
    // A mark behind the part that is searched does not hold off a match.
    QCOMPARE(TextMatcher(u"e", anyCase).firstIn(QStringView(u"e\u0301").first(1)), (Match{0, 1}));
    QCOMPARE(TextMatcher(u"SS", anyCase).atEndOf(u"Straß"), (Match{4, 1}));
}

void TextMatcherTest::shortCutsFindWhatTheExactRuleFinds_data()
{
    QTest::addColumn<int>("longestNeedle");
    QTest::addColumn<int>("longestText");
    QTest::newRow("one") << 1 << 12;
    QTest::newRow("some") << 3 << 12;
    QTest::newRow("long text") << 4 << 150;
}

void TextMatcherTest::shortCutsFindWhatTheExactRuleFinds()
{
    QFETCH(int, longestNeedle);
    QFETCH(int, longestText);
    std::mt19937 random(20260101);
    for (int round = 0; round < 200000 / longestText; ++round) {
        const QString text = randomText(random, longestText);
        const QString needle = randomText(random, longestNeedle);
        for (const Sameness sameness : {exactCase, anyCase, literal, literalAnyCase}) {
            const TextMatcher matcher(needle, sameness);
            const QByteArray what =
                "in " + text.toUtf8().toPercentEncoding() + " of " + needle.toUtf8().toPercentEncoding();
            QVERIFY2(matcher.firstIn(text) == slowSearch(text, needle, sameness, false), what.constData());
            QVERIFY2(matcher.lastIn(text) == slowSearch(text, needle, sameness, true), what.constData());
            const QByteArray bytes = text.toUtf8();
            if (QString::fromUtf8(bytes) == text)
                QVERIFY2(matcher.isIn(QUtf8StringView(bytes)) == matcher.isIn(text), what.constData());
            if (const Match match = matcher.atEndOf(text))
                QVERIFY2(match.start + match.length == text.size(), what.constData());
        }
    }
}

QTEST_GUILESS_MAIN(TextMatcherTest)
#include "TextMatcherTest.moc"
