// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/InternalInconsistency.h"
#include "model/ArrayOperations.h"
#include "model/DictionaryOperations.h"
#include "model/StringOperations.h"

#include <QTest>

#include <array>

using namespace tavrin;
using namespace Qt::StringLiterals;
using plist::Dictionary;
using plist::Value;

class OperationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pathsAreCutAsTexts_data();
    void pathsAreCutAsTexts();
    void tildeStandsForTheHomeFolder();
    void bytesReadAsSizes_data();
    void bytesReadAsSizes();
    void partsOfTextsToleratesAnyNumber();
    void occurrencesAreReplacedOnceOrUntilNoneIsLeft();
    void onlyBlanksAreStripped();
    void webAddressesAreCompleted_data();
    void webAddressesAreCompleted();
    void fileNamesAreCleaned();
    void objectsAreFoundByKeyUpToTheFirstThatHasNone();
    void objectsAreInsertedWhereTheIndexAllows();
    void rowsMove_data();
    void rowsMove();
    void missingObjectsLeaveOrRemove();
};

void OperationsTest::pathsAreCutAsTexts_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("withoutExtension");
    QTest::addColumn<QString>("extension");

    const std::array<std::array<QString, 4>, 14> rows{{
        {u"/a/scratch.tiff"_s, u"scratch.tiff"_s, u"/a/scratch"_s, u"tiff"_s},
        {u"/a/"_s, u"a"_s, u"/a"_s, u""_s},
        {u"scratch///"_s, u"scratch"_s, u"scratch"_s, u""_s},
        {u"archive.tv3/"_s, u"archive.tv3"_s, u"archive"_s, u"tv3"_s},
        {u".tiff"_s, u".tiff"_s, u".tiff"_s, u""_s},
        {u"a/.hidden"_s, u".hidden"_s, u"a/.hidden"_s, u""_s},
        {u"a.tar.gz"_s, u"a.tar.gz"_s, u"a.tar"_s, u"gz"_s},
        {u"scratch..tiff"_s, u"scratch..tiff"_s, u"scratch."_s, u"tiff"_s},
        {u"foo."_s, u"foo."_s, u"foo."_s, u""_s},
        {u"Dr. J"_s, u"Dr. J"_s, u"Dr. J"_s, u""_s},
        {u"a.b/c"_s, u"c"_s, u"a.b/c"_s, u""_s},
        {u"/"_s, u"/"_s, u"/"_s, u""_s},
        {u"//"_s, u"/"_s, u"/"_s, u""_s},
        {u""_s, u""_s, u""_s, u""_s},
    }};
    for (const auto &[path, last, withoutExtension, extension] : rows)
        QTest::newRow(qPrintable(path)) << last << withoutExtension << extension;
}

void OperationsTest::pathsAreCutAsTexts()
{
    const QString path = QString::fromUtf8(QTest::currentDataTag());
    QTEST(lastPathComponent(path), "last");
    QTEST(stringByDeletingPathExtension(path), "withoutExtension");
    QTEST(pathExtension(path), "extension");
}

void OperationsTest::tildeStandsForTheHomeFolder()
{
    const QString home = u"/home/ann"_s;
    QCOMPARE(stringByExpandingTildeInPath(u"~/a"_s, home), u"/home/ann/a"_s);
    QCOMPARE(stringByExpandingTildeInPath(u"~"_s, home), home);
    QCOMPARE(stringByExpandingTildeInPath(u"~a"_s, home), u"~a"_s);
    QCOMPARE(stringByAbbreviatingWithTildeInPath(u"/home/ann/a"_s, home), u"~/a"_s);
    QCOMPARE(stringByAbbreviatingWithTildeInPath(u"/home/anna"_s, home), u"/home/anna"_s);
}

