// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileFixture.h"
#include "support/FileSizeLimit.h"

#include <QSignalSpy>

using namespace tavrin;
using namespace Qt::StringLiterals;

using Outcome = DatafileDocument::SaveOutcome;

/// What Save, Save As and Save a Copy As do, and when they may.
class DatafileSavingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void saveWritesAndClearsTheMark();
    void saveTakesTheEditOnScreen();
    void saveKnowsWhenNotTo_data();
    void saveKnowsWhenNotTo();
    void readOnlyRefusesEveryWriteButACopy_data();
    void readOnlyRefusesEveryWriteButACopy();
    void forceSaveNeedsPermissionAndAFile();
    void aSaveThatFailsAtAnyPlaceLosesNothing();
    void saveAsShowsItsAlertAndHasWritten();
    void saveAsThatFailsKeepsTheMark();
    void aCopyLeavesTheDocumentAlone();
    void writesByOthersAreNoticed();
    void aNewDatafileIsSavedFirstByName();
    void theFormIsTheOneAskedFor();

private:
    /// The document of this.tv3 with a changed and marked field.
    std::unique_ptr<DatafileDocument> edited(const plist::Dictionary &root)
    {
        auto document = DatafileFixture::opened(g_files->make(u"this.tv3"_s, root));
        document->storeFieldValue(u"r1"_s, u"f"_s, u"edited"_s);
        document->updateChangeCount(DatafileDocument::ChangeCount::Done);
        return document;
    }
    QString valueIn(const QString &name) const
    {
        return DatafileFixture::storedValue(g_files->path(name), u"r1"_s);
    }

    std::unique_ptr<DatafileFixture> g_files;
};

void DatafileSavingTest::init()
{
    g_files = std::make_unique<DatafileFixture>();
}

void DatafileSavingTest::saveWritesAndClearsTheMark()
{
    const auto document = edited(DatafileFixture::root(3));
    EditingDouble window;
    document->setEditing(&window);
    document->datafileSettings().setDatafileSettingsDidChange(true);
    QSignalSpy written(document.get(), &DatafileDocument::fileWritten);

    const auto saved = document->saveDocument();

    QVERIFY(saved && *saved == Outcome::Saved);
    QVERIFY(!document->isModified() && !document->changedOnDisk());
    QVERIFY(!document->datafileSettings().datafileSettingsDidChange());
    QVERIFY(window.g_clean && !window.g_nowSaving);
    QCOMPARE(written.size(), 1);
    QCOMPARE(valueIn(u"this.tv3"_s), u"edited"_s);
    QCOMPARE(document->saveDocument().value(), Outcome::NothingToSave);
}

void DatafileSavingTest::saveTakesTheEditOnScreen()
{
    const auto document = edited(DatafileFixture::root(3));
    EditingDouble window;
    window.g_store = [&] {
        QVERIFY(!window.g_nowSaving); // a window that is being saved stores nothing
        document->storeFieldValue(u"r1"_s, u"f"_s, u"still being typed"_s);
    };
    document->setEditing(&window);

    QVERIFY(document->saveDocument());

    QCOMPARE(valueIn(u"this.tv3"_s), u"still being typed"_s);
}

void DatafileSavingTest::saveKnowsWhenNotTo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("openedReadOnly");
    QTest::addColumn<bool>("permitted");
    QTest::addColumn<bool>("syncing");
    QTest::addColumn<Outcome>("outcome");
    QTest::newRow("mobile kind") << u"a.tvk"_s << false << true << false << Outcome::NotByThisCommand;
    QTest::newRow("read-only") << u"a.tv3"_s << true << true << false << Outcome::NeedsSaveAs;
    QTest::newRow("no password") << u"a.tv3"_s << false << false << false << Outcome::NothingToSave;
    QTest::newRow("synchronizing") << u"a.tv3"_s << false << true << true << Outcome::NothingToSave;
}

