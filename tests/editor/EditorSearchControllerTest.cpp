// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "FindFixture.h"
#include "editor/TextPlaces.h"
#include "plist/KeyedArchive.h"

#include <QSignalSpy>

using namespace tavrin;
using text::Match;

class EditorSearchControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void forwardsGoFromHitToHitAndWrap();
    void backwardsIsTheMirrorOfIt();
    void severalKeysAreColouredTogether();
    void keysHeldDown_data();
    void keysHeldDown();
    void whatIsTypedIsFound();
    void nothingFoundChangesNothing();
    void anEmptyFindBoxWalks();
    void selectModeNarrows();
    void theToggleChangesOneModeEach();
    void hitsHaveTheChosenColour();
    void theSelectionBecomesTheKey();
    void linesStoredWithTwoUnitsAreShownWithOne();
    void manyRecordsAreSearchedElsewhere();
    void thePauseCounts();
};

namespace {

/// "cat" in a field, twice in a text, in another field; the last record has none.
void fill(EditorFixture &editor)
{
    editor.entries = {
        {u"a cat"_s, u"Cat, cats"_s}, {u"x"_s}, {u""_s, u"one"_s, {}, false, true, u"cat"_s}, {}};
}

} // namespace

void EditorSearchControllerTest::forwardsGoFromHitToHitAndWrap()
{
    FindFixture editor;
    fill(editor);
    editor.open();
    const QStringList places{u"r0 a 2+3"_s, u"r0 text 0+3"_s, u"r0 text 5+3"_s, u"r2 b 0+3"_s, u"r0 a 2+3"_s};
    for (const QString &place : places)
        QCOMPARE(editor.forward(u"cat"_s), place);
    QCOMPARE(editor.find.focus, u"find box"_s);
    QCOMPARE(editor.find.shownCell, (std::pair{0, 1}));
    QCOMPARE(editor.find.beeps, 0);
    // Whoever puts the caret into the text goes on there; whoever edits a field, behind it.
    editor.find.selection = {3, 0};
    editor.window->setLastHitField(1);
    QCOMPARE(editor.forward(u"cat"_s), u"r0 text 5+3"_s);
    // In List View the hit is in the record's row.
    editor.window->setMode(u"List"_s);
    QCOMPARE(editor.forward(u"cat"_s), u"r2 b 0+3"_s);
    QCOMPARE(editor.find.shownCell, (std::pair{2, 1}));
    QCOMPARE(editor.list().data(editor.list().index(2, 1), Qt::UserRole + 1).value<QList<Match>>(),
             (QList{Match{0, 3}}));
    editor.window->goToFirstRecord();
    QCOMPARE(editor.place(), u"r0"_s);
}

void EditorSearchControllerTest::backwardsIsTheMirrorOfIt()
{
    FindFixture editor;
    fill(editor);
    editor.open(u"r2"_s);
    const QStringList places{u"r2 b 0+3"_s, u"r0 text 5+3"_s, u"r0 text 0+3"_s, u"r0 a 2+3"_s, u"r2 b 0+3"_s};
    for (const QString &place : places)
        QCOMPARE(editor.reverse(u"cat"_s), place);
}

void EditorSearchControllerTest::severalKeysAreColouredTogether()
{
    FindFixture editor;
    fill(editor);
    editor.entries[1].text = u"red cat, blue cat"_s;
    editor.open(u"r3"_s);
    QCOMPARE(editor.forward(u"cat&&blue"_s), u"r1 text 4+3 text 9+4"_s);
    QCOMPARE(editor.find.selection, (Match{9, 4}));
    QCOMPARE(editor.window->lastHitField(), 3);
    // One key in a field, another in the text.
    QCOMPARE(editor.forward(u"cat&&one"_s), u"r2 b 0+3 text 0+3"_s);
    editor.window->document().datafileSettings().setFindEntryMode(1);
    QCOMPARE(editor.forward(u"\"cat, blue\" red"_s), u"r1 text 4+9 text 0+3"_s);
}

void EditorSearchControllerTest::keysHeldDown_data()
{
    QTest::addColumn<bool>("backwards");
    QTest::addColumn<bool>("option");
    QTest::addColumn<bool>("control");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("focus");
    QTest::newRow("none") << false << false << false << u"r1 a 0+3"_s << u"find box"_s;
    QTest::newRow("option") << false << true << false << u"r2 text 0+3"_s << u"find box"_s;
    QTest::newRow("control") << false << false << true << u"r1 a 0+3"_s << u"cell"_s;
    QTest::newRow("both") << false << true << true << u"r2 text 0+3"_s << u"text"_s;
    QTest::newRow("back") << true << false << false << u"r1 a 0+3"_s << u"find box"_s;
    QTest::newRow("back option") << true << true << false << u"r0 text 0+3"_s << u"find box"_s;
    QTest::newRow("back control") << true << false << true << u"r1 a 0+3"_s << u"cell"_s;
    QTest::newRow("back both") << true << true << true << u"r0 text 0+3"_s << u"text"_s;
}

