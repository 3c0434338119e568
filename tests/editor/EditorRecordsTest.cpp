// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorRecords.h"

#include "EditorFixture.h"
#include "document/DatafileBackups.h"
#include "editor/EditorFields.h"
#include "editor/FileSheetController.h"
#include "editor/FormSheetController.h"
#include "editor/GotoRecordSheetController.h"
#include "editor/ModifyFieldsSheetController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>

using namespace tavrin;

class EditorRecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewRecordIsPlacedAndTakenBack();
    void whatUndoTouchesIsShown();
    void deletingShowsTheRecordThatFollowed_data();
    void deletingShowsTheRecordThatFollowed();
    void allSelectedGoAfterABackup();
    void withoutABackupNothingGoes();
    void duplicatesGoAmongAllRecords();
    void recordsMoveWhileAllAreSelected();
    void aLockedRecordCannotBeTypedInto();
    void aRecordIsCopiedWithItsNames();
    void backupsAreRestoredAsCopies();
    void fieldsAreModified();
    void aUsedFieldIsNotDeletedUnasked();
    void withoutFieldsThereIsNoBasicView();
    void emptyFieldsAreFilled();
    void contentsAreNotEmptiedUnasked();
    void totalsAreShownAndRecorded();
};

namespace {

constexpr int yes = QVSheetController::FirstButton;
constexpr int no = QVSheetController::SecondButton;

void useBackupsIn(EditorFixture &editor, const QString &folder)
{
    editor.preferences.setObject(folder, u"DatafilesFolderURL"_s);
}

} // namespace

void EditorRecordsTest::aNewRecordIsPlacedAndTakenBack()
{
    EditorFixture editor;
    editor.settings.insert(u"NewRecordLocation"_s, 2);
    editor.open(u"r1"_s);
    editor.window->addRecord();
    QCOMPARE(editor.window->recordNumberText(), u"#5"_s);
    QCOMPARE(editor.window->undoName(), u"New Record"_s);
    editor.window->records().addRecord(); // The empty one is not followed by another.
    QCOMPARE(editor.identifiers().size(), 5);
    editor.window->undo();
    QCOMPARE(editor.identifiers().size(), 4);
    QVERIFY(!editor.document->isModified() && editor.window->currentRecord());

    editor.window->addRecord();
    editor.window->goToFirstRecord(); // The empty one vanishes, and with it what could be undone.
    QCOMPARE(editor.identifiers().size(), 4);
    QVERIFY(editor.window->undoName().isEmpty());

    editor.window->showRecord(u"r1"_s);
    editor.window->records().duplicateCurrentRecord();
    QCOMPARE(editor.window->recordNumberText(), u"#3"_s);
    QCOMPARE(editor.window->currentRecord()->fieldValue(u"a"_s), u"B"_s);
}

void EditorRecordsTest::whatUndoTouchesIsShown()
{
    EditorFixture editor;
    editor.open(u"r1"_s);
    editor.window->records().deleteRecordWithoutWarning();
    editor.window->goToLastRecord();
    editor.window->undo();
    QCOMPARE(editor.shown(), u"r1"_s);
    editor.window->redo();
    QCOMPARE(editor.shown(), u"r2"_s);
    QVERIFY(!editor.window->viewedRecordList().identifiers().contains(u"r1"_s)
            || editor.window->viewedRecordList().identifiers().first() == u"r1"_s);
}

void EditorRecordsTest::deletingShowsTheRecordThatFollowed_data()
{
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("shown");
    QTest::newRow("in between") << u"r1"_s << yes << u"r2"_s;
    QTest::newRow("the last") << u"r3"_s << yes << u"r0"_s;
    QTest::newRow("not at all") << u"r1"_s << no << u"r1"_s;
}

void EditorRecordsTest::deletingShowsTheRecordThatFollowed()
{
    QFETCH(const QString, deleted);
    QFETCH(const int, answer);
    EditorFixture editor;
    editor.open(deleted);
    editor.sheets.answerAlert(answer);
    editor.window->records().deleteRecordWithToggle(false);
    QTEST(editor.shown(), "shown");
    QCOMPARE(editor.identifiers().contains(deleted), answer == no);
}

