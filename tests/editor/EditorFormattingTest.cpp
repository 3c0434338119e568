// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorFormatting.h"

#include "EditorFixture.h"
#include "editor/EditorLinks.h"
#include "editor/FileSheetController.h"
#include "editor/LookSheetControllers.h"
#include "editor/TextSheetController.h"
#include "richtext/Rtfd.h"
#include "support/DocumentEditorView.h"

#include <QUrl>

using namespace tavrin;
using namespace tavrin::richtext;

class EditorFormattingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void commandsNeedTheTextAndFormats();
    void statesFollowTheSelection();
    void whatIsFormattedIsStored();
    void choosersChangeWhatWasChosenAlone();
    void stylesAndRulersAreCarriedOver();
    void tablesGrowAndShrink();
    void filesAreLinkedAtTheCaretOrInTheCell();

private:
    AttributedText text() { return g_view->formattedFreeformText(); }
    EditorFormatting &formatting() { return g_editor->window->formatting(); }
    void open();

    std::unique_ptr<EditorFixture> g_editor;
    std::unique_ptr<DocumentEditorView> g_view;
};

void EditorFormattingTest::init()
{
    g_editor = std::make_unique<EditorFixture>();
    g_view = std::make_unique<DocumentEditorView>();
    g_editor->entries[0].text = u"one two\nthree"_s;
}

void EditorFormattingTest::cleanup()
{
    g_editor.reset();
    g_view.reset();
}

void EditorFormattingTest::open()
{
    g_editor->open();
    g_editor->window->attachView(*g_view);
    g_editor->window->loadCurrentRecord();
}

void EditorFormattingTest::commandsNeedTheTextAndFormats()
{
    const QStringList selectors{u"orderFrontFontPanel:"_s,
                                u"orderFrontSpacingPanel:"_s,
                                u"addFontTrait:bold"_s,
                                u"underline:"_s,
                                u"modifyFont:"_s,
                                u"useAllLigatures:"_s,
                                u"tightenKerning:"_s,
                                u"superscript:"_s,
                                u"lowerBaseline:"_s,
                                u"alignJustified:"_s,
                                u"orderFrontListPanel:"_s,
                                u"orderFrontTablePanel:"_s,
                                u"orderFrontLinkPanel:"_s};
    const auto allowed = [&] {
        return std::ranges::count_if(selectors, [this](const QString &selector) {
            return g_editor->window->validateAction(selector);
        });
    };
    open();
    QCOMPARE(allowed(), selectors.size());
    QVERIFY(!g_editor->window->validateAction(u"pasteFTAStyle:"_s));
    QVERIFY(!g_editor->window->validateAction(u"removeLink:"_s));
    g_view->focused = EditorFocus::Table;
    QCOMPARE(allowed(), 0);

    init();
    g_editor->name = u"Test.tvk"_s;
    open();
    QCOMPARE(allowed(), 0);
    g_view->select(0, 3);
    formatting().toggleBold();
    QVERIFY(!text().characterFormatAt(0).bold);
}

void EditorFormattingTest::statesFollowTheSelection()
{
    open();
    g_view->select(0, 3);
    formatting().toggleBold();
    formatting().setListMarker(u"{disc}"_s);
    QCOMPARE(text().text(), u"\t\u2022\tone two\nthree"_s);
    QCOMPARE(formatting().isOn(u"orderFrontListPanel:disc"_s), std::optional(true));
    QCOMPARE(formatting().isOn(u"orderFrontListPanel:none"_s), std::optional(false));
    QCOMPARE(formatting().isOn(u"orderFrontFontPanel:"_s), std::optional<bool>());

    g_view->select(3, 6);
    QCOMPARE(formatting().isOn(u"addFontTrait:bold"_s), std::optional(true));
    g_view->select(3, 8);
    QCOMPARE(formatting().isOn(u"addFontTrait:bold"_s), std::optional(false));
    formatting().toggleBold();
    QCOMPARE(formatting().isOn(u"addFontTrait:bold"_s), std::optional(true));
    formatting().setScript(Script::Super);
    formatting().moveBaseline(3);
    QCOMPARE(formatting().isOn(u"superscript:"_s), std::optional(true));
    formatting().unscript();
    QCOMPARE(text().characterFormatAt(3).baseline, 0);
    QCOMPARE(formatting().isOn(u"superscript:"_s), std::optional(false));
}

void EditorFormattingTest::whatIsFormattedIsStored()
{
    open();
    g_view->select(0, 3);
    formatting().toggleItalic();
    g_editor->window->updateCurrentRecord();
    QVERIFY(readRichText(g_editor->record(u"r0"_s).textRTFD())->characterFormatAt(0).italic);

    g_view->document.undo();
    g_editor->window->updateCurrentRecord();
    QVERIFY(!readRichText(g_editor->record(u"r0"_s).textRTFD())->characterFormatAt(0).italic);
    formatting().toggleItalic();
    g_editor->sheets.answerNext<NumbersSheetController>([](NumbersSheetController &sheet) {
        sheet.setValue(0, 1.5);
        sheet.setValue(3, 36);
        sheet.accept();
    });
    formatting().chooseSpacing();
    QCOMPARE(text().paragraphFormatAt(0).lineMultiple, 360);
    QCOMPARE(text().paragraphFormatAt(0).headIndent, 720);
    g_view->cursor.select(QTextCursor::Document);
    formatting().clearFormatting();
    QCOMPARE(text(), AttributedText(u"one two\nthree"_s, g_view->plainLook));
}

