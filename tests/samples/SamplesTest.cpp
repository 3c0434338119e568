// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/DurableFile.h"
#include "document/DatafileDocument.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// The datafiles that come with the program and the one that the description of the format shows.
class SamplesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isWholeAndSurvivesASaveByteForByte_data();
    void isWholeAndSurvivesASaveByteForByte();
};

void SamplesTest::isWholeAndSurvivesASaveByteForByte_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<qsizetype>("recordCount");
    QTest::newRow("address book") << u"/Address Book.tv3"_s << qsizetype(67);
    QTest::newRow("library") << u"/Library.tv3"_s << qsizetype(44);
    QTest::newRow("recipes") << u"/Recipes.tvk"_s << qsizetype(12);
    QTest::newRow("sample of the format, with unknown keys") << u"/../docs/sample.tv3"_s << qsizetype(2);
}

void SamplesTest::isWholeAndSurvivesASaveByteForByte()
{
    QFETCH(const QString, file);
    QFETCH(const qsizetype, recordCount);
    const QString path = QStringLiteral(TAVRIN_SAMPLES) + file;
    const QTemporaryDir folder;
    const QString copyPath = folder.filePath(u"copy"_s);

    const auto document =
        DatafileDocument::open({Environment::system(), nullptr}, path, SelectionOnOpening::AsStored);
    QVERIFY2(document, document ? "" : qPrintable(document.error().detail));
    QVERIFY(!(*document)->catalogMismatch());
    QCOMPARE(qsizetype((*document)->datafileRecords().count()), recordCount);
    QVERIFY((*document)->saveCopyAs(copyPath));

    const Result<QByteArray> original = readWhole(path);
    const Result<QByteArray> copy = readWhole(copyPath);
    QVERIFY(original && copy);
    QCOMPARE(*copy, *original);
}

QTEST_GUILESS_MAIN(SamplesTest)
#include "SamplesTest.moc"
