// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorSorting.h"

#include "EditorFixture.h"
#include "editor/SortFieldsSheetController.h"
#include "editor/SortFreeformSheetController.h"
#include "editor/SortTaskNameSheetController.h"
#include "editor/SortTasksSheetController.h"

using namespace tavrin;

class EditorSortingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSortCanBeUndone();
    void omittedRecordsAreSortedToo();
    void anOrderOfOnesOwnIsNotLostUnasked();
    void anUnreadableDateIsShown();
    void aCancelledSortChangesNothing();
    void typingDuringASortIsKept();
    void columnsAreFoundBesideHiddenOnes();
    void theFirstResultsAreShown();
    void titlesAreKept();
    void tasksAreKeptAndRun();
    void aTaskWhoseFieldIsGoneIsRefused();
};

namespace {

using FieldsSheet = SortFieldsSheetController;

/// With that answer to the alert that follows the sheet, if one does.
void sortByFirstField(EditorFixture &editor,
                      qsizetype treatAs = 0,
                      bool descending = false,
                      std::optional<int> answer = {})
{
    editor.sheets.answerNext<FieldsSheet>([=](FieldsSheet &sheet) {
        sheet.handleSortByClick(0);
        sheet.handleTreatAsClick(treatAs);
        sheet.setDescending(descending);
        sheet.accept();
    });
    if (answer)
        editor.sheets.answerAlert(*answer);
    editor.window->sorting().sortByFields();
}

} // namespace

void EditorSortingTest::aSortCanBeUndone()
{
    EditorFixture editor({u"10"_s, u"9"_s, u"b"_s, u"100"_s});
    editor.open(u"r0"_s);
    editor.view.type(*editor.window, u"typed"_s);
    sortByFirstField(editor, 1, true);
    const QStringList sorted{u"r3"_s, u"r0"_s, u"r1"_s, u"r2"_s};
    QCOMPARE(editor.identifiers(), sorted);
    QCOMPARE(editor.shown(), u"r0"_s);
    QCOMPARE(editor.window->recordNumberText(), u"#2"_s);
    QCOMPARE(editor.record(u"r0"_s).textString(), u"typed"_s);
    QCOMPARE(editor.list().index(0, 0).data().toString(), u"100"_s);
    QVERIFY(editor.document->isModified());
    QCOMPARE(editor.document->datafileSettings().criteria<SubsetSortCriteriaData>().compareSelector(), 2);
    QCOMPARE(editor.window->undoName(), u"Sort"_s);

    // A record that came or went in between does not keep the others from their places.
    editor.document->deleteRecord(u"r1"_s);
    editor.window->undo();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r2"_s, u"r3"_s}));
    QVERIFY(editor.window->undoName().isEmpty());
    editor.window->redo();
    QCOMPARE(editor.identifiers(), (QStringList{u"r3"_s, u"r0"_s, u"r2"_s}));
}

void EditorSortingTest::omittedRecordsAreSortedToo()
{
    EditorFixture editor({u"D"_s, u"C"_s, u"B"_s, u"A"_s});
    editor.entries[2].selected = false;
    editor.open();
    editor.window->sorting().sortDatafileByWholeRecord();
    QCOMPARE(editor.document->datafileCatalog().identifiers(),
             (QStringList{u"r3"_s, u"r2"_s, u"r1"_s, u"r0"_s}));
    QCOMPARE(editor.identifiers(), (QStringList{u"r3"_s, u"r1"_s, u"r0"_s}));
}

void EditorSortingTest::anOrderOfOnesOwnIsNotLostUnasked()
{
    EditorFixture editor({u"B"_s, u"A"_s});
    editor.settings.insert(u"CustomSorting"_s, true);
    editor.open();
    editor.sheets.answerAlert(QVSheetController::SecondButton);
    editor.window->sorting().sortDatafileByWholeRecord();
    QCOMPARE(editor.sheets.alerts(), QStringList{u"This datafile uses custom sorting."_s});
    QCOMPARE(editor.sheets.lastButtons(), (QStringList{u"Sort"_s, u"Cancel"_s}));
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s}));
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    editor.window->sorting().sortDatafileByWholeRecord();
    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r0"_s}));
}

void EditorSortingTest::anUnreadableDateIsShown()
{
    EditorFixture editor({u"Mon, 5 Mar 2007 10:15:00 +0000"_s, u"A"_s, u"5 Mar"_s});
    editor.entries[1].selected = false;
    editor.open(u"r0"_s);
    sortByFirstField(editor, 3, false, QVSheetController::FirstButton);
    QCOMPARE(editor.sheets.alerts(), QStringList{u"The records were not sorted."_s});
    QCOMPARE(editor.sheets.lastButtons(), (QStringList{u"Show Record"_s, u"Cancel"_s}));
    // An omitted record is shown by selecting it.
    QCOMPARE(editor.shown(), u"r1"_s);
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s, u"r2"_s}));
    QVERIFY(editor.window->undoName().isEmpty());
}

void EditorSortingTest::aCancelledSortChangesNothing()
{
    EditorFixture editor({u"B"_s, u"A"_s});
    editor.open();
    editor.work.g_holds = true;
    editor.window->sorting().sortByCreatedDate();
    editor.work.finishNext(true);
    editor.window->sorting().sortDatafileByWholeRecord();
    editor.work.finishNext(true);
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s}));
    QVERIFY(!editor.document->isModified());
}

