// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "EditorFixture.h"
#include "editor/FileSheetController.h"

#include <QSignalSpy>

using namespace tavrin;

class EditorSavingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savingTakesOverWhatIsOnTheScreen();
    void leavingARecordSavesWhenTheSettingsSaySo_data();
    void leavingARecordSavesWhenTheSettingsSaySo();
    void savingOverAnotherProgramsChangesAsksFirst();
    void aFailedSaveKeepsTheChanges();
    void aReadOnlyDatafileIsSavedElsewhere();
    void aCopyLeavesTheDatafileUnsaved();
    void savingAgainDuringASaveComesAfterIt();
    void closingWaitsForTheSave_data();
    void closingWaitsForTheSave();
    void whatIsEditedWhileAClosingSaveRunsIsAskedAbout();
    void aRevertThatIsCancelledOrFailsChangesNothing();
    void revertingNeverShowsARecordThatIsGone();
    void closingAsksAboutUnsavedChanges_data();
    void closingAsksAboutUnsavedChanges();
    void askingToCloseTwiceAsksOnce();
    void closingANewDatafileClosesOnlyWhenItWasWritten_data();
    void closingANewDatafileClosesOnlyWhenItWasWritten();
    void withoutThePasswordClosingOffersNoSaving();

private:
    static void chooseFile(EditorFixture &editor, const QString &path)
    {
        editor.sheets.answerNext<FileSheetController>([path](auto &sheet) {
            sheet.setPaths({path});
            sheet.accept();
        });
    }
};

void EditorSavingTest::savingTakesOverWhatIsOnTheScreen()
{
    EditorFixture editor;
    editor.open();
    QSignalSpy message(editor.window.get(), &EditorWindowController::statusMessage);
    editor.window->tableController().setCurrentField(0);

    editor.view.type(*editor.window, u"typed"_s);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"in a cell"_s);
    editor.window->saveDocument();

    QCOMPARE(editor.onDisk(u"r0"_s), u"in a cell"_s);
    QCOMPARE(editor.view.resumedCell, std::pair(0, 1));
    QVERIFY(!editor.document->isModified());
    QVERIFY(message.value(0).value(0).toString().startsWith(u"Saved at "_s));
    editor.window->saveDocument();
    QCOMPARE(message.last().first().toString(), u"There are no changes to save."_s);
}

void EditorSavingTest::leavingARecordSavesWhenTheSettingsSaySo_data()
{
    QTest::addColumn<bool>("autoSave");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("edited");
    QTest::addColumn<QString>("onDisk");
    QTest::newRow("on") << true << false << true << u"new"_s;
    QTest::newRow("off") << false << false << true << u"A"_s;
    QTest::newRow("read-only asks nothing") << true << true << true << u"A"_s;
    QTest::newRow("clean writes nothing") << true << false << false << u"no record"_s;
}

void EditorSavingTest::leavingARecordSavesWhenTheSettingsSaySo()
{
    QFETCH(const bool, autoSave);
    QFETCH(const bool, readOnly);
    QFETCH(const bool, edited);
    EditorFixture editor;
    editor.settings.insert(u"AutoSaveChanges"_s, autoSave);
    editor.settings.insert(u"ReadOnly"_s, readOnly);
    editor.open();

    if (edited)
        editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"new"_s);
    else
        QFile::remove(editor.path());
    editor.window->goToNextRecord();

    QTEST(editor.onDisk(u"r0"_s), "onDisk");
    QCOMPARE(editor.shown(), u"r1"_s);
}

void EditorSavingTest::savingOverAnotherProgramsChangesAsksFirst()
{
    EditorFixture editor;
    editor.open();
    editor.entries[0].value = u"of another program"_s;
    editor.writeFile();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);

    editor.sheets.answerAlert(1001);
    editor.window->saveDocument();
    QCOMPARE(editor.onDisk(u"r0"_s), u"of another program"_s);
    QVERIFY(editor.document->isModified());

    editor.sheets.answerAlert(1000);
    editor.window->saveDocument();
    QCOMPARE(editor.onDisk(u"r0"_s), u"mine"_s);
    QCOMPARE(editor.sheets.alerts().last(), u"This datafile was changed by another program."_s);
}

void EditorSavingTest::aFailedSaveKeepsTheChanges()
{
    EditorFixture editor;
    editor.open();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    QVERIFY(editor.folder.remove());
    editor.sheets.answerAlert(1000);

    editor.window->saveDocument();
    editor.document->waitForSaving();

    QVERIFY(editor.document->isModified());
    QCOMPARE(editor.valueIn(u"r0"_s), u"mine"_s);
    QVERIFY(editor.sheets.allAnswered());
}

