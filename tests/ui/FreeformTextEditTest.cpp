// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformTextEdit.h"

#include "editor/TextChanging.h"
#include "editor/TextLists.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

class FreeformTextEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unusualCharactersComeBackUnchanged();
    void loadingIsNoEditAndUndoingIsNone();
    void pastingBringsFormatsWhereThereMayBeAny();
    void imagesComeInWhereTheyMay();
    void whatIsTypedBehindALinkIsNoPartOfIt();
    void keysWorkInListsAndTables();
    void everyReturnMakesAParagraphThatLooksTheSame();
    void theScaleChangesNoSize();

private:
    /// With what only the view itself may call.
    class Text : public FreeformTextEdit
    {
    public:
        using FreeformTextEdit::createMimeDataFromSelection;
        using FreeformTextEdit::insertFromMimeData;
    };
};

void FreeformTextEditTest::unusualCharactersComeBackUnchanged()
{
    FreeformTextEdit text;
    const QString unusual = u"a\u00a0b\nc\u2028d\te\n\n  \U0001F600\u0301 end\n"_s;

    text.setText(AttributedText(unusual), {});

    QCOMPARE(text.plainCharacters(), unusual);
}

void FreeformTextEditTest::loadingIsNoEditAndUndoingIsNone()
{
    FreeformTextEdit text;
    QSignalSpy edited(&text, &FreeformTextEdit::edited);

    text.setText(AttributedText(u"first http://a.example"_s), {});
    text.decorate([](QTextDocument &document) {
        changeLook(document, 6, 22, [](CharacterFormat &look) { look.link = u"http://a.example"_s; });
    });
    QCOMPARE(edited.count(), 0);
    QVERIFY(!text.document()->isUndoAvailable());
    QVERIFY(!text.document()->isModified());

    QTest::keyClicks(&text, u"x"_s);
    QCOMPARE(edited.count(), 1);
    QVERIFY(text.document()->isModified());

    text.undo();
    QCOMPARE(text.plainCharacters(), u"first http://a.example"_s);
    QVERIFY(!text.document()->isModified());
}

void FreeformTextEditTest::pastingBringsFormatsWhereThereMayBeAny()
{
    AttributedText rich(u"bold\n\tplain"_s);
    rich.apply(0, 4, [](CharacterFormat &look) { look.bold = true; });
    Text source;
    source.setText(rich, {});
    source.selectAll();
    const std::unique_ptr<QMimeData> data(source.createMimeDataFromSelection());
    QCOMPARE(data->text(), rich.text());
    QVERIFY(data->data(u"text/rtf"_s).startsWith("{\\rtf1"));
    QVERIFY(data->html().contains(u"bold"_s));

    Text text;
    text.insertFromMimeData(data.get());
    QCOMPARE(text.formattedText(), rich);

    text.setText({}, {});
    QMimeData html;
    html.setHtml(u"<b>bold</b>"_s);
    html.setText(u"bold"_s);
    text.insertFromMimeData(&html);
    QVERIFY(text.formattedText().characterFormatAt(0).bold);

    text.setText({}, {});
    text.setMayHaveFormats(false, false);
    text.insertFromMimeData(&html);
    QCOMPARE(text.formattedText(), AttributedText(u"bold"_s));
}

void FreeformTextEditTest::imagesComeInWhereTheyMay()
{
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QMimeData data;
    data.setImageData(image);
    Text text;
    QSignalSpy refused(&text, &FreeformTextEdit::refused);

    text.insertFromMimeData(&data);
    const AttributedText held = text.formattedText();
    QCOMPARE(held.text(), QString(QChar(attachmentCharacter)));
    QCOMPARE(QImage::fromData(held.characterFormatAt(0).attachment->bytes).size(), image.size());
    QTest::keyClicks(&text, u"behind"_s);
    QVERIFY(text.formattedText().characterFormatAt(0).attachment);

    text.setText({}, {});
    for (const bool formats : {false, true}) {
        text.setMayHaveFormats(formats, false);
        text.insertFromMimeData(&data);
        QCOMPARE(text.plainCharacters(), QString());
    }
    QCOMPARE(refused.count(), 2);
}

