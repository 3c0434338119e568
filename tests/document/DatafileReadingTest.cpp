// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileFixture.h"

#include <QSignalSpy>

using namespace tavrin;
using namespace Qt::StringLiterals;

class DatafileReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatIsNoDatafile_data();
    void refusesWhatIsNoDatafile();
    void refusesADatafileCutOffAnywhere();
    void refusesANewerFormatByItsName();
    void aMissingFileIsNotFound();
    void aFailedReadingLeavesTheDocumentAsItWas();
    void anUnknownTypeReadsNothing();
    void kindFollowsTheExtension();
    void noCatalogAndNoRecordsAgree();
    void aCatalogThatDisagreesAsksWithBothCounts();
    void correctingListsEveryRecordAndSavesThem();
    void keepingUsesTheCatalogAsRead();
    void revertingTakesTheFileAsItIs();

private:
    DatafileFixture g_files;
};

void DatafileReadingTest::refusesWhatIsNoDatafile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const plist::Dictionary root = DatafileFixture::root(2);
    const auto with = [&root](const QString &key, const plist::Value &value) {
        plist::Dictionary changed = root;
        changed.insert(key, value);
        return plist::toXml(changed);
    };

    QTest::newRow("empty file") << QByteArray() << QString();
    QTest::newRow("text") << QByteArray("Dear diary,\n") << QString();
    QTest::newRow("root is an array") << plist::toXml(plist::Array{root}) << u"root"_s;
    QTest::newRow("no settings") << with(u"Settings"_s, {}) << u"\"Settings\" is missing"_s;
    QTest::newRow("no records") << with(u"Records"_s, {}) << u"\"Records\" is missing"_s;
    QTest::newRow("settings are text") << with(u"Settings"_s, u"all"_s) << u"\"Settings\" is not"_s;
    QTest::newRow("records are an array") << with(u"Records"_s, plist::Array{}) << u"\"Records\" is not"_s;
    QTest::newRow("catalog is a dictionary")
        << with(u"Catalog"_s, plist::Dictionary{}) << u"\"Catalog\" is not"_s;
    QTest::newRow("a record is text")
        << with(u"Records"_s, plist::Dictionary{{u"r0"_s, u"text"_s}}) << u"record \"r0\""_s;
    QTest::newRow("a record has no identifier")
        << with(u"Records"_s, plist::Dictionary{{u""_s, plist::Dictionary{}}}) << u"record \"\""_s;
}

void DatafileReadingTest::refusesWhatIsNoDatafile()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, reason);
    const QString path = g_files.make(u"bad.tv3"_s, content);

    const auto document =
        DatafileDocument::open(DatafileFixture::services(), path, SelectionOnOpening::AsStored);

    QVERIFY(!document);
    QCOMPARE(document.error().kind, Error::Kind::Corrupt);
    QVERIFY(!document.error().message.isEmpty());
    QVERIFY2(document.error().detail.contains(reason) && document.error().detail.startsWith(path),
             qPrintable(document.error().detail));
}

void DatafileReadingTest::refusesADatafileCutOffAnywhere()
{
    for (const QByteArray &whole :
         {plist::toXml(DatafileFixture::root(2)), plist::toBinary(DatafileFixture::root(2))}) {
        // The last byte of the XML form is a line feed, which nothing needs.
        for (qsizetype size = 0; size < whole.size() - 1; size += 13) {
            const QString path = g_files.make(u"cut.tv3"_s, whole.first(size));
            QVERIFY2(
                !DatafileDocument::open(DatafileFixture::services(), path, SelectionOnOpening::AllSelected),
                qPrintable(QString::number(size)));
        }
    }
}

void DatafileReadingTest::refusesANewerFormatByItsName()
{
    plist::Dictionary root = DatafileFixture::withSetting(DatafileFixture::root(1), u"DataFormat"_s, 2);
    root.insert(u"Records"_s, plist::Array{}); // may be of another shape in a newer format
    const QString path = g_files.make(u"100% %1.tv3"_s, root);

    const auto document =
        DatafileDocument::open(DatafileFixture::services(), path, SelectionOnOpening::AllSelected);

    QVERIFY(!document);
    QCOMPARE(document.error().kind, Error::Kind::TooNew);
    QCOMPARE(document.error().message, u"\"100% %1.tv3\" was made by a newer version."_s);
}

void DatafileReadingTest::aMissingFileIsNotFound()
{
    const auto document = DatafileDocument::open(
        DatafileFixture::services(), g_files.path(u"absent.tv3"_s), SelectionOnOpening::AllSelected);
    QVERIFY(!document);
    QCOMPARE(document.error().kind, Error::Kind::NotFound);
}

