// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorTextCommands.h"

#include "document/UndoHistory.h"
#include "editor/DefaultFontWork.h"
#include "editor/EditorFixture.h"
#include "editor/SpellingDictionary.h"
#include "editor/TextBridge.h"
#include "richtext/Rtfd.h"

#include <QTextBlock>
#include <QTextDocument>

using namespace tavrin;
using namespace Qt::StringLiterals;

class EditorTextCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stampsAreWrittenAsPeopleOfThePlaceWriteThem_data();
    void stampsAreWrittenAsPeopleOfThePlaceWriteThem();
    void blankLinesGo_data();
    void blankLinesGo();
    void blankLinesBesideTablesStay();
    void theHighlighterToggles();
    void theDefaultFontKeepsEverythingElse();
    void allSelectedRecordsGetTheDefaultFontAndBack();
    void textScaleFollowsItsTags();
    void addressesAndNumbersAreNotSpelt();
    void misspeltWordsAreFoundAndMended();
};

namespace {

/// A view whose text is a real document.
struct TextView : FakeEditorView
{
    QTextCursor freeformCursor() const override { return cursor; }
    void insertTyped(const QString &stamp) override { typed += stamp; }

    QTextDocument content;
    QTextCursor cursor{&content};
    QString typed;
};

struct TextFixture : EditorFixture
{
    TextFixture()
    {
        open();
        window->attachView(textView);
        textView.editable = true;
    }
    EditorTextCommands &commands() const { return window->textCommands(); }

    TextView textView;
};

QByteArray styledText()
{
    richtext::AttributedText text(u"Plain bold linked"_s);
    text.apply(6, 4, [](richtext::CharacterFormat &format) { format.bold = true; });
    text.apply(11, 6, [](richtext::CharacterFormat &format) { format.link = u"https://example.com/"_s; });
    return richtext::writeRichText(text);
}

} // namespace

void EditorTextCommandsTest::stampsAreWrittenAsPeopleOfThePlaceWriteThem_data()
{
    QTest::addColumn<StampFormat>("format");
    QTest::addColumn<StampTime>("time");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("stamp");
    QTest::newRow("iso") << StampFormat::Iso << StampTime::Seconds << u"de_DE"_s << u"2026-03-05 14:07:09"_s;
    QTest::newRow("short") << StampFormat::Short << StampTime::None << u"de_DE"_s << u"05.03.26"_s;
    QTest::newRow("medium") << StampFormat::Medium << StampTime::None << u"en_US"_s << u"Mar 5, 2026"_s;
    QTest::newRow("long") << StampFormat::Long << StampTime::Minutes << u"de_DE"_s << u"5. März 2026 14:07"_s;
    QTest::newRow("full") << StampFormat::Full << StampTime::None << u"en_US"_s
                          << u"Thursday, March 5, 2026"_s;
}

void EditorTextCommandsTest::stampsAreWrittenAsPeopleOfThePlaceWriteThem()
{
    QFETCH(StampFormat, format);
    QFETCH(StampTime, time);
    QFETCH(QString, language);
    const QDateTime instant(QDate(2026, 3, 5), QTime(14, 7, 9));
    QTEST(dateTimeStamp(instant, format, time, QLocale(language)), "stamp");
}

void EditorTextCommandsTest::blankLinesGo_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("between") << u"a\n\n \t\nb"_s << u"a\nb"_s;
    QTest::newRow("at both ends") << u"\n\na\n\n"_s << u"a"_s;
    QTest::newRow("nothing else") << u"\n \n"_s << QString();
    QTest::newRow("none") << u"a\nb"_s << u"a\nb"_s;
}

void EditorTextCommandsTest::blankLinesGo()
{
    QFETCH(QString, before);
    TextFixture editor;
    editor.textView.content.setPlainText(before);
    editor.commands().removeBlankLines();
    QTEST(editor.textView.content.toPlainText().trimmed(), "after");
    // One step takes it all back.
    while (editor.textView.content.toPlainText() != before && editor.textView.content.isUndoAvailable())
        editor.textView.content.undo();
    QCOMPARE(editor.textView.content.toPlainText(), before);
}

void EditorTextCommandsTest::blankLinesBesideTablesStay()
{
    using namespace richtext;
    AttributedText text(u"\n\na\nb\n\n\nend"_s);
    for (const int column : {0, 1})
        text.applyToParagraphs(2 + 2 * column, 1, [column](ParagraphFormat &format) {
            format.cell = {1, 0, column, {}};
        });
    TextFixture editor;
    for (const QString &ending : {u"end"_s, QString()}) {
        setText(editor.textView.content, text);
        editor.textView.cursor = QTextCursor(&editor.textView.content);
        editor.commands().removeBlankLines();
        QCOMPARE(plainTextOf(editor.textView.content), u"\na\nb\n"_s + ending);
        text.remove(text.size() - ending.size(), ending.size());
    }
    setText(editor.textView.content, text.substring(2, 5));
    editor.textView.cursor = QTextCursor(&editor.textView.content);
    editor.commands().removeBlankLines();
    QCOMPARE(plainTextOf(editor.textView.content), u"a\nb\n"_s);
}