void DatafileSavingTest::saveKnowsWhenNotTo()
{
    QFETCH(const QString, name);
    QFETCH(const bool, openedReadOnly);
    QFETCH(const bool, permitted);
    QFETCH(const bool, syncing);
    QFETCH(const Outcome, outcome);
    const QString path = g_files->make(name, DatafileFixture::root(2));
    const QByteArray before = DatafileFixture::contentOf(path);
    const auto document = DatafileFixture::opened(path);
    EditingDouble window;
    window.g_permitsSaving = permitted;
    window.g_syncing = syncing;
    document->setEditing(&window);
    document->setOpenedReadOnly(openedReadOnly);
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);

    const auto saved = document->saveDocument();

    QVERIFY(saved);
    QCOMPARE(*saved, outcome);
    QVERIFY(document->isModified());
    QCOMPARE(DatafileFixture::contentOf(path), before);
}

void DatafileSavingTest::readOnlyRefusesEveryWriteButACopy_data()
{
    QTest::addColumn<bool>("bySetting");
    QTest::newRow("opened read-only") << false;
    QTest::newRow("set to be read-only") << true;
}

void DatafileSavingTest::readOnlyRefusesEveryWriteButACopy()
{
    QFETCH(const bool, bySetting);
    const auto document =
        edited(DatafileFixture::withSetting(DatafileFixture::root(3), u"ReadOnly"_s, bySetting));
    document->setOpenedReadOnly(!bySetting);
    const QString path = document->filePath();
    const QByteArray before = DatafileFixture::contentOf(path);
    QVERIFY(QFile::link(path, g_files->path(u"link.tv3"_s)));

    const auto isRefused = [](const Result<> &written) {
        return !written && written.error().kind == Error::Kind::Refused;
    };
    QVERIFY(isRefused(document->forceSave()));
    QVERIFY(isRefused(document->writeToURL(path, typeNameOf(DatafileKind::Pro))));
    QVERIFY(isRefused(document->saveCopyAs(path)));
    QVERIFY(isRefused(document->saveCopyAs(g_files->path(u"link.tv3"_s))));
    QCOMPARE(DatafileFixture::contentOf(path), before);

    QVERIFY(document->saveCopyAs(g_files->path(u"copy.tv3"_s)));
    QCOMPARE(valueIn(u"copy.tv3"_s), u"edited"_s);
    QVERIFY(!document->writeToURL(g_files->path(u"copy.tv3"_s), u"Picture"_s));
}

void DatafileSavingTest::forceSaveNeedsPermissionAndAFile()
{
    const auto document = edited(DatafileFixture::root(3));
    EditingDouble window;
    window.g_permitsSaving = false;
    window.g_syncing = true;
    document->setEditing(&window);
    QVERIFY(!document->forceSave());

    window.g_permitsSaving = true;
    QVERIFY(document->forceSave());
    QCOMPARE(valueIn(u"this.tv3"_s), u"edited"_s);
    QVERIFY(!document->isModified());

    QVERIFY(!DatafileDocument::newDocument(DatafileFixture::services(), DatafileKind::Pro)->forceSave());
}

void DatafileSavingTest::aSaveThatFailsAtAnyPlaceLosesNothing()
{
    const auto document = edited(DatafileFixture::root(20));
    document->datafileSettings().setDatafileSettingsDidChange(true);
    const QString path = document->filePath();
    const QByteArray before = DatafileFixture::contentOf(path);
    int failures = 0;
    for (qsizetype room = 0; room < before.size(); room += 37, ++failures) {
        const auto saved = [&] {
            const FileSizeLimit limit(room);
            return document->saveDocument();
        }();

        QVERIFY2(!saved, qPrintable(QString::number(room)));
        QCOMPARE(saved.error().kind, Error::Kind::Io);
        QVERIFY(document->isModified() && document->datafileSettings().datafileSettingsDidChange());
        QVERIFY(!document->changedOnDisk());
        QCOMPARE(DatafileFixture::contentOf(path), before);
        QCOMPARE(g_files->names(), QStringList{u"this.tv3"_s});
    }
    QVERIFY(failures > 100);

    QVERIFY(document->saveDocument());
    QCOMPARE(valueIn(u"this.tv3"_s), u"edited"_s);
}

