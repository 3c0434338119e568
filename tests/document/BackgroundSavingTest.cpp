// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileFixture.h"
#include "support/FileSizeLimit.h"

#include <QSignalSpy>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// A save on another thread. The document hears of its end only from the event loop or by waiting, so until
/// then a test may do what a person does meanwhile.
class BackgroundSavingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        g_files = std::make_unique<DatafileFixture>();
        g_document = DatafileFixture::opened(g_files->make(u"this.tv3"_s, DatafileFixture::root(50)));
        g_path = g_document->filePath();
        g_before = DatafileFixture::contentOf(g_path);
        g_document->setEditing(&g_window);
        g_window.g_clean = false;
        edit(u"r1"_s);
    }

    void whatWasChangedMeanwhileStaysUnsaved()
    {
        QSignalSpy finished(g_document.get(), &DatafileDocument::savingFinished);
        g_document->datafileSettings().setDatafileSettingsDidChange(true);
        QCOMPARE(g_document->beginSaving().value(), SaveOutcome::Begun);
        QVERIFY(g_document->isSaving() && g_document->isModified());
        QVERIFY(!g_window.g_nowSaving); // the window may store what is typed

        edit(u"r2"_s);
        QTRY_COMPARE(finished.size(), 1);

        QVERIFY(g_document->isModified() && !g_window.g_clean);
        QVERIFY(!g_document->datafileSettings().datafileSettingsDidChange());
        QCOMPARE(stored(u"r1"_s), u"edited"_s);
        QCOMPARE(stored(u"r2"_s), u"value 2"_s);

        QVERIFY(g_document->beginSaving());
        g_document->waitForSaving();
        QVERIFY(!g_document->isModified() && g_window.g_clean);
        QCOMPARE(stored(u"r2"_s), u"edited"_s);
        QCOMPARE(finished.size(), 2);
    }

    void aChangeTakenBackMeanwhileIsAChange()
    {
        QVERIFY(g_document->beginSaving());
        g_document->updateChangeCount(DatafileDocument::ChangeCount::Undone);
        QVERIFY(!g_document->isModified());
        g_document->waitForSaving();
        QVERIFY(g_document->isModified());
    }

    void ourOwnWriteIsNobodyElses()
    {
        for (int i = 0; i < 20; ++i, edit(u"r1"_s)) {
            QVERIFY(g_document->beginSaving());
            // The file takes its place before the document hears of it.
            while (DatafileFixture::contentOf(g_path) == g_before && i == 0)
                QVERIFY(!g_document->changedOnDisk());
            QVERIFY(!g_document->changedOnDisk());
            g_document->waitForSaving();
            QVERIFY(!g_document->changedOnDisk());
        }
        g_files->make(u"this.tv3"_s, g_before);
        QVERIFY(g_document->changedOnDisk());
    }

    void aFailureKeepsTheMarks()
    {
        g_document->datafileSettings().setDatafileSettingsDidChange(true);
        Error::Kind kind = Error::Kind::Refused;
        connect(g_document.get(), &DatafileDocument::savingFinished, this, [&](const Result<> &saved) {
            kind = saved ? kind : saved.error().kind;
        });
        {
            const FileSizeLimit limit(1000);
            QVERIFY(g_document->beginSaving());
            g_document->waitForSaving();
        }
        QCOMPARE(kind, Error::Kind::Io);
        QVERIFY(g_document->isModified() && g_document->datafileSettings().datafileSettingsDidChange());
        QVERIFY(!g_document->changedOnDisk());
        QCOMPARE(DatafileFixture::contentOf(g_path), g_before);
        QCOMPARE(g_files->names(), QStringList{u"this.tv3"_s});
    }

    void theEndOfTheDocumentWaits()
    {
        QVERIFY(g_document->beginSaving());
        g_document.reset();
        QCOMPARE(stored(u"r1"_s), u"edited"_s);
        QCOMPARE(g_files->names(), QStringList{u"this.tv3"_s});
    }

    void whatElseUsesTheFileWaits()
    {
        const auto whileSaving = [this](const auto &use) {
            edit(u"r1"_s);
            QVERIFY(g_document->beginSaving());
            edit(u"r2"_s);
            use();
            QVERIFY(!g_document->isSaving());
        };
        whileSaving([&] { QVERIFY(g_document->saveCopyAs(g_files->path(u"copy.tv3"_s))); });
        whileSaving([&] {
            g_document->datafileSettings().setDatafileSettingsDidChange(true);
            QVERIFY(g_document->updateSettingsOnly());
        });
        QCOMPARE(stored(u"r1"_s), u"edited"_s);
        QCOMPARE(stored(u"r2"_s), u"edited"_s);
        edit(u"r3"_s);
        whileSaving([&] { QVERIFY(g_document->revertToContents()); });
        QCOMPARE(g_document->datafileRecords().recordForIdentifier(u"r3"_s)->fieldValue(u"f"_s), u"edited"_s);
        QVERIFY(!g_document->isModified() && !g_document->changedOnDisk());
        whileSaving([&] { QVERIFY(g_document->saveDocumentAs(g_files->path(u"other.tv3"_s)).written); });
        QVERIFY(!g_document->changedOnDisk());
    }

private:
    void edit(const QString &record)
    {
        g_document->storeFieldValue(record, u"f"_s, u"edited"_s);
        g_document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    }
    QString stored(const QString &record) const { return DatafileFixture::storedValue(g_path, record); }

    std::unique_ptr<DatafileFixture> g_files;
    std::unique_ptr<DatafileDocument> g_document;
    EditingDouble g_window;
    QString g_path;
    QByteArray g_before;
};

QTEST_GUILESS_MAIN(BackgroundSavingTest)
#include "BackgroundSavingTest.moc"