void EditorRecordsTest::allSelectedGoAfterABackup()
{
    EditorFixture editor;
    editor.entries[3].selected = false;
    useBackupsIn(editor, editor.folder.path());
    editor.open(u"r1"_s);
    editor.view.type(*editor.window, u"typed"_s);
    editor.work.g_holds = true;
    for (const bool cancelled : {true, false}) {
        editor.sheets.answerAlert(yes);
        editor.window->records().deleteAllSelectedRecords();
        QCOMPARE(editor.identifiers().size(), 3); // Not before the backup stands.
        editor.work.finishNext(cancelled);
        QCOMPARE(DatafileBackups(*editor.document).list().isEmpty(), cancelled);
        QCOMPARE(editor.identifiers().size(), cancelled ? 3 : 1);
    }
    QCOMPARE(editor.identifiers(), QStringList{u"r3"_s});
    QCOMPARE(editor.shown(), u"r3"_s);

    const QList<DatafileBackups::Backup> backups = DatafileBackups(*editor.document).list();
    QCOMPARE(backups.size(), 1);
    const auto backup = DatafileDocument::open(
        {editor.environment, nullptr}, backups.first().path, SelectionOnOpening::AllSelected);
    QCOMPARE((*backup)->datafileRecords().recordForIdentifier(u"r1"_s)->textString(), u"typed"_s);
    editor.window->undo();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s, u"r2"_s}));
    QCOMPARE(editor.record(u"r1"_s).textString(), u"typed"_s);
    QVERIFY(!editor.window->validateAction(u"makeThisTheFirstRecord:"_s));
}

void EditorRecordsTest::withoutABackupNothingGoes()
{
    EditorFixture editor;
    editor.entries[3].selected = false;
    useBackupsIn(editor, editor.folder.filePath(u"Test.tv3"_s)); // A file, in which no folder can be.
    editor.open();
    editor.sheets.answerAlert(yes);
    editor.sheets.answerAlert(yes);
    editor.window->records().deleteAllSelectedRecords();
    QCOMPARE(editor.sheets.alerts().last(), u"The backup could not be written."_s);
    QCOMPARE(editor.identifiers().size(), 3);

    editor.preferences.setObject(1, u"NoBackupForDelectedSelectedRecords"_s);
    editor.sheets.answerAlert(yes);
    editor.window->records().deleteAllSelectedRecords();
    QCOMPARE(editor.identifiers(), QStringList{u"r3"_s});
}

void EditorRecordsTest::duplicatesGoAmongAllRecords()
{
    EditorFixture editor({u"A"_s, u"B"_s, u"A"_s, u"A"_s});
    editor.entries[2].selected = false;
    editor.open(u"r3"_s);
    editor.work.g_holds = true;
    editor.window->records().removeDuplicateRecords();
    editor.view.type(*editor.window, u"typed"_s); // So it says something else now.
    editor.work.finishNext();
    editor.sheets.answerAlert(yes);
    editor.work.finishNext();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s, u"r3"_s}));
    QCOMPARE(editor.sheets.alerts(), QStringList{u"1 duplicate record(s) removed."_s});
    editor.window->undo();
    QCOMPARE(editor.identifiers().size(), 4);
    editor.window->records().removeDuplicateRecords();
    editor.work.finishNext(true);
    QCOMPARE(editor.identifiers().size(), 4);
}

void EditorRecordsTest::recordsMoveWhileAllAreSelected()
{
    EditorFixture editor;
    editor.open(u"r2"_s);
    editor.window->records().makeThisTheFirstRecord();
    QCOMPARE(editor.identifiers(), (QStringList{u"r2"_s, u"r0"_s, u"r1"_s, u"r3"_s}));
    QCOMPARE(editor.window->recordNumberText(), u"#1"_s);
    editor.sheets.answerNext<GotoRecordSheetController>([](auto &sheet) {
        sheet.setEntry(u"3"_s);
        sheet.accept();
    });
    editor.window->records().moveAfterRecordNumber();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s, u"r2"_s, u"r3"_s}));
    QCOMPARE(editor.shown(), u"r2"_s);
    editor.window->undo();
    editor.window->undo();
    QVERIFY(!editor.document->isModified());
}

void EditorRecordsTest::aLockedRecordCannotBeTypedInto()
{
    EditorFixture editor;
    editor.open(u"r1"_s);
    editor.window->records().toggleRecordLocked();
    QVERIFY(editor.window->currentRecordLocked() && !editor.window->isFreeformTextEditable());
    QVERIFY(!editor.window->validateAction(u"moveCurrentFreeformTextIntoFields:"_s));
    editor.window->records().unlockAllRecords();
    QVERIFY(editor.window->isFreeformTextEditable());
    QVERIFY(editor.window->validateAction(u"moveCurrentFreeformTextIntoFields:"_s));
    editor.window->records().revertAllRecordsLockedState();
    QVERIFY(editor.window->currentRecordLocked() && !editor.record(u"r0"_s).recordLocked());
}