void EditorSavingTest::aReadOnlyDatafileIsSavedElsewhere()
{
    EditorFixture editor;
    editor.open();
    editor.document->setOpenedReadOnly(true);
    const QSignalSpy told(editor.window.get(), &EditorWindowController::statusMessage);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    const QString elsewhere = editor.folder.filePath(u"Other"_s);
    chooseFile(editor, elsewhere);
    editor.sheets.answerAlert(1000);
    QCOMPARE(told.size(), 1);

    editor.window->saveDocument();
    editor.document->waitForSaving();

    QVERIFY(editor.sheets.allAnswered());
    QCOMPARE(editor.sheets.alerts(), QStringList(u"Other.tv3"_s));
    QCOMPARE(editor.onDisk(u"r0"_s), u"A"_s);
    QCOMPARE(editor.document->filePath(), elsewhere + u".tv3"_s);
    editor.name = u"Other.tv3"_s;
    QCOMPARE(editor.onDisk(u"r0"_s), u"mine"_s);
}

void EditorSavingTest::aCopyLeavesTheDatafileUnsaved()
{
    EditorFixture editor;
    editor.open();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    chooseFile(editor, editor.folder.filePath(u"Copy.tv3"_s));

    editor.window->saveCopyAs();

    QVERIFY(editor.sheets.allAnswered());
    QVERIFY(editor.document->isModified());
    QCOMPARE(editor.document->filePath(), editor.path());
    QCOMPARE(editor.onDisk(u"r0"_s), u"A"_s);
    editor.name = u"Copy.tv3"_s;
    QCOMPARE(editor.onDisk(u"r0"_s), u"mine"_s);
}

void EditorSavingTest::savingAgainDuringASaveComesAfterIt()
{
    EditorFixture editor;
    editor.open();
    QSignalSpy finished(editor.document.get(), &DatafileDocument::savingFinished);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"first"_s);
    editor.window->saveDocument();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"second"_s);
    editor.window->saveDocument();
    editor.window->saveDocument();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"third"_s);

    QCOMPARE(editor.onDisk(u"r0"_s), u"third"_s);
    QCOMPARE(finished.size(), 2);
    QVERIFY(!editor.document->isModified());
}

void EditorSavingTest::closingWaitsForTheSave_data()
{
    QTest::addColumn<bool>("writable");
    QTest::addColumn<bool>("editedMeanwhile");
    QTest::addColumn<int>("alerts");
    QTest::addColumn<bool>("closes");
    QTest::newRow("saved") << true << false << 0 << true;
    QTest::newRow("edited meanwhile") << true << true << 1 << true;
    QTest::newRow("failed") << false << false << 1 << false;
}

void EditorSavingTest::closingWaitsForTheSave()
{
    QFETCH(const bool, writable);
    QFETCH(const bool, editedMeanwhile);
    EditorFixture editor;
    editor.open();
    QSignalSpy allowed(editor.window.get(), &EditorWindowController::closeAllowed);
    QSignalSpy refused(editor.window.get(), &EditorWindowController::closeRefused);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    if (!writable)
        QVERIFY(editor.folder.remove());
    editor.window->saveDocument();
    if (editedMeanwhile)
        editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"later"_s);
    editor.window->requestClose();
    editor.window->requestClose();
    QCOMPARE(allowed.size() + refused.size(), 0);
    // "OK" to the failure, "Don’t Save" to the question.
    QFETCH(const int, alerts);
    if (alerts > 0)
        editor.sheets.answerAlert(writable ? 1002 : 1000);

    editor.document->waitForSaving();

    QFETCH(const bool, closes);
    QCOMPARE(allowed.size(), closes ? 1 : 0);
    QCOMPARE(refused.size(), closes ? 0 : 1);
    QCOMPARE(editor.sheets.alerts().size(), alerts);
}

void EditorSavingTest::whatIsEditedWhileAClosingSaveRunsIsAskedAbout()
{
    EditorFixture editor;
    editor.open();
    QSignalSpy refused(editor.window.get(), &EditorWindowController::closeRefused);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    editor.sheets.answerAlert(1000);
    editor.window->requestClose();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"later"_s);
    editor.sheets.answerAlert(1001);

    editor.document->waitForSaving();

    QCOMPARE(refused.size(), 1);
    QVERIFY(editor.sheets.allAnswered() && editor.document->isModified());
}

void EditorSavingTest::aRevertThatIsCancelledOrFailsChangesNothing()
{
    EditorFixture editor;
    editor.open();
    editor.work.g_holds = true;
    QSignalSpy allowed(editor.window.get(), &EditorWindowController::closeAllowed);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    editor.sheets.answerAlert(1000);
    editor.window->revertDocumentToSaved();
    editor.window->saveDocument();
    QCOMPARE(editor.onDisk(u"r0"_s), u"A"_s);
    editor.work.finishNext(true);
    QCOMPARE(editor.onDisk(u"r0"_s), u"mine"_s);

    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"more"_s);
    editor.sheets.answerAlert(1000);
    editor.window->revertDocumentToSaved();
    editor.window->requestClose();
    QVERIFY(QFile::remove(editor.path()));
    editor.sheets.answerAlert(1000); // that it was not reverted
    editor.sheets.answerAlert(1002); // and, as it still is changed, what to do about it
    editor.work.finishNext();
    editor.window->updateCurrentRecord();
    QCOMPARE(editor.valueIn(u"r0"_s), u"more"_s);
    QCOMPARE(allowed.size(), 1);
    QVERIFY(editor.sheets.allAnswered());
}

