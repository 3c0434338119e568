// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "EditorFixture.h"
#include "editor/GotoRecordSheetController.h"

using namespace tavrin;

class EditorNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCommandsGoWhereTheySay_data();
    void theCommandsGoWhereTheySay();
    void omittedRecordsAreNotVisited();
    void aSingleRecordIsNeverLeft();
    void backAndForwardFollowTheHistory();
    void anEmptyRecordVanishesWhenItIsLeft_data();
    void anEmptyRecordVanishesWhenItIsLeft();
    void whatIsNotShownKeepsARecordFromVanishing_data();
    void whatIsNotShownKeepsARecordFromVanishing();
    void goingToANumber();
    void goingToATitle();
    void addingShowsANewRecordOnce();
    void addingToAnEmptyDatafile();
    void deletingAsksAndShowsTheRecordThatFollowed_data();
    void deletingAsksAndShowsTheRecordThatFollowed();
    void deletingTheLastSelectedRecordSelectsAll();
};

namespace {

using Command = void (EditorWindowController::*)();

} // namespace

void EditorNavigationTest::theCommandsGoWhereTheySay_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("next") << &EditorWindowController::goToNextRecord << u"r1"_s << u"r2"_s;
    QTest::newRow("next wraps") << &EditorWindowController::goToNextRecord << u"r3"_s << u"r0"_s;
    QTest::newRow("previous") << &EditorWindowController::goToPreviousRecord << u"r1"_s << u"r0"_s;
    QTest::newRow("previous wraps") << &EditorWindowController::goToPreviousRecord << u"r0"_s << u"r3"_s;
    QTest::newRow("first") << &EditorWindowController::goToFirstRecord << u"r2"_s << u"r0"_s;
    QTest::newRow("last") << &EditorWindowController::goToLastRecord << u"r1"_s << u"r3"_s;
}

void EditorNavigationTest::theCommandsGoWhereTheySay()
{
    QFETCH(const Command, command);
    QFETCH(const QString, from);
    EditorFixture editor;
    editor.entries[1].text = u"the text"_s;
    editor.open(from);

    (editor.window.get()->*command)();

    QTEST(editor.shown(), "to");
    QCOMPARE(editor.view.text, editor.window->currentRecord()->textString());
    QVERIFY(!editor.document->isModified());
}

void EditorNavigationTest::omittedRecordsAreNotVisited()
{
    EditorFixture editor;
    editor.entries[1].selected = false;
    editor.open();

    editor.window->goToNextRecord();

    QCOMPARE(editor.shown(), u"r2"_s);
    QCOMPARE(editor.window->recordNumberText(), u"#2"_s);
    QCOMPARE(editor.window->selectionText(), u"3 of 4 selected"_s);
}

void EditorNavigationTest::aSingleRecordIsNeverLeft()
{
    EditorFixture editor({u""_s});
    editor.open();

    for (const Command command : {&EditorWindowController::goToFirstRecord,
                                  &EditorWindowController::goToLastRecord,
                                  &EditorWindowController::goToNextRecord,
                                  &EditorWindowController::goToPreviousRecord,
                                  &EditorWindowController::goToRecordNumber})
        (editor.window.get()->*command)();

    QCOMPARE(editor.identifiers(), QStringList(u"r0"_s));
    QVERIFY(!editor.window->validateAction(u"deleteRecord:"_s));
}

void EditorNavigationTest::backAndForwardFollowTheHistory()
{
    EditorFixture editor;
    editor.open();
    QVERIFY(!editor.window->validateAction(u"goBackOneRecord:"_s));
    editor.window->goToNextRecord();
    editor.window->goToNextRecord();

    editor.window->goBackOneRecord();
    editor.window->goBackOneRecord();
    QCOMPARE(editor.shown(), u"r0"_s);
    QVERIFY(!editor.window->validateAction(u"goBackOneRecord:"_s));
    QVERIFY(editor.window->validateAction(u"goForwardOneRecord:"_s));
    editor.window->goToLastRecord();

    QCOMPARE(editor.window->viewedRecordList().identifiers(), QStringList({u"r0"_s, u"r3"_s}));
    QVERIFY(!editor.window->validateAction(u"goForwardOneRecord:"_s));
    editor.window->goBackOneRecord();
    editor.window->goForwardOneRecord();
    QCOMPARE(editor.shown(), u"r3"_s);
}