void EditorSearchControllerTest::keysHeldDown()
{
    QFETCH(const bool, backwards);
    QFETCH(const bool, option);
    QFETCH(const bool, control);
    FindFixture editor;
    editor.entries = {{u""_s, u"cat"_s}, {u"cat"_s, u"cat"_s}, {u""_s, u"cat"_s}};
    editor.open(u"r1"_s);
    const HeldKeys keys{.option = option, .control = control};
    QTEST(backwards ? editor.reverse(u"cat"_s, keys) : editor.forward(u"cat"_s, keys), "place");
    QTEST(editor.find.focus, "focus");
    if (backwards || control)
        return;
    // Once, as if Control were held down.
    editor.find.focus.clear();
    editor.search().setSimulatedControlKeyDown();
    editor.forward(u"cat"_s);
    QCOMPARE(editor.find.focus, u"text"_s);
    editor.forward(u"cat"_s);
    QCOMPARE(editor.find.focus, u"find box"_s);
}

void EditorSearchControllerTest::whatIsTypedIsFound()
{
    FindFixture editor;
    editor.open();
    editor.view.type(*editor.window, u"typed just now"_s);
    editor.view.typeInCell(*editor.window, editor.basic(), 1, 1, u"typed, too"_s);
    QCOMPARE(editor.forward(u"typed"_s), u"r0 b 0+5"_s);
    QCOMPARE(editor.forward(u"typed"_s), u"r0 text 0+5"_s);
    QVERIFY(editor.document->isModified());
}

void EditorSearchControllerTest::nothingFoundChangesNothing()
{
    FindFixture editor;
    fill(editor);
    editor.open(u"r1"_s);
    editor.find.selection = {0, 0};
    QCOMPARE(editor.forward(u"dog"_s), u"r1"_s);
    QCOMPARE(editor.forward(u"dog&&cat"_s), u"r1"_s);
    QCOMPARE(editor.reverse(u"dog"_s), u"r1"_s);
    QCOMPARE(editor.find.beeps, 3);
    QCOMPARE(editor.window->lastHitField(), -1);
    QVERIFY(!editor.document->isModified());
    editor.preferences.setObject(false, u"GeneralBeepWhenFindFails"_s);
    editor.forward(u"dog"_s);
    QCOMPARE(editor.find.beeps, 3);
    // No key at all is no failed search.
    editor.document->datafileSettings().setFindEntryMode(1);
    editor.preferences.setObject(true, u"GeneralBeepWhenFindFails"_s);
    editor.forward(u"  "_s);
    QCOMPARE(editor.find.beeps, 3);
}

void EditorSearchControllerTest::anEmptyFindBoxWalks()
{
    FindFixture editor;
    fill(editor);
    editor.open();
    QCOMPARE(editor.forward(u""_s), u"r1"_s);
    QCOMPARE(editor.reverse(u""_s), u"r0"_s);
    editor.document->datafileSettings().setFindDisplayState(1);
    QCOMPARE(editor.forward(u""_s), u"r1"_s);
}

void EditorSearchControllerTest::selectModeNarrows()
{
    FindFixture editor;
    fill(editor);
    editor.open(u"r1"_s);
    editor.search().toggleSelectMode();
    editor.forward(u"cat"_s);
    QCOMPARE(editor.identifiers(), (QStringList{u"r0"_s, u"r2"_s}));
    QCOMPARE(editor.shown(), u"r0"_s);
    editor.forward(u"nowhere"_s);
    QCOMPARE(editor.identifiers().size(), 2);
    QCOMPARE(editor.find.beeps, 1);
    editor.forward(u"one&&CAT"_s);
    QCOMPARE(editor.identifiers(), QStringList{u"r2"_s});
    editor.reverse(u"whatever"_s);
    QCOMPARE(editor.identifiers().size(), 4);
    // What changes while it is being found out is not selected by what was.
    editor.work.g_holds = true;
    editor.forward(u"cat"_s);
    editor.document->deleteRecord(u"r2"_s);
    editor.work.g_holds = false;
    editor.work.finishNext();
    QCOMPARE(editor.identifiers(), QStringList{u"r0"_s});
}

void EditorSearchControllerTest::theToggleChangesOneModeEach()
{
    FindFixture editor;
    editor.open();
    EditorSearchController &search = editor.search();
    const auto state = [&] {
        return search.forwardImage().mid(5) + u' ' + search.reverseImage().mid(5) + u' '
               + search.toggleImage().mid(15);
    };
    QCOMPARE(state(), u"findFwd findBwd Amper"_s);
    search.toggleFindButton({});
    QCOMPARE(state(), u"selectButton selectAllButton Amper"_s);
    QVERIFY(search.forwardToolTip().startsWith(u"Select records that contain text in Find Box.\n"));
    search.toggleFindButton({.option = true});
    search.toggleFindButton({.control = true});
    QCOMPARE(state(), u"selectButton selectAllButton QuotesCase"_s);
    QVERIFY(editor.document->datafileSettings().datafileSettingsDidChange());
    QVERIFY(!editor.window->validateAction(u"insertAmpersand:"_s));
    search.toggleOptionsLock();
    search.toggleFindButton({});
    search.toggleCaseSensitivity();
    QCOMPARE(state(), u"selectButton selectAllButton QuotesCase"_s);
    QCOMPARE(editor.find.beeps, 2);
    QVERIFY(!editor.window->validateAction(u"toggleEntryStyle:"_s));
    search.toggleOptionsLock();
    search.toggleEntryStyle();
    search.toggleSelectMode();
    QCOMPARE(state(), u"findFwd findBwd AmperCase"_s);
    search.insertAmpersand();
    QCOMPARE(editor.find.findText, u"&&"_s);
    QCOMPARE(editor.forward(u"b"_s), u"r0"_s);
}