void OperationsTest::bytesReadAsSizes_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << u"Zero KB"_s;
    QTest::newRow("1023") << u"1023 bytes"_s;
    QTest::newRow("1024") << u"1.0 KB"_s;
    QTest::newRow("1280") << u"1.2 KB"_s; // a tie goes to the even digit
    QTest::newRow("1048575") << u"1024.0 KB"_s;
    QTest::newRow("1048576") << u"1.0 MB"_s;
    QTest::newRow("1073741824") << u"1.0 GB"_s;
    QTest::newRow("-5") << u"-5 bytes"_s;
}

void OperationsTest::bytesReadAsSizes()
{
    QTEST(stringAsBytesWithInt(QByteArray(QTest::currentDataTag()).toInt()), "text");
}

void OperationsTest::partsOfTextsToleratesAnyNumber()
{
    QCOMPARE(left(u"abc"_s, 9), u"abc"_s);
    QCOMPARE(left(u"abc"_s, 2), u"ab"_s);
    QCOMPARE(right(u"abc"_s, 9), u"abc"_s);
    QCOMPARE(right(u"abc"_s, 2), u"bc"_s);
    QCOMPARE(from(u"abc"_s, 1, 9), u"bc"_s);
    QCOMPARE(from(u"abc"_s, 3, 1), u""_s);
    QVERIFY(!containsString(u"abc"_s, u""_s));
}

void OperationsTest::occurrencesAreReplacedOnceOrUntilNoneIsLeft()
{
    QCOMPARE(stringByReplacingAllOccurrencesOf(u"aaaa"_s, u"aa"_s, u"a"_s), u"aa"_s);
    QString text = u"x    y"_s;
    replaceAllOccurrencesOf(text, u"  "_s, u" "_s);
    QCOMPARE(text, u"x y"_s);
    text = u"aaab"_s;
    replaceAllOccurrencesOf(text, u"ab"_s, u"b"_s); // each replacement makes the next occurrence
    QCOMPARE(text, u"b"_s);
    QVERIFY_THROWS_EXCEPTION(InternalInconsistency, replaceAllOccurrencesOf(text, u"b"_s, u"bb"_s));
}

void OperationsTest::onlyBlanksAreStripped()
{
    QString text = u"  \ta \t  "_s;
    deleteLeadingSpaces(text, true, false);
    QCOMPARE(text, u"\ta \t  "_s);
    deleteLeadingSpaces(text, true, true);
    QCOMPARE(text, u"\ta \t"_s);
    text = u"   "_s;
    deleteLeadingSpaces(text, true, true);
    QCOMPARE(text, u""_s);
}

void OperationsTest::webAddressesAreCompleted_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<QString>("address");
    QTest::newRow("") << u""_s << u""_s;
    QTest::newRow("acme") << u""_s << u"http://www.acme.com/"_s;
    QTest::newRow("acme/a.b") << u"ftp://"_s << u"ftp://www.acme.com/a.b"_s;
    QTest::newRow("a.org") << u""_s << u"http://a.org/"_s;
    QTest::newRow("https://a.org/x?y=z://") << u"ftp://"_s << u"https://a.org/x?y=z://"_s;
    QTest::newRow("file:///a/b") << u""_s << u"file:///a/b"_s;
}

void OperationsTest::webAddressesAreCompleted()
{
    QFETCH(QString, scheme);
    QTEST(stringByCleaningURLWithDefaultScheme(QString::fromUtf8(QTest::currentDataTag()), scheme),
          "address");
}

void OperationsTest::fileNamesAreCleaned()
{
    QCOMPARE(stringByCleaningFilenameWithDefault(u" a/b:c\n "_s, u"x"_s), u"a-b-c"_s);
    QCOMPARE(stringByCleaningFilenameWithDefault(u"..hidden. "_s, u"x"_s), u"hidden"_s);
    QCOMPARE(stringByCleaningFilenameWithDefault(u" .. "_s, u"x"_s), u"x"_s);
    QCOMPARE(stringByCleaningFilenameWithDefault(QString(50'000'000, u'a'), u"x"_s), QString(200, u'a'));
    const QString faces = QString::fromUtf8("\xF0\x9F\x98\x80").repeated(100);
    const QString cut = stringByCleaningFilenameWithDefault(faces, u"x"_s);
    QCOMPARE(cut, faces.first(100)); // 50 characters of four bytes, none of them cut in two
}