void EditorNavigationTest::anEmptyRecordVanishesWhenItIsLeft_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("from");
    QTest::addColumn<Command>("command");
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<QString>("shown");
    const QStringList emptySecond{u"A"_s, u""_s, u"C"_s, u"D"_s};
    const QStringList all{u"r0"_s, u"r1"_s, u"r2"_s, u"r3"_s};
    const QStringList withoutSecond{u"r0"_s, u"r2"_s, u"r3"_s};
    QTest::newRow("to the next") << emptySecond << u"r1"_s << &EditorWindowController::goToNextRecord
                                 << withoutSecond << u"r2"_s;
    QTest::newRow("to the previous, the one that followed is shown")
        << emptySecond << u"r1"_s << &EditorWindowController::goToPreviousRecord << withoutSecond << u"r2"_s;
    QTest::newRow("the last one") << QStringList{u"A"_s, u"B"_s, u""_s} << u"r2"_s
                                  << &EditorWindowController::goToPreviousRecord
                                  << QStringList{u"r0"_s, u"r1"_s} << u"r0"_s;
    QTest::newRow("going to an empty first record moves on")
        << QStringList{u""_s, u"B"_s, u"C"_s} << u"r2"_s << &EditorWindowController::goToFirstRecord
        << QStringList{u"r1"_s, u"r2"_s} << u"r1"_s;
    QTest::newRow("arriving does not delete")
        << emptySecond << u"r0"_s << &EditorWindowController::goToNextRecord << all << u"r1"_s;
}

void EditorNavigationTest::anEmptyRecordVanishesWhenItIsLeft()
{
    QFETCH(const QStringList, values);
    QFETCH(const QString, from);
    QFETCH(const Command, command);
    EditorFixture editor(values);
    editor.open(from);

    (editor.window.get()->*command)();

    QTEST(editor.identifiers(), "left");
    QTEST(editor.shown(), "shown");
    QCOMPARE(editor.document->isModified(), editor.identifiers().size() < values.size());
}

void EditorNavigationTest::whatIsNotShownKeepsARecordFromVanishing_data()
{
    QTest::addColumn<EditorFixture::Entry>("entry");
    QTest::addColumn<bool>("vanishes");
    QTest::newRow("an empty text's rich form") << EditorFixture::Entry{{}, {}, QByteArray(380, 'x')} << true;
    QTest::newRow("an image") << EditorFixture::Entry{{}, {}, QByteArray(9000, 'x')} << false;
    QTest::newRow("a value of a field that is gone")
        << EditorFixture::Entry{{}, {}, {}, false, true, u"kept"_s} << false;
}

void EditorNavigationTest::whatIsNotShownKeepsARecordFromVanishing()
{
    QFETCH(const EditorFixture::Entry, entry);
    QFETCH(const bool, vanishes);
    EditorFixture editor;
    editor.fields = {u"a"_s};
    editor.entries[1] = entry;
    editor.open(u"r1"_s);

    editor.window->goToNextRecord();

    QCOMPARE(!editor.identifiers().contains(u"r1"_s), vanishes);
    QCOMPARE(editor.shown(), u"r2"_s);
}

void EditorNavigationTest::goingToANumber()
{
    EditorFixture editor({u"A"_s, u""_s, u"C"_s, u"D"_s});
    editor.open(u"r1"_s);
    const auto answer = [&editor](const QString &number) {
        editor.sheets.answerNext<GotoRecordSheetController>([number](auto &sheet) {
            QCOMPARE(sheet.maximum(), 4);
            sheet.setEntry(number);
            sheet.accept();
        });
        editor.window->goToRecordNumber();
    };

    answer(u"2"_s);
    QCOMPARE(editor.shown(), u"r1"_s);
    QCOMPARE(editor.identifiers().size(), 4);

    answer(u"4"_s);
    QCOMPARE(editor.identifiers(), QStringList({u"r0"_s, u"r2"_s, u"r3"_s}));
}