void DatafileReadingTest::aFailedReadingLeavesTheDocumentAsItWas()
{
    const QString good = g_files.make(u"good.tv3"_s, DatafileFixture::root(3));
    const QString bad = g_files.make(u"bad.tvk"_s, QByteArray("bad"));
    const auto document = DatafileFixture::opened(good);

    QVERIFY(!document->readFromURL(bad, typeNameOf(DatafileKind::Mobile)));

    QCOMPARE(document->filePath(), good);
    QCOMPARE(document->kind(), DatafileKind::Pro);
    QCOMPARE(document->datafileCatalog().identifiers(), (QStringList{u"r2"_s, u"r1"_s, u"r0"_s}));
}

void DatafileReadingTest::anUnknownTypeReadsNothing()
{
    const QString path = g_files.make(u"good.tv3"_s, DatafileFixture::root(3));
    const auto document = DatafileDocument::newDocument(DatafileFixture::services(), DatafileKind::Pro);

    QVERIFY(document->readFromURL(path, u"Picture"_s));

    QCOMPARE(document->datafileRecords().count(), 0);
}

void DatafileReadingTest::kindFollowsTheExtension()
{
    const auto isMobile = [this](const QString &name) {
        return DatafileFixture::opened(g_files.make(name, DatafileFixture::root(1)))->isMobile();
    };
    QVERIFY(!isMobile(u"a.tv3"_s));
    QVERIFY(isMobile(u"a.TVK"_s));
    QVERIFY(!isMobile(u"a.plist"_s));
}

void DatafileReadingTest::noCatalogAndNoRecordsAgree()
{
    plist::Dictionary root = DatafileFixture::root(0);
    root.remove(u"Catalog"_s);
    QVERIFY(!DatafileFixture::opened(g_files.make(u"empty.tv3"_s, root))->catalogMismatch());
}

void DatafileReadingTest::aCatalogThatDisagreesAsksWithBothCounts()
{
    plist::Dictionary root = DatafileFixture::root(3);
    root.insert(u"Catalog"_s, root.value(u"Catalog"_s).array()->first(2));

    const auto document = DatafileFixture::opened(g_files.make(u"50%2.tv3"_s, root));

    QVERIFY(document->catalogMismatch());
    QCOMPARE(document->catalogMismatchMessage(), u"50%2.tv3 shows 2 records, but actually contains 3."_s);
}

void DatafileReadingTest::correctingListsEveryRecordAndSavesThem()
{
    plist::Dictionary root = DatafileFixture::root(3);
    root.remove(u"Catalog"_s);
    const QString path = g_files.make(u"list.tv3"_s, root);
    const auto document = DatafileFixture::opened(path);

    document->correctCatalog();

    QVERIFY(document->correctedCatalog() && document->isModified() && !document->catalogMismatch());
    QCOMPARE(document->datafileCatalog().selectedIdentifiers(), (QStringList{u"r0"_s, u"r1"_s, u"r2"_s}));
    QVERIFY(document->saveDocument());
    const auto again = DatafileFixture::opened(path);
    QVERIFY(!again->catalogMismatch());
    QCOMPARE(again->datafileCatalog().countSelected(), 3);
    // The stored flags of a repaired catalog are texts.
    const Result<plist::Dictionary> stored = plist::readDictionary(DatafileFixture::contentOf(path));
    QVERIFY(stored);
    const plist::Dictionary entry = *stored->value(u"Catalog"_s).array()->first().dictionary();
    QCOMPARE(entry.value(u"CurrentlySelected"_s).toText(), u"YES"_s);
}

void DatafileReadingTest::keepingUsesTheCatalogAsRead()
{
    plist::Dictionary root = DatafileFixture::root(3);
    root.insert(u"Catalog"_s, root.value(u"Catalog"_s).array()->first(2));
    const auto document = DatafileFixture::opened(g_files.make(u"list.tv3"_s, root));

    document->keepCatalog();

    QVERIFY(!document->catalogMismatch() && !document->correctedCatalog() && !document->isModified());
    QCOMPARE(document->datafileCatalog().identifiers(), (QStringList{u"r2"_s, u"r1"_s}));
}

void DatafileReadingTest::revertingTakesTheFileAsItIs()
{
    const QString path = g_files.make(u"list.tv3"_s, DatafileFixture::root(3));
    const auto document = DatafileFixture::opened(path);
    QSignalSpy reverted(document.get(), &DatafileDocument::revertedDatafileWindow);
    document->deleteRecord(u"r0"_s);
    document->addRecord(u"r2"_s);
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    g_files.make(u"list.tv3"_s, DatafileFixture::root(5));
    QVERIFY(document->changedOnDisk());

    QVERIFY(document->revertToContents());

    QCOMPARE(reverted.size(), 1);
    QVERIFY(!document->isModified() && !document->changedOnDisk());
    QCOMPARE(document->datafileCatalog().count(), 5);
    QCOMPARE(document->contentOfField(u"Field"_s, 4), u"value 0"_s);

    QVERIFY(QFile::remove(path));
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    QVERIFY(!document->revertToContents());
    QCOMPARE(document->datafileCatalog().count(), 5);
    QVERIFY(document->isModified());
}

QTEST_GUILESS_MAIN(DatafileReadingTest)
#include "DatafileReadingTest.moc"
