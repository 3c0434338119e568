// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/TextBlocks.h"

#include "text/Names.h"
#include "text/PostalCode.h"

#include <QTest>

using namespace tavrin::text;
using namespace Qt::StringLiterals;

class TextBlocksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAndWordsAreCounted();
    void namesLoseTheirTitles_data();
    void namesLoseTheirTitles();
    void postalCodesEndAddresses_data();
    void postalCodesEndAddresses();
};

void TextBlocksTest::linesAndWordsAreCounted()
{
    const QStringView block(u"one\ntwo\n\nfour");
    const QList<QStringView> fromStart{u"one", u"one", u"two", u"", u"four", u"four"};
    const QList<QStringView> fromEnd{u"four", u"four", u"", u"two", u"one", u"one"};
    for (qint64 number = 0; number <= 5; ++number) {
        QCOMPARE(lineNumber(number, block), fromStart[number]);
        QCOMPARE(negativeLineNumber(number, block), fromEnd[number]);
    }
    QCOMPARE(lineNumber(1, u""), u"");
    QCOMPARE(negativeLineNumber(2, u"\nb"), u"");
    QCOMPARE(lastLineOfTextBlock(u"a\n"), u"");
    QCOMPARE(nextToLastLineOfTextBlock(u"only"), u"only");
    QCOMPARE(nextToLastLineOfTextBlock(u"a\nb"), u"a");

    QCOMPARE(wordNumber(2, u"a  b"), u"");
    QCOMPARE(wordNumber(9, u"a  b"), u"b");
    QCOMPARE(lastWordOfLine(u" a b  "), u"b");
    QCOMPARE(lastWordOfLine(u"   "), u"");
}

void TextBlocksTest::namesLoseTheirTitles_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("Dr. John Smith, Jr.") << u"Smith\tJohn"_s;
    QTest::newRow("Dr. Mr. John Smith") << u"Smith\tJohn"_s;
    QTest::newRow("Dr. Mr. Rev. John Smith") << u"Smith\tRev."_s;
    QTest::newRow("John Smith III, M.D., Ph.D.") << u"Smith\tJohn"_s;
    QTest::newRow("Smith") << u"Smith\tSmith"_s;
    QTest::newRow("dr. Smith") << u"Smith\tdr."_s;
    QTest::newRow("Dr.") << u"Dr.\tDr."_s;
    QTest::newRow("Mr. Jr.") << u"Jr.\tJr."_s;
    QTest::newRow("John Smith  ") << u"Smith\tJohn"_s;
    QTest::newRow(" John Smith") << u"Smith\t"_s;
    QTest::newRow("") << u"\t"_s;
}

void TextBlocksTest::namesLoseTheirTitles()
{
    QFETCH(QString, key);
    QCOMPARE(nameKey(QString::fromLatin1(QTest::currentDataTag()), defaultTitleList()), key);
    QCOMPARE(nameKey(u"Dr. John Smith Jr.", {}), u"Jr.\tDr."_s);
}

void TextBlocksTest::postalCodesEndAddresses_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("1 A St\nOttawa ON K1A 0B1\nCanada") << u"K1A 0B1"_s;
    QTest::newRow("Ottawa ON K1A 0B1") << u"K1A 0B1"_s;
    QTest::newRow("Ottawa ON K1A 0B1 ") << u""_s;
    QTest::newRow("Ottawa ON K1A-0B1") << u""_s;
    QTest::newRow("0B1") << u""_s;
    QTest::newRow("Springfield IL 62704-1234") << u"62704-1234"_s;
    QTest::newRow("Springfield IL 62704+1234") << u""_s;
    QTest::newRow("Springfield IL 62704\nUnited States") << u"62704"_s;
    QTest::newRow("Springfield IL 62704\nU.S.A.") << u"62704"_s;
    QTest::newRow("Springfield IL 6270x") << u""_s;
    QTest::newRow("Springfield IL 627041") << u""_s;
    QTest::newRow("62704\n\nUSA") << u""_s;
    QTest::newRow("Canada") << u""_s;
    QTest::newRow("") << u""_s;
}

void TextBlocksTest::postalCodesEndAddresses()
{
    QFETCH(QString, code);
    QCOMPARE(postalCode(QString::fromLatin1(QTest::currentDataTag())).toString(), code);
}

QTEST_GUILESS_MAIN(TextBlocksTest)
#include "TextBlocksTest.moc"
