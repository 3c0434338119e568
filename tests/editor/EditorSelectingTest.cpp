// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorSelecting.h"

#include "EditorFixture.h"
#include "editor/SelectRecordsSheetController.h"
#include "sorting/SubsetSortCriteriaData.h"

using namespace tavrin;

using Sheet = SelectRecordsSheetController;

class EditorSelectingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aConditionNarrowsTheSelection();
    void omittedRecordsJoinTheSelected();
    void aSelectionOfNothingIsExplained();
    void theSelectionGoesBackAndForth();
    void theLastSelectedRecordStays();
    void aCancelledSelectionChangesNothing();
    void theCommandsAreEnabledWhenTheyCanDoSomething();
};

namespace {

/// The whole record contains the value.
void containing(EditorFixture &editor, const QString &value)
{
    editor.sheets.answerNext<Sheet>([value](Sheet &sheet) {
        sheet.resetSelectRecordsSheet();
        sheet.setValue(0, value);
        sheet.accept();
    });
}

} // namespace

void EditorSelectingTest::aConditionNarrowsTheSelection()
{
    EditorFixture editor;
    editor.entries[0].text = u"old"_s;
    editor.entries[3].text = u"b in the text"_s;
    editor.open(u"r0"_s);
    editor.view.type(*editor.window, u"typed just now"_s);
    containing(editor, u"b"_s);

    editor.window->selecting().selectRecords();

    QCOMPARE(editor.identifiers(), (QStringList{u"r1"_s, u"r3"_s}));
    QCOMPARE(editor.shown(), u"r1"_s);
    QCOMPARE(editor.record(u"r0"_s).textString(), u"typed just now"_s);
    QCOMPARE(editor.window->selectionText(), u"2 of 4 selected"_s);
    QCOMPARE(editor.list().rowCount(), 2);
    const auto stored = editor.document->datafileSettings().criteria<SubsetSortCriteriaData>();
    QCOMPARE(stored.whereField1(), u"b"_s);
    QVERIFY(!stored.selectAllRecords());

    editor.window->selecting().selectAllRecords();
    QCOMPARE(editor.identifiers().size(), 4);
    QCOMPARE(editor.shown(), u"r1"_s);
    QVERIFY(editor.document->datafileSettings().criteria<SubsetSortCriteriaData>().selectAllRecords());
}

void EditorSelectingTest::omittedRecordsJoinTheSelected()
{
    EditorFixture editor;
    editor.entries[1].selected = false;
    editor.entries[2].selected = false;
    editor.open(u"r3"_s);
    containing(editor, u"c"_s);
    editor.window->selecting().selectFromOmitted();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r2"_s, u"r3"_s}));
    QCOMPARE(editor.shown(), u"r0"_s);
}

void EditorSelectingTest::aSelectionOfNothingIsExplained()
{
    EditorFixture editor;
    editor.open(u"r2"_s);
    containing(editor, u"nowhere"_s);
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    editor.window->selecting().selectRecords();
    QCOMPARE(editor.sheets.alerts(), QStringList{u"Selection Did Not Change"_s});
    QCOMPARE(editor.identifiers().size(), 4);
    QCOMPARE(editor.document->datafileSettings().criteria<SubsetSortCriteriaData>().whereField1(),
             u"nowhere"_s);
}

void EditorSelectingTest::theSelectionGoesBackAndForth()
{
    EditorFixture editor;
    editor.open(u"r0"_s);
    EditorSelecting &selecting = editor.window->selecting();
    containing(editor, u"b"_s);
    selecting.selectRecords();
    selecting.switchToOmitted();
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r2"_s, u"r3"_s}));
    QCOMPARE(editor.shown(), u"r0"_s);
    selecting.revertToPreviousSelection();
    QCOMPARE(editor.identifiers().size(), 4);
    selecting.revertToPreviousSelection();
    QCOMPARE(editor.identifiers().size(), 3);
}

void EditorSelectingTest::theLastSelectedRecordStays()
{
    EditorFixture editor({u"A"_s, u"B"_s});
    editor.open(u"r0"_s);
    editor.window->selecting().deselectCurrentRecord();
    QCOMPARE(editor.identifiers(), QStringList{u"r1"_s});
    QCOMPARE(editor.shown(), u"r1"_s);
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    editor.window->selecting().deselectCurrentRecord();
    QCOMPARE(editor.sheets.alerts(), QStringList{u"Selection Did Not Change"_s});
    QCOMPARE(editor.identifiers(), QStringList{u"r1"_s});
}

void EditorSelectingTest::aCancelledSelectionChangesNothing()
{
    EditorFixture editor;
    editor.open(u"r2"_s);
    containing(editor, u"b"_s);
    editor.work.g_holds = true;
    editor.window->selecting().selectRecords();
    editor.work.finishNext(true);
    QCOMPARE(editor.identifiers().size(), 4);
    QCOMPARE(editor.shown(), u"r2"_s);

    // A record that was added meanwhile is looked at, too.
    containing(editor, u"b"_s);
    editor.window->selecting().selectRecords();
    const QString added = editor.document->addRecord(u"r0"_s);
    editor.document->storeFieldValue(added, u"a"_s, u"another b"_s);
    editor.work.finishNext();
    editor.work.finishNext();
    QCOMPARE(editor.identifiers(), (QStringList{added, u"r1"_s}));
}

void EditorSelectingTest::theCommandsAreEnabledWhenTheyCanDoSomething()
{
    EditorFixture editor;
    editor.open();
    const auto enabled = [&editor](const QString &selector) {
        return editor.window->validateAction(selector);
    };
    const QStringList needOmitted{u"selectAllRecords:"_s, u"switchToOmitted:"_s, u"selectFromOmitted:"_s};
    for (const QString &selector : needOmitted)
        QVERIFY(!enabled(selector));
    QVERIFY(enabled(u"selectRecords:"_s) && enabled(u"revertToPreviousSelection:"_s));
    editor.window->selecting().deselectCurrentRecord();
    for (const QString &selector : needOmitted)
        QVERIFY(enabled(selector));
}

QTEST_MAIN(EditorSelectingTest)
#include "EditorSelectingTest.moc"
