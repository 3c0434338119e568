// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileFixture.h"

using namespace tavrin;
using namespace Qt::StringLiterals;

/// The writing of settings beside records that are not written.
class SettingsOnlyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unsavedRecordsStayUnsaved();
    void aReadOnlyDocumentStillKeepsItsSettings();
    void recordsWrittenByOthersSurvive();
    void nothingIsWrittenWithoutNeed();
    void aDamagedFileStaysAsItIs();

private:
    QByteArray content() const { return DatafileFixture::contentOf(g_document->filePath()); }
    void changeASetting()
    {
        g_document->datafileSettings().setMode(u"List"_s);
        g_document->datafileSettings().setDatafileSettingsDidChange(true);
    }
    void editARecord()
    {
        g_document->storeFieldValue(u"r1"_s, u"f"_s, u"edited"_s);
        g_document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    }

    std::unique_ptr<DatafileFixture> g_files;
    std::unique_ptr<DatafileDocument> g_document;
};

void SettingsOnlyTest::init()
{
    g_files = std::make_unique<DatafileFixture>();
    plist::Dictionary root{{u"Before"_s, 1}};
    DatafileFixture::root(3).forEach(
        [&root](const QString &key, const plist::Value &value) { root.insert(key, value); });
    root.insert(u"Behind"_s, plist::Array{u"kept"_s});
    g_document = DatafileFixture::opened(g_files->make(u"this.tv3"_s, root));
}

void SettingsOnlyTest::unsavedRecordsStayUnsaved()
{
    const Result<plist::Dictionary> before = plist::readDictionary(content());
    changeASetting();
    editARecord();
    g_document->deleteRecord(u"r2"_s);

    QVERIFY(g_document->updateSettingsOnly());

    const Result<plist::Dictionary> after = plist::readDictionary(content());
    QVERIFY(after);
    QVERIFY(*after == DatafileFixture::withSetting(*before, u"Mode"_s, u"List"_s));
    QCOMPARE(after->keys(), before->keys());
    QVERIFY(g_document->isModified() && !g_document->changedOnDisk());
    QVERIFY(!g_document->datafileSettings().datafileSettingsDidChange());
    QVERIFY(g_document->saveDocument());
    QCOMPARE(DatafileFixture::storedValue(g_document->filePath(), u"r1"_s), u"edited"_s);
}

void SettingsOnlyTest::aReadOnlyDocumentStillKeepsItsSettings()
{
    g_document->setOpenedReadOnly(true);
    changeASetting();

    QVERIFY(g_document->updateSettingsOnly());

    QCOMPARE(DatafileFixture::opened(g_document->filePath())->datafileSettings().mode(), u"List"_s);
    QVERIFY(!g_document->forceSave()); // the leave to write has ended
}

void SettingsOnlyTest::recordsWrittenByOthersSurvive()
{
    g_document->setOpenedReadOnly(true);
    const auto theirs = DatafileFixture::opened(g_document->filePath());
    theirs->storeFieldValue(u"r0"_s, u"f"_s, u"theirs"_s);
    theirs->updateChangeCount(DatafileDocument::ChangeCount::Done);
    QVERIFY(theirs->saveDocument());
    changeASetting();

    QVERIFY(g_document->updateSettingsOnly());

    QCOMPARE(DatafileFixture::storedValue(g_document->filePath(), u"r0"_s), u"theirs"_s);
    QCOMPARE(DatafileFixture::opened(g_document->filePath())->datafileSettings().mode(), u"List"_s);
    QVERIFY2(g_document->changedOnDisk(), "a later save would not know of their records");
}

void SettingsOnlyTest::nothingIsWrittenWithoutNeed()
{
    const FileStamp before = FileStamp::of(g_document->filePath());
    QVERIFY(g_document->updateSettingsOnly());
    QCOMPARE(FileStamp::of(g_document->filePath()), before);

    EditingDouble window;
    window.g_permitsSaving = false;
    g_document->setEditing(&window);
    changeASetting();
    QVERIFY(g_document->updateSettingsOnly());
    QCOMPARE(FileStamp::of(g_document->filePath()), before);

    g_document->setEditing(nullptr);
    QVERIFY(QFile::remove(g_document->filePath()));
    QVERIFY(g_document->updateSettingsOnly());
    QVERIFY2(!QFile::exists(g_document->filePath()), "settings alone are no datafile");
}

void SettingsOnlyTest::aDamagedFileStaysAsItIs()
{
    g_files->make(u"this.tv3"_s, QByteArray("half a datafile"));
    changeASetting();
    editARecord();

    QVERIFY(!g_document->updateSettingsOnly());

    QCOMPARE(content(), "half a datafile");
    QVERIFY(g_document->datafileSettings().datafileSettingsDidChange());
}

QTEST_GUILESS_MAIN(SettingsOnlyTest)
#include "SettingsOnlyTest.moc"
