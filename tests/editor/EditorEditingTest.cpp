// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "EditorFixture.h"
#include "richtext/Rtfd.h"

#include <QSignalSpy>

using namespace tavrin;

class EditorEditingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anUntouchedRecordIsNotRewritten();
    void typedTextIsStoredWhenTheRecordIsLeft();
    void valuesAreCleanedWhenTheRecordIsLeft();
    void aCellIsTakenOverBeforeTheRecordIsLeft();
    void aLockedRecordTakesNoEdits();
    void formattedTextComesAndGoes();
    void aMobileDatafileIgnoresRichText();
    void theRecordOfARowIsEdited();
    void informationAboutARecord_data();
    void informationAboutARecord();
    void revertingDropsWhatIsOnTheScreen();
};

void EditorEditingTest::anUntouchedRecordIsNotRewritten()
{
    EditorFixture editor;
    editor.entries[0] = {u"A"_s, u"kept\r\nas it is\u2028"_s, QByteArray("rtfd\0bytes", 10)};
    editor.open();
    // A text view hands line ends back in its own form: that is no edit.
    editor.view.text = u"kept\nas it is\n"_s;

    editor.window->goToNextRecord();
    editor.window->goToPreviousRecord();

    QCOMPARE(editor.record(u"r0"_s).textString(), u"kept\r\nas it is\u2028"_s);
    QCOMPARE(editor.record(u"r0"_s).textRTFD(), QByteArray("rtfd\0bytes", 10));
    QCOMPARE(editor.record(u"r0"_s).viewedBy(), u"Tester"_s);
    QVERIFY(!editor.record(u"r0"_s).needsSync());
    QVERIFY(!editor.document->isModified());
}

void EditorEditingTest::typedTextIsStoredWhenTheRecordIsLeft()
{
    EditorFixture editor;
    editor.open();
    *editor.environment.seconds = 5000;

    editor.view.type(*editor.window, u"typed"_s);
    QVERIFY(editor.document->isModified());
    editor.window->goToNextRecord();

    const RecordData &record = editor.record(u"r0"_s);
    QCOMPARE(record.textString(), u"typed"_s);
    QCOMPARE(richtext::readRichText(record.textRTFD())->text(), u"typed"_s);
    QVERIFY(record.needsSync());
    QCOMPARE(record.modifiedDate(), Date{5000});
    QCOMPARE(editor.record(u"r1"_s).textString(), QString());
    QVERIFY(!editor.record(u"r1"_s).needsSync());
}

void EditorEditingTest::valuesAreCleanedWhenTheRecordIsLeft()
{
    EditorFixture editor;
    editor.entries[0].value = u"a\tb\r\nc\u2028d\u2029e"_s;
    editor.open();

    editor.window->goToNextRecord();

    QCOMPARE(editor.valueIn(u"r0"_s), u"a b  c d e"_s);
    QVERIFY(editor.document->isModified());
}

void EditorEditingTest::aCellIsTakenOverBeforeTheRecordIsLeft()
{
    EditorFixture editor;
    editor.open();

    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"x\ty\nz"_s);
    editor.window->goToNextRecord();

    QCOMPARE(editor.valueIn(u"r0"_s), u"x y z"_s);
    QCOMPARE(editor.valueIn(u"r1"_s), u"B"_s);
}

void EditorEditingTest::aLockedRecordTakesNoEdits()
{
    EditorFixture editor;
    editor.entries[0].locked = true;
    editor.open();
    const QModelIndex value = editor.basic().index(0, 1);

    QVERIFY(!editor.view.editable);
    QVERIFY(!editor.basic().flags(value).testFlag(Qt::ItemIsEditable));
    QVERIFY(!editor.list().flags(editor.list().index(0, 0)).testFlag(Qt::ItemIsEditable));
    QVERIFY(editor.list().flags(editor.list().index(1, 0)).testFlag(Qt::ItemIsEditable));
    QVERIFY(!editor.basic().setData(value, u"changed"_s, Qt::EditRole));
    QCOMPARE(editor.valueIn(u"r0"_s), u"A"_s);

    editor.window->goToNextRecord();
    QVERIFY(editor.view.editable);
}