void DatafileSavingTest::saveAsShowsItsAlertAndHasWritten()
{
    const auto document = edited(
        DatafileFixture::withSetting(DatafileFixture::root(3), u"DeletedRecords"_s, plist::Array{u"gone"_s}));
    document->setOpenedReadOnly(true);
    const QByteArray before = DatafileFixture::contentOf(document->filePath());
    const QString path = g_files->path(u"other.tv3"_s);

    const DatafileDocument::SaveAsOutcome outcome = document->saveDocumentAs(path);

    QCOMPARE(outcome.errorCode, 0);
    QVERIFY(outcome.written);
    QVERIFY2(outcome.failureReason.contains(path), qPrintable(outcome.failureReason));
    QCOMPARE(document->filePath(), path);
    QVERIFY(!document->openedReadOnly() && !document->changedOnDisk());
    QCOMPARE(valueIn(u"other.tv3"_s), u"edited"_s);
    QVERIFY(DatafileFixture::opened(path)->datafileSettings().deletedIdentifiers().isEmpty());
    QCOMPARE(DatafileFixture::contentOf(g_files->path(u"this.tv3"_s)), before);
}

void DatafileSavingTest::saveAsThatFailsKeepsTheMark()
{
    const auto document = DatafileFixture::opened(g_files->make(u"this.tv3"_s, DatafileFixture::root(3)));
    const auto outcome = document->saveDocumentAs(g_files->path(u"absent/other.tv3"_s));

    QVERIFY(!outcome.written);
    QCOMPARE(outcome.errorCode, 0);
    QVERIFY(!outcome.failureReason.isEmpty());
    QVERIFY(document->isModified());
    QCOMPARE(valueIn(u"this.tv3"_s), u"value 1"_s);
}

void DatafileSavingTest::aCopyLeavesTheDocumentAlone()
{
    const auto document = edited(DatafileFixture::root(3));
    document->datafileSettings().setDatafileSettingsDidChange(true);
    const QString path = document->filePath();

    QVERIFY(document->saveCopyAs(g_files->path(u"copy.tv3"_s)));

    QCOMPARE(document->filePath(), path);
    QVERIFY(document->isModified() && document->datafileSettings().datafileSettingsDidChange());
    QVERIFY(!document->changedOnDisk());
    QCOMPARE(valueIn(u"copy.tv3"_s), u"edited"_s);
    QCOMPARE(valueIn(u"this.tv3"_s), u"value 1"_s);
}

void DatafileSavingTest::writesByOthersAreNoticed()
{
    const auto document = edited(DatafileFixture::root(3));
    QVERIFY(!document->changedOnDisk());
    // The same size, and perhaps the same second.
    QByteArray theirs = DatafileFixture::contentOf(document->filePath());
    theirs.replace("value 2", "VALUE 2");
    g_files->make(u"this.tv3"_s, theirs);
    QVERIFY(document->changedOnDisk());

    QVERIFY(document->saveDocument());
    QVERIFY(!document->changedOnDisk());

    QVERIFY(QFile::remove(document->filePath()));
    QVERIFY(!document->changedOnDisk());
}

void DatafileSavingTest::aNewDatafileIsSavedFirstByName()
{
    const auto document = DatafileDocument::newDatafile(
        DatafileFixture::services(), DatafileKind::Pro, {u"Name"_s, u"City"_s}, u"Notes"_s);
    QCOMPARE(document->displayName(), u"New Datafile"_s);
    QVERIFY(document->isModified());
    QCOMPARE(document->saveDocument().value(), Outcome::NeedsSaveAs);

    const QString path = g_files->path(u"new.tv3"_s);
    QVERIFY(document->saveDocumentAs(path).written);

    const auto again = DatafileFixture::opened(path);
    QCOMPARE(again->displayName(), u"new.tv3"_s);
    QCOMPARE(again->datafileSettings().fields().size(), 2);
    QCOMPARE(again->datafileSettings().textName(), u"Notes"_s);
    QCOMPARE(again->datafileCatalog().countSelected(), 1);
    QVERIFY(!again->catalogMismatch());
}

void DatafileSavingTest::theFormIsTheOneAskedFor()
{
    const auto document = edited(DatafileFixture::root(3));
    for (const plist::Format format : {plist::Format::Binary, plist::Format::Xml}) {
        const QString path = g_files->path(u"form.tv3"_s);
        QVERIFY(document->writeToURL(path, typeNameOf(document->kind()), format));
        QCOMPARE(DatafileFixture::opened(path)->formatRead(), format);
        QCOMPARE(valueIn(u"form.tv3"_s), u"edited"_s);
    }
}

QTEST_GUILESS_MAIN(DatafileSavingTest)
#include "DatafileSavingTest.moc"
