// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/FindAndReplaceController.h"

#include "document/UndoHistory.h"
#include "editor/FindFixture.h"

#include <QSignalSpy>

using namespace tavrin;

class FindAndReplaceControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itFollowsTheFrontDatafile();
    void oneHitAfterTheOther();
    void whatIsNoHitStays();
    void allAtOnceAndBack();
    void replacingCanBeCancelledAndGoesByWhatIsTypedMeanwhile();
    void whereAllIsReplaced_data();
    void whereAllIsReplaced();
};

namespace {

void look(FindAndReplaceController &panel, const QString &findWhat, const QString &replaceWith)
{
    panel.setFindWhat(findWhat);
    panel.setReplaceWith(replaceWith);
}

QString contents(EditorFixture &editor)
{
    QStringList contents;
    for (const QString &identifier : editor.identifiers()) {
        const RecordData &record = editor.record(identifier);
        contents.append(record.fieldValue(u"a"_s) + u'/' + record.fieldValue(u"b"_s) + u'/'
                        + record.textString());
    }
    return contents.join(u' ');
}

} // namespace

void FindAndReplaceControllerTest::itFollowsTheFrontDatafile()
{
    Preferences preferences;
    preferences.registerDefaults(registeredDefaults());
    FindAndReplaceController panel(preferences);
    QSignalSpy beeps(&panel, &FindAndReplaceController::beep);
    look(panel, u"a"_s, {});
    QVERIFY(!panel.canFind() && panel.fieldsList().isEmpty());
    panel.findNext();
    QCOMPARE(beeps.size(), 1);
    {
        FindFixture editor;
        editor.open();
        panel.setDatafileWindowController(editor.window.get());
        QCOMPARE(panel.datafileName(), u"Test.tv3"_s);
        QStringList items;
        for (const CodedItem &item : panel.fieldsList())
            items.append(u"%1 %2"_s.arg(item.text).arg(item.code));
        QCOMPARE(items,
                 (QStringList{u"All Fields 1002"_s, u"A 0"_s, u"B 1"_s, u"Freeform Text Area 1001"_s}));
        panel.selectField(1);
        FindFixture other;
        other.fields.clear();
        other.open();
        panel.setDatafileWindowController(other.window.get());
        QCOMPARE(panel.fieldsList().constFirst().text, u"Whole Record"_s);
        QCOMPARE(panel.fieldsToSearchIn(), 1001);
    }
    QVERIFY(!panel.hasDatafile());
    panel.replaceAll();
    panel.replace();
    QCOMPARE(beeps.size(), 3);
}

void FindAndReplaceControllerTest::oneHitAfterTheOther()
{
    FindFixture editor;
    editor.entries = {{u"cat cat"_s, u"Cats, cat"_s}, {u"cat"_s, {}, {}, true}};
    editor.open();
    FindAndReplaceController panel(editor.preferences);
    QSignalSpy beeps(&panel, &FindAndReplaceController::beep);
    panel.setDatafileWindowController(editor.window.get());
    look(panel, u"cat"_s, u"catcat"_s);
    panel.findNext();
    QCOMPARE(editor.place(), u"r0 a 0+3"_s);
    QCOMPARE(editor.find.focus, u"cell"_s);
    // What was put in is not searched again.
    for (const QString &place : {u"r0 a 7+3"_s, u"r0 text 0+3"_s, u"r0 text 9+3"_s, u"r1 a 0+3"_s}) {
        panel.replaceThenFind();
        QCOMPARE(editor.place(), place);
        editor.find.editedRange.reset();
    }
    QCOMPARE(contents(editor), u"catcat catcat//catcats, catcat cat//"_s);
    QVERIFY(editor.document->isModified() && beeps.isEmpty());
    panel.replace(); // A locked record.
    QCOMPARE(beeps.size(), 1);
    QCOMPARE(editor.window->lastHitField(), -1);
    editor.window->undo();
    QCOMPARE(editor.record(u"r0"_s).fieldValue(u"a"_s), u"catcat cat"_s);
}

void FindAndReplaceControllerTest::whatIsNoHitStays()
{
    FindFixture editor;
    editor.entries = {{u"Cat"_s, u"a cat"_s}};
    editor.open();
    FindAndReplaceController panel(editor.preferences);
    QSignalSpy beeps(&panel, &FindAndReplaceController::beep);
    panel.setDatafileWindowController(editor.window.get());
    look(panel, u"cat"_s, u"dog"_s);
    panel.replace(); // Nothing was found yet.
    panel.findNext();
    editor.find.editedRange = text::Match{0, 2}; // The person selected less.
    panel.replace();
    editor.find.editedRange.reset();
    panel.setCaseSensitiveIsOn(true);
    panel.replace();
    panel.setCaseSensitiveIsOn(false);
    panel.findNext();
    editor.find.selection = {1, 3};
    panel.replace();
    QCOMPARE(beeps.size(), 4);
    QCOMPARE(contents(editor), u"Cat//a cat"_s);
    QVERIFY(!editor.document->isModified());
}