void EditorFormattingTest::choosersChangeWhatWasChosenAlone()
{
    open();
    g_view->select(4, 7);
    formatting().toggleBold();
    g_view->select(8, 8);
    formatting().changeParagraphs([](ParagraphFormat &format) {
        format.headIndent = 700;
        format.cell = {1, 0, 0, {}};
    });
    g_view->select(0, 13);
    g_editor->sheets.answerNext<FontSheetController>([](FontSheetController &sheet) {
        QFont font = sheet.font();
        font.setPointSizeF(40);
        sheet.setFont(font);
        sheet.accept();
    });
    formatting().chooseFont();
    QVERIFY(!text().characterFormatAt(0).bold && text().characterFormatAt(4).bold);
    QCOMPARE(text().characterFormatAt(9).size, 40'000);
    g_editor->sheets.answerNext<NumbersSheetController>([](NumbersSheetController &sheet) {
        sheet.setValue(1, 6);
        sheet.accept();
    });
    formatting().chooseSpacing();
    QCOMPARE(text().paragraphFormatAt(8).spaceBefore, 120);
    QCOMPARE(text().paragraphFormatAt(8).headIndent, 700);
    // Where a paragraph stands is no look of it.
    formatting().clearFormatting();
    QCOMPARE(text().paragraphFormatAt(8).headIndent, 0);
    QCOMPARE(text().paragraphFormatAt(8).cell.table, 1);
}

void EditorFormattingTest::stylesAndRulersAreCarriedOver()
{
    open();
    g_view->select(0, 3);
    formatting().toggleBold();
    formatting().changeSize(5);
    formatting().changeParagraphs([](ParagraphFormat &format) { format.tabStops = {{100, TabKind::Right}}; });
    formatting().copyStyle();
    formatting().copyRuler();

    g_view->select(8, 10);
    formatting().pasteFTAStyle();
    formatting().pasteFTARuler();

    QCOMPARE(text().characterFormatAt(8), text().characterFormatAt(0));
    QVERIFY(!text().characterFormatAt(10).bold);
    QCOMPARE(text().paragraphFormatAt(8), text().paragraphFormatAt(0));

    // From window to window, too.
    const auto copied = std::make_shared<CopiedStyles>();
    formatting().shareCopied(copied);
    formatting().copyStyle();
    init();
    open();
    formatting().shareCopied(copied);
    g_view->select(0, 3);
    formatting().pasteFTAStyle();
    QVERIFY(text().characterFormatAt(0).bold);
}

void EditorFormattingTest::tablesGrowAndShrink()
{
    open();
    g_view->select(7, 7);
    g_editor->sheets.answerNext<NumbersSheetController>([](NumbersSheetController &sheet) {
        sheet.setValue(0, 1);
        sheet.setValue(1, 2);
        sheet.accept();
    });
    formatting().insertTable();
    QVERIFY(formatting().isInTable());
    QVERIFY(!g_editor->window->validateAction(u"orderFrontTablePanel:"_s));
    g_view->cursor.insertText(u"x"_s);
    QCOMPARE(text().text(), u"one two\nx\n\n\nthree"_s);

    formatting().insertRow(true);
    formatting().insertColumn(false);
    AttributedText grown = text();
    QCOMPARE(grown.text(), u"one two\n\nx\n\n\n\n\n\nthree"_s);
    QCOMPARE(grown.paragraphFormatAt(9).cell.column, 1);
    // New cells look like the others.
    for (const int place : {8, 11, 12, 13, 14})
        QCOMPARE(grown.paragraphFormatAt(place).cell.style, grown.paragraphFormatAt(9).cell.style);
    formatting().removeColumns();
    formatting().removeRows();
    QCOMPARE(text().text(), u"one two\n\n\n\nthree"_s);
    QCOMPARE(*readRichText(writeRichText(text())), text());
}

void EditorFormattingTest::filesAreLinkedAtTheCaretOrInTheCell()
{
    open();
    const QString path = g_editor->folder.filePath(u"a file.txt"_s);
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    const auto choose = [&] {
        g_editor->sheets.answerNext<FileSheetController>([&](FileSheetController &sheet) {
            sheet.setPaths({path});
            sheet.accept();
        });
        g_editor->window->links().insertFileLink();
    };
    g_view->select(4, 7);
    choose();
    QCOMPARE(text().text(), u"one a file.txt\nthree"_s);
    QCOMPARE(QUrl(text().characterFormatAt(4).link).toLocalFile(), QFileInfo(path).canonicalFilePath());
    QVERIFY(text().characterFormatAt(4).link.contains(u"a%20file"_s));
    g_view->select(4, 14);
    QVERIFY(g_editor->window->validateAction(u"removeLink:"_s));
    g_editor->window->links().removeLink();
    QCOMPARE(text().characterFormatAt(4).link, QString());

    const QString folder = g_editor->folder.path();
    g_editor->sheets.answerNext<FileSheetController>([&](FileSheetController &sheet) {
        sheet.setPaths({folder + u'/'});
        sheet.accept();
    });
    g_editor->window->links().insertFileLink();
    QCOMPARE(text().text(), u"one %1\nthree"_s.arg(QFileInfo(folder).fileName()));

    g_view->focused = EditorFocus::Table;
    choose();
    QVERIFY(g_view->inserted.startsWith(u"file:///"_s));
}

QTEST_MAIN(EditorFormattingTest)
#include "EditorFormattingTest.moc"