void EditorSortingTest::typingDuringASortIsKept()
{
    EditorFixture editor({u"B"_s, u"A"_s});
    editor.open(u"r0"_s);
    editor.work.g_holds = true;
    editor.window->sorting().sortDatafileByWholeRecord();
    editor.view.type(*editor.window, u"typed meanwhile"_s);
    editor.view.typeInCell(*editor.window, editor.basic(), 1, 1, u"b"_s);
    editor.work.finishNext();
    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r0"_s}));
    QCOMPARE(editor.record(u"r0"_s).textString(), u"typed meanwhile"_s);
    QCOMPARE(editor.record(u"r0"_s).fieldValue(u"b"_s), u"b"_s);
    QCOMPARE(editor.view.text, u"typed meanwhile"_s);
}

void EditorSortingTest::columnsAreFoundBesideHiddenOnes()
{
    EditorFixture editor;
    editor.entries = {{u"1"_s, u"y"_s, {}, false, true, u"2"_s}, {u"2"_s, u"x"_s, {}, false, true, u"1"_s}};
    editor.hiddenFields = {u"a"_s};
    editor.open();
    editor.window->sorting().sortByColumn(0, false);
    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r0"_s}));
    editor.window->sorting().sortByColumn(0, true);
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s}));
    editor.window->sorting().sortByColumn(1, false); // The text.
    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r0"_s}));
}

void EditorSortingTest::theFirstResultsAreShown()
{
    EditorFixture editor({u"D"_s, u"C"_s, u"B"_s, u"A"_s});
    editor.open();
    FieldsSheet *shown = nullptr;
    editor.sheets.answerNext<FieldsSheet>([&shown](FieldsSheet &sheet) { shown = &sheet; });
    editor.window->sorting().sortByFields();
    QTRY_COMPARE(shown->firstResults(), (QStringList{u"1. A"_s, u"2. B"_s, u"3. C"_s}));
    shown->handleTreatAsClick(1);
    shown->setDescending(true);
    shown->handleTreatAsClick(0);
    QTRY_COMPARE(shown->firstResults(), (QStringList{u"1. D"_s, u"2. C"_s, u"3. B"_s}));
    shown->cancel();
    QCOMPARE(editor.identifiers().first(), u"r0"_s);
}

void EditorSortingTest::titlesAreKept()
{
    EditorFixture editor;
    editor.entries = {{{}, u"Prof. Ada Zorn"_s}, {{}, u"Ben Young"_s}};
    editor.preferences.registerDefaults(registeredDefaults());
    editor.open();
    editor.sheets.answerNext<SortFreeformSheetController>([](SortFreeformSheetController &sheet) {
        QVERIFY(sheet.titles().contains(u"Ph.D."_s));
        sheet.setTitlesText(u"Prof."_s);
        sheet.accept();
    });
    editor.window->sorting().sortByFreeformText();
    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r0"_s}));
    QCOMPARE(editor.preferences.arrayForKey(u"SortTitleList"_s), plist::Array{plist::Value(u"Prof."_s)});
}

void EditorSortingTest::tasksAreKeptAndRun()
{
    EditorFixture editor({u"B"_s, u"A"_s});
    editor.open();
    QVERIFY(!editor.window->validateAction(u"sortTask:"_s));
    sortByFirstField(editor);
    const auto saveAs = [&editor](const QString &name, std::optional<int> answer = {}) {
        editor.sheets.answerNext<SortTaskNameSheetController>([name](SortTaskNameSheetController &sheet) {
            QCOMPARE(sheet.description(), u"A"_s);
            sheet.setEntry(name);
            sheet.accept();
        });
        if (answer)
            editor.sheets.answerAlert(*answer);
        editor.window->sorting().saveSortTask();
    };
    saveAs(u"By A"_s);
    QCOMPARE(editor.window->sorting().sortTaskNames(), QStringList{u"By A"_s});
    QVERIFY(editor.window->validateAction(u"sortTask:"_s));
    saveAs(u"By A"_s, QVSheetController::SecondButton);
    QCOMPARE(editor.sheets.alerts(), QStringList{u"Replace the sort task \"By A\"?"_s});

    editor.window->undo();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s}));
    editor.window->sorting().runSortTask(u"By A"_s);
    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r0"_s}));

    editor.sheets.answerNext<SortTasksSheetController>([](SortTasksSheetController &sheet) {
        sheet.renameTask(0, u"First"_s);
        sheet.accept();
    });
    editor.window->sorting().editSortTasks();
    QCOMPARE(editor.window->sorting().sortTaskNames(), QStringList{u"First"_s});
    const plist::Dictionary stored = editor.document->datafileSettings().sortTasksList();
    QVERIFY(!stored.value(u"First"_s).dictionary()->contains(u"SubsetSelectAll"_s));
}

void EditorSortingTest::aTaskWhoseFieldIsGoneIsRefused()
{
    EditorFixture editor({u"B"_s, u"A"_s});
    editor.settings.insert(
        u"SortTaskDict"_s,
        plist::Dictionary{{u"Old"_s, plist::Dictionary{{u"SortPrimaryFieldIdentifier"_s, u"gone"_s}}}});
    editor.open();
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    editor.window->sorting().runSortTask(u"Old"_s);
    QCOMPARE(editor.sheets.alerts(), QStringList{u"This sort task uses a field that no longer exists."_s});
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r1"_s}));
}

QTEST_MAIN(EditorSortingTest)
#include "EditorSortingTest.moc"
