// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/Comparison.h"

#include "text/Folding.h"
#include "text/RandomText.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::text;
using namespace Qt::StringLiterals;

namespace {

int sign(std::strong_ordering order)
{
    return order < 0 ? -1 : order > 0;
}

} // namespace

class ComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsOrderAsOnThePlatform_data();
    void textsOrderAsOnThePlatform();
    void keysOrderAsTheFoldedCodePoints();
};

void ComparisonTest::textsOrderAsOnThePlatform_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("caseSensitive");
    QTest::addColumn<int>("caseInsensitive");

    QTest::newRow("a B") << u"a"_s << u"B"_s << 1 << -1;
    QTest::newRow("Z a") << u"Z"_s << u"a"_s << -1 << 1;
    QTest::newRow("_ A") << u"_"_s << u"A"_s << 1 << -1;
    QTest::newRow("é in two") << u"é"_s << u"e\u0301"_s << 0 << 0;
    QTest::newRow("é f") << u"é"_s << u"f"_s << -1 << -1;
    QTest::newRow("é ez") << u"é"_s << u"ez"_s << 1 << 1;
    QTest::newRow("ß SS") << u"ß"_s << u"SS"_s << 1 << 0;
    QTest::newRow("ligature") << u"\uFB01"_s << u"fi"_s << 1 << 0;
    QTest::newRow("dotless") << u"I"_s << u"ı"_s << -1 << -1;
    QTest::newRow("dotted") << u"İ"_s << u"i\u0307"_s << -1 << 0;
    QTest::newRow("sigma") << u"Σ"_s << u"ς"_s << -1 << 0;
    QTest::newRow("Kelvin k") << u"\u212A"_s << u"k"_s << -1 << 0;
    QTest::newRow("Kelvin K") << u"\u212A"_s << u"K"_s << 0 << 0;
    QTest::newRow("code points") << u"\uFFFD"_s << u"\U0001F600"_s << -1 << -1;
    QTest::newRow("wide") << u"\uFF21"_s << u"A"_s << 1 << 1;
    QTest::newRow("tab") << u"\t"_s << u" "_s << -1 << -1;
    QTest::newRow("soft hyphen") << u"co\u00ADop"_s << u"coop"_s << 1 << 1;
    QTest::newRow("digits") << u"10"_s << u"9"_s << -1 << -1;
    QTest::newRow("shorter") << u"ab"_s << u"abc"_s << -1 << -1;
    QTest::newRow("zero") << u"ab"_s << u"ab\0"_s << -1 << -1;
    QTest::newRow("empty") << u""_s << u"\0"_s << -1 << -1;
    QTest::newRow("last ASCII") << u"\u007F"_s << u"\u0080"_s << -1 << -1;
}

void ComparisonTest::textsOrderAsOnThePlatform()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, caseSensitive);
    QFETCH(int, caseInsensitive);

    QCOMPARE(sign(compare(left, right, Qt::CaseSensitive)), caseSensitive);
    QCOMPARE(sign(compare(right, left, Qt::CaseSensitive)), -caseSensitive);
    QCOMPARE(sign(compare(left, right, Qt::CaseInsensitive)), caseInsensitive);
    QCOMPARE(sign(compare(right, left, Qt::CaseInsensitive)), -caseInsensitive);
}

void ComparisonTest::keysOrderAsTheFoldedCodePoints()
{
    std::mt19937 random(7);
    for (int round = 0; round < 40000; ++round) {
        QString left = randomText(random, 5);
        if (round % 2 == 0)
            left += u"@AZ[`az{ long"_s;
        const QString right = randomText(random, 5);
        for (const bool caseInsensitive : {false, true}) {
            const auto codePoints = [=](const QString &text) {
                QList<char32_t> result;
                const QString form = folded(text, {.caseInsensitive = caseInsensitive});
                for (qsizetype i = 0; i < form.size(); i += unitsOf(codePointAt(form, i)))
                    result.append(codePointAt(form, i));
                return result;
            };
            const QList<char32_t> a = codePoints(left), b = codePoints(right);
            const auto expected =
                std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end());
            const auto sensitivity = caseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive;
            const auto order = compare(left, right, sensitivity);
            const QByteArray what =
                left.toUtf8().toPercentEncoding() + " and " + right.toUtf8().toPercentEncoding();
            QVERIFY2(sign(order) == sign(expected), what.constData());
            const QByteArray bytes = left.toUtf8();
            if (QString::fromUtf8(bytes) == left)
                QVERIFY2(compare(QUtf8StringView(bytes), right, sensitivity) == order, what.constData());
        }
    }
}

QTEST_GUILESS_MAIN(ComparisonTest)
#include "ComparisonTest.moc"