void EditorSavingTest::revertingNeverShowsARecordThatIsGone()
{
    EditorFixture editor;
    editor.open();
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    bool alwaysThere = true;
    const auto look = [&] {
        const RecordData *record = editor.window->currentRecord();
        alwaysThere =
            alwaysThere
            && (!record || record == editor.document->datafileRecords().recordForIdentifier(u"r0"_s));
    };
    connect(editor.window.get(), &EditorWindowController::titleChanged, this, look);
    connect(editor.window.get(), &EditorWindowController::operationsChanged, this, look);
    connect(editor.window.get(), &EditorWindowController::statusChanged, this, look);
    editor.sheets.answerAlert(1000);

    editor.window->revertDocumentToSaved();

    QVERIFY(alwaysThere);
    QVERIFY(!editor.document->isModified());
    QCOMPARE(editor.valueIn(u"r0"_s), u"A"_s);
}

void EditorSavingTest::closingAsksAboutUnsavedChanges_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QString>("onDisk");
    QTest::newRow("Save") << 1000 << true << u"mine"_s;
    QTest::newRow("Cancel") << 1001 << false << u"A"_s;
    QTest::newRow("Don’t Save") << 1002 << true << u"A"_s;
}

void EditorSavingTest::closingAsksAboutUnsavedChanges()
{
    QFETCH(const int, answer);
    QFETCH(const bool, closes);
    EditorFixture editor;
    editor.open();
    QSignalSpy allowed(editor.window.get(), &EditorWindowController::closeAllowed);
    QSignalSpy refused(editor.window.get(), &EditorWindowController::closeRefused);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    editor.sheets.answerAlert(answer);

    editor.window->requestClose();
    editor.document->waitForSaving();

    QCOMPARE(allowed.size(), closes ? 1 : 0);
    QCOMPARE(refused.size(), closes ? 0 : 1);
    QCOMPARE(editor.sheets.lastButtons(), QStringList({u"Save"_s, u"Cancel"_s, u"Don’t Save"_s}));
    if (closes)
        editor.window->windowWillClose();
    QTEST(editor.onDisk(u"r0"_s), "onDisk");
}

void EditorSavingTest::askingToCloseTwiceAsksOnce()
{
    EditorFixture editor;
    editor.open();
    QSignalSpy refused(editor.window.get(), &EditorWindowController::closeRefused);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    // Somebody quits from another window while the question is open: the script knows of one sheet only.
    editor.sheets.answerNext<AlertSheetController>([&editor](auto &sheet) {
        editor.window->requestClose();
        sheet.cancel();
    });

    editor.window->requestClose();

    QCOMPARE(refused.size(), 1);
    editor.sheets.answerAlert(1001);
    editor.window->requestClose();
    QVERIFY(editor.sheets.allAnswered());
}

void EditorSavingTest::closingANewDatafileClosesOnlyWhenItWasWritten_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("closes");
    QTest::newRow("written") << u"New.tv3"_s << true;
    QTest::newRow("cancelled") << QString() << false;
    QTest::newRow("not writable") << u"missing/New.tv3"_s << false;
}

void EditorSavingTest::closingANewDatafileClosesOnlyWhenItWasWritten()
{
    QFETCH(const QString, fileName);
    QFETCH(const bool, closes);
    EditorFixture editor;
    editor.use(DatafileDocument::newDatafile(
        {editor.environment, &editor.preferences}, DatafileKind::Pro, {u"Name"_s}, {}));
    QSignalSpy allowed(editor.window.get(), &EditorWindowController::closeAllowed);
    QVERIFY(editor.document->isModified());
    editor.sheets.answerAlert(1000);
    if (fileName.isEmpty()) {
        editor.sheets.answerNext<FileSheetController>([](auto &sheet) { sheet.cancel(); });
    } else {
        chooseFile(editor, editor.folder.filePath(fileName));
        // Only a failure is told: the first save of a datafile is no Save As.
        if (!closes)
            editor.sheets.answerAlert(1000);
    }

    editor.window->requestClose();
    editor.document->waitForSaving(); // the settings, the record on screen among them

    QCOMPARE(allowed.size(), closes ? 1 : 0);
    QCOMPARE(editor.document->isModified(), !closes);
    QCOMPARE(editor.document->filePath().isEmpty(), !closes);
    QVERIFY(editor.sheets.allAnswered());
}

void EditorSavingTest::withoutThePasswordClosingOffersNoSaving()
{
    EditorFixture editor;
    editor.settings.insert(u"Munge"_s, u"secret"_s);
    editor.open();
    QSignalSpy refused(editor.window.get(), &EditorWindowController::closeRefused);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"mine"_s);
    editor.sheets.answerNext<QVSheetController>([](auto &sheet) { sheet.cancel(); });
    editor.sheets.answerAlert(1001);

    editor.window->requestClose();

    QCOMPARE(refused.size(), 1);
    QCOMPARE(editor.sheets.lastButtons(), QStringList({u"Close Without Saving"_s, u"Cancel"_s}));
    QVERIFY(!editor.window->validateAction(u"saveDocumentAs:"_s));
}

QTEST_MAIN(EditorSavingTest)
#include "EditorSavingTest.moc"