void EditorSearchControllerTest::hitsHaveTheChosenColour()
{
    FindFixture editor;
    fill(editor);
    editor.open();
    editor.window->setLastHitField(1);
    editor.forward(u"cat"_s);
    QCOMPARE(editor.find.hitColor, QColor(Qt::red));
    editor.preferences.setObject(plist::archiveColor({0, 0.5, 1, 1}), u"GeneralSearchHitColor"_s);
    editor.forward(u"cat"_s);
    QCOMPARE(editor.find.hitColor.name(), u"#0080ff"_s);
    editor.preferences.setObject(QByteArray("no colour"), u"GeneralSearchHitColor"_s);
    QCOMPARE(editor.search().finding().hitColor(), QColor(Qt::red));
    QVERIFY(!editor.document->isModified());
}

void EditorSearchControllerTest::theSelectionBecomesTheKey()
{
    FindFixture editor;
    editor.open();
    editor.search().useSelectionForFind();
    QVERIFY(editor.find.findText.isEmpty());
    editor.find.selected = u"B"_s;
    editor.search().useSelectionForFind();
    QCOMPARE(editor.find.findText, u"B"_s);
    editor.search().forwardSearch({});
    QCOMPARE(editor.place(), u"r1 a 0+1"_s);
}

void EditorSearchControllerTest::linesStoredWithTwoUnitsAreShownWithOne()
{
    const QString stored = u"a\r\nb\r\ncat\nd"_s; // "a\nb\ncat\nd"
    QCOMPARE(shownPlaces(stored, {6, 3}), (Match{4, 3}));
    QCOMPARE(shownPlaces(stored, {0, 9}), (Match{0, 7}));
    for (qsizetype place = 0; place <= 9; ++place)
        QCOMPARE(shownPlaces(stored, storedPlaces(stored, {place, 0})).start, place);
    QCOMPARE(storedPlaces(stored, {4, 3}), (Match{6, 3}));
    QCOMPARE(storedPlaces(stored, {100, 3}), (Match{stored.size(), 0}));
}

void EditorSearchControllerTest::manyRecordsAreSearchedElsewhere()
{
    FindFixture editor(QStringList(10, u"x"_s));
    editor.entries[9].value = u"cat"_s;
    editor.open();
    editor.search().finding().setMostAtOnce(5);
    editor.work.g_holds = true;
    QCOMPARE(editor.forward(u"cat"_s), u"r0"_s);
    editor.document->storeText(u"r5"_s, u"cat"_s);
    editor.work.finishNext();
    // The records changed meanwhile: once more.
    editor.work.finishNext();
    QCOMPARE(editor.place(), u"r5 text 0+3"_s);
    editor.forward(u"cat"_s);
    editor.work.finishNext(true);
    QCOMPARE(editor.place(), u"r5 text 0+3"_s);
    editor.forward(u"cat"_s);
    editor.work.finishNext();
    QCOMPARE(editor.place(), u"r9 a 0+3"_s);
    QCOMPARE(editor.find.beeps, 0);
}

void EditorSearchControllerTest::thePauseCounts()
{
    FindFixture editor(QStringList(3000, u"dog"_s));
    editor.hiddenFields = {u"b"_s};
    editor.entries[7].value = u"Cat"_s;
    editor.entries[2999].text = u"cat"_s;
    editor.entries[8].other = u"cat"_s;
    editor.entries[9] = {u"cat"_s, {}, {}, false, false};
    editor.open();
    QSignalSpy counted(&editor.search(), &EditorSearchController::counted);
    editor.search().setFindText(u"c"_s);
    editor.search().setFindText(u"cat"_s);
    QVERIFY(counted.wait());
    editor.search().toggleSelectMode();
    QVERIFY(counted.wait());
    editor.document->storeText(u"r1"_s, u"a cat"_s);
    QVERIFY(counted.wait());
    editor.search().setFindText({});
    const QStringList lines{u"2 of 2,999 records"_s, u"3 of 2,999 records"_s, u"4 of 2,999 records"_s, {}};
    QCOMPARE(counted.size(), lines.size());
    for (qsizetype i = 0; i < lines.size(); ++i)
        QCOMPARE(counted.at(i).first().toString(), lines.at(i));
}

QTEST_MAIN(EditorSearchControllerTest)
#include "EditorSearchControllerTest.moc"