void EditorTextCommandsTest::theHighlighterToggles()
{
    TextFixture editor;
    editor.textView.content.setPlainText(u"one two"_s);
    editor.textView.cursor.setPosition(5);
    const auto mark = [&] {
        QTextCursor look(&editor.textView.content);
        look.setPosition(5);
        return look.charFormat().background();
    };
    editor.commands().toggleHighlighter();
    QCOMPARE(mark().color(), editor.commands().highlighterColor());
    // It is in the text that is stored, and only on the word.
    const richtext::AttributedText marked = textOf(editor.textView.content);
    QVERIFY(marked.characterFormatAt(4).background && !marked.characterFormatAt(3).background);
    editor.commands().toggleHighlighter();
    QCOMPARE(mark().style(), Qt::NoBrush);

    editor.record(u"r0"_s).setRecordLocked(true);
    editor.commands().toggleHighlighter();
    QCOMPARE(mark().style(), Qt::NoBrush);
}

void EditorTextCommandsTest::theDefaultFontKeepsEverythingElse()
{
    const QByteArray changed = textInFont(styledText(), {u"Courier"_s, 17});
    const auto text = richtext::readRichText(changed);
    QVERIFY(text);
    QCOMPARE(text->text(), u"Plain bold linked"_s);
    const richtext::CharacterFormat &bold = text->characterFormatAt(7);
    QCOMPARE(bold.family, u"Courier"_s);
    QCOMPARE(bold.size, 17000);
    QVERIFY(bold.bold);
    QCOMPARE(text->characterFormatAt(12).link, u"https://example.com/"_s);
    QCOMPARE(textInFont("not a text", {u"Courier"_s, 17}), QByteArray());
}

void EditorTextCommandsTest::allSelectedRecordsGetTheDefaultFontAndBack()
{
    EditorFixture editor;
    const QByteArray before = styledText();
    for (auto &entry : editor.entries) {
        entry.rtfd = before;
        entry.text = u"Plain bold linked"_s;
    }
    editor.entries[1].locked = true;
    editor.entries[2].selected = false;
    editor.settings.insert(u"TextFontName"_s, u"Courier"_s);
    editor.open();
    editor.sheets.answerAlert(QVSheetController::FirstButton);

    editor.window->textCommands().changeAllToDefaultFont();

    QCOMPARE(editor.sheets.alerts(), QStringList{u"Change all selected records to the default font?"_s});
    QVERIFY(editor.record(u"r0"_s).textRTFD() != before);
    QCOMPARE(editor.record(u"r1"_s).textRTFD(), before);
    QCOMPARE(editor.record(u"r2"_s).textRTFD(), before);
    QVERIFY(editor.document->isModified());
    editor.window->undo();
    QCOMPARE(editor.record(u"r0"_s).textRTFD(), before);

    // Nor is anything pasted there.
    QVERIFY(editor.window->validateAction(u"pasteAsPlainText:"_s));
    editor.window->goToNextRecord();
    editor.view.setFocus(EditorFocus::FreeformText);
    QVERIFY(!editor.window->validateAction(u"pasteAsPlainText:"_s));
}

void EditorTextCommandsTest::textScaleFollowsItsTags()
{
    EditorFixture editor;
    editor.settings.insert(u"TextColumnWidth"_s, 200.0);
    editor.open();
    EditorTableController &tables = editor.window->tableController();
    const double size = tables.fieldsFont().pointSizeF();
    QCOMPARE(editor.window->textScaleTag(), 4);

    editor.window->setTextScale(7);
    QCOMPARE(tables.fieldsFont().pointSizeF(), 2 * size);
    QCOMPARE(tables.columnWidth(2), 400.0);
    // The stored width is that at the usual size.
    tables.columnDidResize(2, 300);
    QCOMPARE(static_cast<double>(editor.document->datafileSettings().textColumnWidth()), 150.0);
    editor.window->setTextScale(99);
    QCOMPARE(editor.window->textScale(), 4.0);
    editor.window->setTextScale(-1);
    QCOMPARE(editor.window->textScale(), 0.25);
}

void EditorTextCommandsTest::addressesAndNumbersAreNotSpelt()
{
    const QString text = u"See www.example.com, ann@example.com or (don't) R2D2 l’été. I"_s;
    QStringList words;
    for (const SpellingWord &word : wordsToSpell(text))
        words.append(text.mid(word.start, word.length));
    QCOMPARE(words, (QStringList{u"See"_s, u"or"_s, u"don't"_s, u"l’été"_s}));
}

void EditorTextCommandsTest::misspeltWordsAreFoundAndMended()
{
    const QString path =
        SpellingDictionary::pathFor({u"xx-YY"_s, u"en-US"_s}, SpellingDictionary::systemFolders());
    if (path.isEmpty())
        QSKIP("there is no English dictionary here");
    const auto dictionary = SpellingDictionary::load(path);
    QVERIFY(dictionary);
    QVERIFY(dictionary->isCorrect(u"receive"_s));
    QVERIFY(dictionary->isCorrect(u"don’t"_s));
    QVERIFY(!dictionary->isCorrect(u"recieve"_s));
    QVERIFY(dictionary->suggestions(u"recieve"_s).contains(u"receive"_s));
    QVERIFY(!dictionary->isCorrect(u"Tavrin"_s));
    dictionary->add(u"Tavrin"_s);
    QVERIFY(dictionary->isCorrect(u"Tavrin"_s));
    QVERIFY(!SpellingDictionary::load(path.chopped(4) + u"nowhere.dic"_s));
}

QTEST_MAIN(EditorTextCommandsTest)
#include "EditorTextCommandsTest.moc"