void FreeformTextEditTest::whatIsTypedBehindALinkIsNoPartOfIt()
{
    AttributedText linked(u"ab"_s);
    linked.apply(0, 2, [](CharacterFormat &look) { look.link = u"http://a.example"_s; });
    FreeformTextEdit text;
    text.setText(linked, {});

    QTest::keyClick(&text, Qt::Key_Right);
    QTest::keyClicks(&text, u"x"_s);
    QTest::keyClick(&text, Qt::Key_End);
    QTest::keyClicks(&text, u"y"_s);

    const AttributedText typed = text.formattedText();
    QCOMPARE(typed.text(), u"axby"_s);
    QCOMPARE(typed.characterFormatAt(1).link, u"http://a.example"_s);
    QCOMPARE(typed.characterFormatAt(3).link, QString());
}

void FreeformTextEditTest::keysWorkInListsAndTables()
{
    FreeformTextEdit text;
    text.setText(AttributedText(u"one"_s), {});
    text.moveCursor(QTextCursor::End);
    QTextCursor cursor = text.textCursor();
    setList(cursor, u"{decimal}."_s);
    text.moveCursor(QTextCursor::End);
    QTest::keyClick(&text, Qt::Key_Return);
    QTest::keyClicks(&text, u"two"_s);
    QTest::keyClick(&text, Qt::Key_Return);
    QTest::keyClick(&text, Qt::Key_Return);
    QTest::keyClicks(&text, u"end"_s);
    QCOMPARE(text.plainCharacters(), u"\t1.\tone\n\t2.\ttwo\nend"_s);

    AttributedText table(u"a\nb\n"_s);
    for (const int column : {0, 1})
        table.applyToParagraphs(2 * column, 1, [column](ParagraphFormat &format) {
            format.cell = {1, 0, column, {}};
        });
    text.setText(table, {});
    QTest::keyClick(&text, Qt::Key_Right);
    for (const QString &typed : {u"1"_s, u"2"_s, u"3"_s}) {
        QTest::keyClicks(&text, typed);
        QTest::keyClick(&text, Qt::Key_Tab);
    }
    QCOMPARE(text.plainCharacters(), u"1a\n2b\n3\n\n"_s);
    QCOMPARE(text.formattedText().paragraphFormatAt(6).cell.row, 1);
}

void FreeformTextEditTest::everyReturnMakesAParagraphThatLooksTheSame()
{
    CharacterFormat look;
    look.family = u"Courier"_s;
    look.size = 18'000;
    look.bold = true;
    FreeformTextEdit text;
    text.setText(AttributedText(u"p1"_s, look), look);
    text.moveCursor(QTextCursor::End);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Return})
        QTest::keyClick(&text, key);
    QTest::keyClicks(&text, u"p2"_s);

    QCOMPARE(text.formattedText(), AttributedText(u"p1\n\n\np2"_s, look));
    text.undo();
    QVERIFY(text.plainCharacters().startsWith(u"p1"));
}

void FreeformTextEditTest::theScaleChangesNoSize()
{
    FreeformTextEdit text;
    text.resize(400, 300);
    text.show();
    const AttributedText stored(u"some text"_s);
    text.setText(stored, {});
    QSignalSpy edited(&text, &FreeformTextEdit::edited);
    const double height = text.document()->documentLayout()->documentSize().height();

    text.setTextScale(2);

    QVERIFY(text.document()->documentLayout()->documentSize().height() > 1.5 * height);
    QCOMPARE(text.formattedText(), stored);
    QVERIFY(edited.isEmpty() && !text.document()->isModified() && !text.document()->isUndoAvailable());
}

QTEST_MAIN(FreeformTextEditTest)
#include "FreeformTextEditTest.moc"