void EditorRecordsTest::aRecordIsCopiedWithItsNames()
{
    EditorFixture editor;
    editor.entries[0] = {u"A"_s, u"text"_s, "{\\rtf1\\ansi {\\b text}}", false, true, u"other"_s};
    editor.open(u"r0"_s);
    editor.window->records().copyRecord();
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(copied->text(), u"A\nother\ntext"_s);
    QVERIFY(copied->data(u"text/rtf"_s).contains("\\b"));
    editor.window->records().copyRecordWithFieldNames();
    QCOMPARE(QGuiApplication::clipboard()->text(), u"A:\tA\nB:\tother\ntext"_s);
}

void EditorRecordsTest::backupsAreRestoredAsCopies()
{
    EditorFixture editor;
    useBackupsIn(editor, editor.folder.path());
    editor.open();
    editor.sheets.answerAlert(yes);
    editor.window->records().browseBackups();
    QCOMPARE(editor.sheets.alerts().last(), u"There are no backups of this datafile."_s);
    const QString backup = DatafileBackups(*editor.document).write().value();
    QSignalSpy wanted(editor.window.get(), &EditorWindowController::openDatafile);
    const QString copy = editor.folder.filePath(u"copy.tv3"_s);
    editor.sheets.answerNext<FormSheetController>([](FormSheetController &form) {
        form.choose(1, 1);
        form.accept();
    });
    const auto isProposed = [&editor](const FileSheetController &panel) {
        return panel.request().folder == editor.folder.path()
               && panel.request().suggestedName == u"Test restored.tv3"_s;
    };
    editor.sheets.answerNext<FileSheetController>([&](FileSheetController &panel) {
        QVERIFY(isProposed(panel));
        panel.setPaths({copy});
        panel.accept();
    });
    editor.window->records().browseBackups();
    QCOMPARE(wanted.first().first().toString(), copy);
    QVERIFY(QFile::exists(copy) && QFile::exists(backup));

    // What is saved of a backup does not go among the backups either.
    editor.use(std::move(*DatafileDocument::open(
        {editor.environment, &editor.preferences}, backup, SelectionOnOpening::AllSelected)));
    editor.window->setCanSaveChanges();
    editor.sheets.answerNext<FileSheetController>([&](FileSheetController &panel) {
        QVERIFY(isProposed(panel));
        panel.cancel();
    });
    editor.window->saveDocumentAs();
    QVERIFY(editor.sheets.allAnswered());
}

// Fields.

void EditorRecordsTest::fieldsAreModified()
{
    EditorFixture editor;
    editor.settings.insert(u"SyncID"_s, u"partner"_s);
    editor.open(u"r1"_s);
    editor.sheets.answerNext<ModifyFieldsSheetController>([](ModifyFieldsSheetController &sheet) {
        QCOMPARE(sheet.useOf(0), 4);
        sheet.renameField(sheet.addField(), u"c\td"_s);
        sheet.moveField(2, 0);
        QVERIFY(sheet.note().isNull());
        sheet.renameField(1, u"B"_s);
        QVERIFY(!sheet.note().isNull());
        sheet.renameField(2, u""_s);
        QCOMPARE(sheet.problem(), u"A field must have a name."_s);
        sheet.deleteField(2);
        sheet.setTextName(u"Notes"_s);
        sheet.accept();
    });
    editor.sheets.answerAlert(yes);
    editor.window->fields().modifyFields();
    const QList<FieldDefinition> &fields = editor.document->datafileSettings().fields();
    QCOMPARE(fields.size(), 2);
    QCOMPARE(fields[0].name(), u"c d"_s);
    QCOMPARE(fields[1].name(), u"B"_s);
    QCOMPARE(fields[1].identifier(), u"a"_s);
    QCOMPARE(editor.window->textName(), u"Notes"_s);
    QCOMPARE(editor.list().columnCount(), 3);
    editor.window->undo();
    QCOMPARE(editor.list().headerData(0, Qt::Horizontal).toString(), u"A"_s);
    QVERIFY(!editor.document->isModified());
}