void EditorEditingTest::formattedTextComesAndGoes()
{
    using namespace richtext;
    AttributedText bold(u"bold\n"_s);
    bold.apply(0, 4, [](CharacterFormat &look) { look.bold = true; });
    EditorFixture editor;
    editor.entries[0] = {u"A"_s, u"bold\n"_s, writeRichText(bold)};
    editor.entries[1] = {u"B"_s, u"shadow"_s, "unreadable"};
    editor.settings.insert(u"TextFontName"_s, u"Courier"_s);
    editor.open();
    QVERIFY(editor.view.editable);
    QCOMPARE(editor.view.formatted, bold);

    bold.apply(0, 2, [](CharacterFormat &look) { look.italic = true; });
    editor.view.formatted = bold;
    editor.view.type(*editor.window, bold.text());
    editor.window->goToNextRecord();
    QCOMPARE(*readRichText(editor.record(u"r0"_s).textRTFD()), bold);
    QCOMPARE(editor.record(u"r0"_s).textString(), u"bold\n"_s);

    // What cannot be read is not overwritten.
    QCOMPARE(editor.view.text, u"shadow"_s);
    QVERIFY(!editor.view.editable);
    editor.window->goToNextRecord();
    QCOMPARE(editor.record(u"r1"_s).textRTFD(), QByteArray("unreadable"));
    QVERIFY(editor.view.editable);
    QCOMPARE(editor.view.plainLook.family, u"Courier"_s);

    // An empty text has a rich form too, and is no less empty.
    editor.view.type(*editor.window, u""_s);
    editor.window->updateCurrentRecord();
    QVERIFY(!editor.record(u"r2"_s).textRTFD().isEmpty());
    QVERIFY(editor.record(u"r2"_s).textRTFD().size() < 400);
}

void EditorEditingTest::aMobileDatafileIgnoresRichText()
{
    EditorFixture editor;
    editor.name = u"Test.tvk"_s;
    editor.entries[0] = {u"A"_s, u"plain"_s, "rich"};
    editor.open();
    QVERIFY(editor.view.editable);

    editor.view.type(*editor.window, u"typed"_s);
    editor.window->goToNextRecord();

    QCOMPARE(editor.record(u"r0"_s).textString(), u"typed"_s);
    QCOMPARE(editor.record(u"r0"_s).textRTFD(), QByteArray("rich"));
    // Save does nothing there, and says so.
    editor.window->setCanSaveChanges();
    QSignalSpy told(editor.window.get(), &EditorWindowController::statusMessage);
    editor.window->saveDocument();
    QCOMPARE(told.count(), 1);
    QVERIFY(editor.document->isModified());
}

void EditorEditingTest::theRecordOfARowIsEdited()
{
    EditorFixture editor;
    editor.settings.insert(u"Mode"_s, u"List"_s);
    editor.open();

    editor.view.typeInCell(*editor.window, editor.list(), 0, 0, u"first"_s);
    editor.window->tableController().listRowSelected(2);
    QVERIFY(editor.list().setData(editor.list().index(3, 0), u"fourth"_s, Qt::EditRole));

    QCOMPARE(editor.valueIn(u"r0"_s), u"first"_s);
    QCOMPARE(editor.shown(), u"r2"_s);
    QCOMPARE(editor.valueIn(u"r3"_s), u"fourth"_s);
    QVERIFY(editor.record(u"r3"_s).needsSync());
    QVERIFY(!editor.record(u"r2"_s).needsSync());
}

void EditorEditingTest::informationAboutARecord_data()
{
    QTest::addColumn<int>("textLength");
    QTest::addColumn<QString>("size");
    QTest::newRow("1000") << 997 << u"1000 Bytes"_s;
    QTest::newRow("1001") << 998 << u"1.001000 KB"_s;
    QTest::newRow("1000000") << 999997 << u"1000.000000 KB"_s;
    QTest::newRow("1000001") << 999998 << u"1.000001 MB"_s;
}

void EditorEditingTest::informationAboutARecord()
{
    QFETCH(const int, textLength);
    EditorFixture editor;
    editor.entries[0] = {u"A"_s, QString(textLength, u'x'), "rr"};
    editor.open();

    const QStringList info = editor.window->recordInfo();

    QCOMPARE(info.size(), 7);
    QCOMPARE(info.at(4), u"Tester"_s);
    QTEST(info.at(6), "size");
}

void EditorEditingTest::revertingDropsWhatIsOnTheScreen()
{
    EditorFixture editor;
    editor.open(u"r1"_s);
    editor.view.type(*editor.window, u"typed"_s);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"typed, too"_s);
    editor.sheets.answerAlert(1000);

    editor.window->revertDocumentToSaved();

    QCOMPARE(editor.shown(), u"r0"_s);
    QCOMPARE(editor.valueIn(u"r0"_s), u"A"_s);
    QCOMPARE(editor.valueIn(u"r1"_s), u"B"_s);
    QCOMPARE(editor.record(u"r1"_s).textString(), QString());
    QVERIFY(!editor.document->isModified());
    QVERIFY(!editor.window->validateAction(u"revertDocumentToSaved:"_s));
}

QTEST_MAIN(EditorEditingTest)
#include "EditorEditingTest.moc"