void EditorNavigationTest::goingToATitle()
{
    EditorFixture editor({u"other"_s, u"in the beginning"_s, u"\u00c9t\u00e9"_s, u"begins"_s, u"begins"_s});
    editor.settings.insert(u"TitleField"_s, u"a"_s);
    editor.open();
    GotoRecordSheetController *asked = nullptr;
    editor.sheets.answerNext<GotoRecordSheetController>([&asked](auto &sheet) { asked = &sheet; });
    editor.window->goToRecordNumber();

    const auto enter = [&asked](const QString &start) {
        asked->setEntry(start);
        asked->accept();
    };
    enter(u"nowhere"_s);
    QVERIFY(!asked->isAcceptable());
    QTRY_COMPARE(asked->problem(), u"In no selected record “A” begins so."_s);
    // What was looked for first no longer counts.
    enter(u"BEGIN"_s);
    enter(u"\u00e9t"_s);
    QTRY_VERIFY(asked->isFinished());
    QCOMPARE(editor.shown(), u"r2"_s);

    editor.sheets.answerNext<GotoRecordSheetController>([&asked](auto &sheet) { asked = &sheet; });
    editor.window->goToRecordNumber();
    enter(u"BEGIN"_s);
    QTRY_COMPARE(editor.shown(), u"r3"_s);
}

void EditorNavigationTest::addingShowsANewRecordOnce()
{
    EditorFixture editor({u"A"_s, u"B"_s});
    editor.open();

    editor.window->addRecord();
    const QString added = editor.shown();
    editor.window->addRecord();

    QCOMPARE(editor.identifiers(), QStringList({u"r0"_s, added, u"r1"_s}));
    QCOMPARE(editor.shown(), added);
    QCOMPARE(editor.view.editedCell, std::pair(0, 1));
    QVERIFY(editor.document->isModified());
    editor.window->goBackOneRecord();
    QCOMPARE(editor.shown(), u"r0"_s);
}

void EditorNavigationTest::addingToAnEmptyDatafile()
{
    EditorFixture editor(QStringList{});
    editor.open();
    QCOMPARE(editor.shown(), u"none"_s);
    QVERIFY(!editor.view.editable);

    editor.window->addRecord();

    QCOMPARE(editor.identifiers(), QStringList(editor.shown()));
    QVERIFY(editor.view.editable);
}

void EditorNavigationTest::deletingAsksAndShowsTheRecordThatFollowed_data()
{
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("count");
    QTest::newRow("one in the middle") << u"r1"_s << 1000 << u"r2"_s << 3;
    QTest::newRow("the last") << u"r3"_s << 1000 << u"r0"_s << 3;
    QTest::newRow("cancelled") << u"r1"_s << 1001 << u"r1"_s << 4;
}

void EditorNavigationTest::deletingAsksAndShowsTheRecordThatFollowed()
{
    QFETCH(const QString, deleted);
    QFETCH(const int, answer);
    QFETCH(const int, count);
    EditorFixture editor;
    editor.open(deleted);
    editor.view.type(*editor.window, u"typed just before"_s);
    editor.sheets.answerAlert(answer);

    editor.window->deleteRecord();

    QTEST(editor.shown(), "shown");
    QCOMPARE(editor.identifiers().size(), count);
    QCOMPARE(editor.list().rowCount(), count);
    QCOMPARE(editor.sheets.alerts(), QStringList(u"Are you sure you want to delete the current record?"_s));
    if (answer == 1000) {
        editor.window->updateCurrentRecord();
        QCOMPARE(editor.window->currentRecord()->textString(), QString());
    }
}

void EditorNavigationTest::deletingTheLastSelectedRecordSelectsAll()
{
    EditorFixture editor;
    for (const int omitted : {0, 1, 3})
        editor.entries[omitted].selected = false;
    editor.open();
    QCOMPARE(editor.shown(), u"r2"_s);
    editor.sheets.answerAlert(1000);

    editor.window->deleteRecord();

    QCOMPARE(editor.identifiers(), QStringList({u"r0"_s, u"r1"_s, u"r3"_s}));
    QCOMPARE(editor.shown(), u"r0"_s);
}

QTEST_MAIN(EditorNavigationTest)
#include "EditorNavigationTest.moc"