void EditorRecordsTest::aUsedFieldIsNotDeletedUnasked()
{
    EditorFixture editor;
    editor.open();
    const auto deleteFirst = [](ModifyFieldsSheetController &sheet) {
        sheet.deleteField(0);
        sheet.accept();
    };
    editor.sheets.answerNext<ModifyFieldsSheetController>(deleteFirst);
    editor.sheets.answerAlert(no);
    editor.sheets.answerNext<ModifyFieldsSheetController>([](ModifyFieldsSheetController &again) {
        QCOMPARE(again.fields().size(), 1);
        again.cancel();
    });
    editor.window->fields().modifyFields();
    QCOMPARE(editor.document->datafileSettings().fields().size(), 2);
    editor.sheets.answerNext<ModifyFieldsSheetController>(deleteFirst);
    editor.sheets.answerAlert(yes);
    editor.window->fields().modifyFields();
    QCOMPARE(editor.sheets.alerts().last(), u"Delete the field \"A\"?"_s);
    QVERIFY(editor.record(u"r0"_s).fieldValue(u"a"_s).isEmpty());
    editor.window->undo();
    QCOMPARE(editor.record(u"r0"_s).fieldValue(u"a"_s), u"A"_s);
}

void EditorRecordsTest::withoutFieldsThereIsNoBasicView()
{
    EditorFixture editor({u""_s, u""_s});
    editor.open();
    editor.window->setMode(u"Basic"_s);
    editor.sheets.answerNext<ModifyFieldsSheetController>([](ModifyFieldsSheetController &sheet) {
        sheet.deleteField(0);
        sheet.deleteField(0);
        sheet.accept();
    });
    editor.window->fields().modifyFields();
    QCOMPARE(editor.window->mode(), u"List"_s);
    QVERIFY(!editor.window->validateAction(u"fillEmptyFields:"_s));
}

void EditorRecordsTest::emptyFieldsAreFilled()
{
    EditorFixture editor;
    editor.entries[1].locked = true;
    editor.open(u"r0"_s);
    QSignalSpy told(editor.window.get(), &EditorWindowController::statusMessage);
    const auto fill = [](FormSheetController &form) {
        form.choose(0, 1);
        QVERIFY(!form.isAcceptable());
        form.setText(2, u"new"_s);
        QTRY_COMPARE(form.preview().rows.size(), 3);
        form.accept();
    };
    editor.sheets.answerNext<FormSheetController>(fill);
    editor.sheets.answerAlert(yes);
    editor.window->fields().fillEmptyFields();
    QCOMPARE(editor.sheets.alerts().last(), u"3 empty field(s) were filled."_s);
    QCOMPARE(editor.record(u"r0"_s).fieldValue(u"b"_s), u"new"_s);
    QCOMPARE(editor.basic().index(1, BasicTableModel::ValueColumn).data().toString(), u"new"_s);
    editor.window->undo();
    QCOMPARE(editor.record(u"r0"_s).fieldValue(u"b"_s), QString());
    QCOMPARE(editor.window->redoName(), u"Fill Empty Fields"_s);
}

void EditorRecordsTest::contentsAreNotEmptiedUnasked()
{
    EditorFixture editor;
    editor.open();
    editor.sheets.answerNext<FormSheetController>([](FormSheetController &form) {
        QVERIFY(!form.isAcceptable());
        form.setText(4, u"new"_s);
        QVERIFY(form.isAcceptable());
        form.choose(1, 1); // Where the content contains nothing that is said yet.
        QVERIFY(!form.isAcceptable());
        form.choose(1, 2);
        form.setText(4, u""_s);
        QVERIFY(!form.isAcceptable());
        form.setOn(5, true);
        QVERIFY(form.isAcceptable());
        form.cancel();
    });
    editor.window->fields().replaceFieldContents();
}

void EditorRecordsTest::totalsAreShownAndRecorded()
{
    EditorFixture editor({u"1"_s, u"2.5"_s, u"x"_s});
    editor.open();
    editor.sheets.answerNext<FormSheetController>([](FormSheetController &form) {
        QTRY_COMPARE(form.preview().rows.value(0).value(1), u"3.5"_s);
        form.accept();
    });
    editor.window->fields().totalFieldContents();
    QCOMPARE(editor.window->recordNumberText(), u"#4"_s);
    QVERIFY(editor.window->currentRecord()->isSum());
    QCOMPARE(editor.window->currentRecord()->textString(), u"Total of 3 records"_s);
}

QTEST_MAIN(EditorRecordsTest)
#include "EditorRecordsTest.moc"