void OperationsTest::objectsAreFoundByKeyUpToTheFirstThatHasNone()
{
    const Dictionary one{{u"K"_s, 1}};
    const Dictionary two{{u"K"_s, 2}};
    QVERIFY(objectMatching({one, Dictionary(), two, two}, 2, u"K"_s) == Value(two));
    QCOMPARE(indexOfObjectMatching({one, Dictionary(), two, two}, 2, u"K"_s), 2);
    QVERIFY(objectMatching({u"odd"_s, two}, 2, u"K"_s).isNull());
    QCOMPARE(indexOfObjectMatching({one}, 2, u"K"_s), NotFound);
}

void OperationsTest::objectsAreInsertedWhereTheIndexAllows()
{
    QList<int> list{1, 2};
    QCOMPARE(insertObject(list, 0, -1, false), 0);
    QCOMPARE(insertObject(list, 3, 9, true), 3);
    QCOMPARE(insertObject(list, 4, 4, false), 4);
    QCOMPARE(list, (QList<int>{0, 1, 2, 3, 4}));
    insertObjectsFromArray(list, {7, 8}, 5);
    QCOMPARE(reverseArray(list), (QList<int>{8, 7, 4, 3, 2, 1, 0}));
    QCOMPARE(arrayWithIndexes(list, QList<int>{6, 0}), (QList<int>{8, 0}));
}

void OperationsTest::rowsMove_data()
{
    QTest::addColumn<QList<int>>("moving");
    QTest::addColumn<qint64>("index");
    QTest::addColumn<QList<int>>("result");
    QTest::newRow("down") << QList<int>{0, 1} << qint64(3) << QList<int>{2, 0, 1, 3, 4};
    QTest::newRow("up") << QList<int>{4, 3} << qint64(1) << QList<int>{0, 4, 3, 1, 2};
    QTest::newRow("around the target") << QList<int>{1, 3} << qint64(2) << QList<int>{0, 1, 3, 2, 4};
    QTest::newRow("the target itself") << QList<int>{2} << qint64(2) << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("to the end") << QList<int>{0} << qint64(5) << QList<int>{1, 2, 3, 4, 0};
    QTest::newRow("new ones, too") << QList<int>{9, 0} << qint64(1) << QList<int>{9, 0, 1, 2, 3, 4};
    QTest::newRow("no index") << QList<int>{2} << qint64(-1) << QList<int>{0, 1, 3, 4, 2};
}

void OperationsTest::rowsMove()
{
    QFETCH(QList<int>, moving);
    QFETCH(qint64, index);
    QList<int> list{0, 1, 2, 3, 4};
    insertOrMoveObjectsFromArray(list, moving, index);
    QTEST(list, "result");
}

void OperationsTest::missingObjectsLeaveOrRemove()
{
    Dictionary dictionary{{u"A"_s, 1}};
    QVERIFY(objectForKey(dictionary, u"B"_s, 7) == Value(7));
    setObject(dictionary, {}, u"A"_s, NilObject::ChangesNothing);
    setObjectOrDefault(dictionary, {}, u"B"_s, 2);
    setObjectOrDefault(dictionary, {}, u"A"_s, {});
    QVERIFY(dictionary == (Dictionary{{u"A"_s, 1}, {u"B"_s, 2}}));
    setObject(dictionary, {}, u"A"_s, NilObject::RemovesKey);
    QVERIFY(!dictionary.contains(u"A"_s));
}

QTEST_GUILESS_MAIN(OperationsTest)
#include "OperationsTest.moc"