void FindAndReplaceControllerTest::allAtOnceAndBack()
{
    FindFixture editor;
    editor.entries = {{u"cat cat"_s}, {u"catalog, cat"_s, u"cat"_s}, {u"cat"_s, {}, {}, true}, {u"dog"_s}};
    editor.open(u"r3"_s);
    FindAndReplaceController panel(editor.preferences);
    panel.setDatafileWindowController(editor.window.get());
    look(panel, u"CAT"_s, u""_s);
    panel.setWholeWordIsOn(true);
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    panel.replaceAll();
    QCOMPARE(editor.sheets.alerts(), QStringList{u"Number of changes made: 4"_s});
    const QString replaced = u" // catalog, // cat// dog//"_s;
    QCOMPARE(contents(editor), replaced);
    QCOMPARE(editor.shown(), u"r0"_s);
    QCOMPARE(editor.window->undoName(), u"Replace"_s);
    editor.window->undo();
    QCOMPARE(contents(editor), u"cat cat// catalog, cat//cat cat// dog//"_s);
    QVERIFY(!editor.document->isModified() && editor.window->undoName().isNull());
    editor.window->redo();
    QCOMPARE(contents(editor), replaced);

    look(panel, u"nowhere"_s, u"x"_s);
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    panel.replaceAll();
    QCOMPARE(editor.sheets.alerts().constLast(), u"No changes were made."_s);
    QCOMPARE(contents(editor), replaced);
}

void FindAndReplaceControllerTest::replacingCanBeCancelledAndGoesByWhatIsTypedMeanwhile()
{
    FindFixture editor;
    editor.entries = {{u"cat"_s}, {u"cat"_s}};
    editor.open(u"r1"_s);
    FindAndReplaceController panel(editor.preferences);
    panel.setDatafileWindowController(editor.window.get());
    look(panel, u"cat"_s, u"dog"_s);
    editor.work.g_holds = true;
    panel.replaceAll();
    QCOMPARE(contents(editor), u"cat// cat//"_s);
    editor.work.finishNext(true);
    QCOMPARE(contents(editor), u"cat// cat//"_s);
    QCOMPARE(editor.shown(), u"r1"_s);
    QVERIFY(!editor.document->isModified() && editor.sheets.alerts().isEmpty());

    panel.replaceAll();
    editor.view.type(*editor.window, u"a cat"_s);
    editor.work.finishNext(); // It begins anew.
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    editor.work.finishNext();
    QCOMPARE(contents(editor), u"dog// dog//a dog"_s);
    QCOMPARE(editor.sheets.alerts(), QStringList{u"Number of changes made: 3"_s});
}

void FindAndReplaceControllerTest::whereAllIsReplaced_data()
{
    QTest::addColumn<qint64>("fields");
    QTest::addColumn<bool>("onlyCurrent");
    QTest::addColumn<QString>("after");
    QTest::newRow("everywhere") << qint64(1002) << false << u"x/x/x x/x/x"_s;
    QTest::newRow("in the text") << qint64(1001) << false << u"c/c/x c/c/x"_s;
    QTest::newRow("in one field") << qint64(1) << false << u"c/x/c c/x/c"_s;
    QTest::newRow("in one record") << qint64(1002) << true << u"c/c/c x/x/x"_s;
}

void FindAndReplaceControllerTest::whereAllIsReplaced()
{
    QFETCH(const qint64, fields);
    QFETCH(const bool, onlyCurrent);
    FindFixture editor;
    const EditorFixture::Entry entry{u"c"_s, u"c"_s, {}, false, true, u"c"_s};
    editor.entries = {entry, entry};
    editor.open(u"r1"_s);
    FindAndReplaceController panel(editor.preferences);
    panel.setDatafileWindowController(editor.window.get());
    look(panel, u"C"_s, u"x"_s);
    panel.selectField(fields);
    panel.setLimitToCurrentRecord(onlyCurrent);
    editor.sheets.answerAlert(QVSheetController::FirstButton);
    panel.replaceAll();
    QTEST(contents(editor), "after");
    QCOMPARE(editor.shown(), onlyCurrent ? u"r1"_s : u"r0"_s);
}

QTEST_MAIN(FindAndReplaceControllerTest)
#include "FindAndReplaceControllerTest.moc"
