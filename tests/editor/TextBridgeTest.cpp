// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TextBridge.h"

#include "editor/TextChanging.h"
#include "editor/TextLists.h"
#include "richtext/RandomRichText.h"

#include <QTest>
#include <QTextDocument>
#include <QTextTable>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

class TextBridgeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyTextComesBackEqual();
    void aTableThatIsNoneIsKept();
    void cellsThatAreMergedAreShownSo();
    void anInsertedTextIsWhatWasCopied();
    void insertingKeepsWhatStandsAround();
    void htmlBringsItsLooks();
    void aChangeLeavesTheRestAlone();
    void listsNumberTheirItems();
};

namespace {

AttributedText throughDocument(const AttributedText &text)
{
    QTextDocument document;
    setText(document, text);
    return textOf(document);
}

QTextCursor selecting(QTextDocument &document, int start, int end)
{
    QTextCursor cursor(&document);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

void TextBridgeTest::anyTextComesBackEqual()
{
    for (quint32 seed = 1; seed <= 300; ++seed) {
        const AttributedText text = RandomRichText(seed).text();
        const AttributedText back = throughDocument(text);
        QVERIFY2(back.text() == text.text(), qPrintable(u"seed %1"_s.arg(seed)));
        QVERIFY2(back.characterRuns() == text.characterRuns(), qPrintable(u"seed %1"_s.arg(seed)));
        QVERIFY2(back == text, qPrintable(u"seed %1"_s.arg(seed)));
    }
    for (const QString &plain : {u""_s, u"\n"_s, u"a\r\nb\u2029c\uFDD0\u00A0\u2028\n"_s})
        QCOMPARE(throughDocument(AttributedText(plain)).text(), plain);
}

void TextBridgeTest::aTableThatIsNoneIsKept()
{
    const auto cells = [](const QList<std::pair<int, int>> &places, const QString &ending) {
        AttributedText text(u"a\n"_s.repeated(places.size()) + ending);
        for (int i = 0; i < places.size(); ++i) {
            text.applyToParagraphs(2 * i, 1, [&](ParagraphFormat &format) {
                format.cell.table = 1;
                std::tie(format.cell.row, format.cell.column) = places[i];
            });
        }
        return text;
    };
    const QList<QList<std::pair<int, int>>> shapes{{{0, 0}, {0, 1}, {1, 0}},
                                                   {{0, 0}, {1, 0}, {1, 1}, {1, 2}},
                                                   {{3, 4}, {0, 1}},
                                                   {{0, 0}, {0, 2}},
                                                   {{0, 0}, {0, 900}, {90'000, 0}}};
    for (const auto &shape : shapes) {
        for (const QString &ending : {QString(), u"end"_s})
            QCOMPARE(throughDocument(cells(shape, ending)), cells(shape, ending));
    }
}

void TextBridgeTest::cellsThatAreMergedAreShownSo()
{
    // The first column covers two rows, in the third row the first cell two columns.
    AttributedText text(u"ab\nc\n\nd\ne\n\nend"_s);
    constexpr std::pair<Merge, Merge> merges[] = {{Merge::None, Merge::First},
                                                  {Merge::None, Merge::None},
                                                  {Merge::None, Merge::Continued},
                                                  {Merge::None, Merge::None},
                                                  {Merge::First, Merge::None},
                                                  {Merge::Continued, Merge::None}};
    constexpr int places[] = {0, 3, 5, 6, 8, 10};
    for (int cell = 0; cell < 6; ++cell) {
        text.applyToParagraphs(places[cell], 1, [&](ParagraphFormat &format) {
            format.cell = {1, cell / 2, cell % 2, {}};
            format.cell.style.width = 100 + cell;
            std::tie(format.cell.style.horizontal, format.cell.style.vertical) = merges[cell];
        });
    }
    QTextDocument document;
    setText(document, text);
    auto *table = qobject_cast<QTextTable *>(document.rootFrame()->childFrames().constFirst());
    QCOMPARE(table->cellAt(1, 0), table->cellAt(0, 0));
    QCOMPARE(table->cellAt(2, 0).columnSpan(), 2);
    QCOMPARE(textOf(document), text);
    QTextCursor cursor = selecting(document, 0, document.characterCount() - 1);
    changeLook(cursor, [](CharacterFormat &look) { look.bold = true; });
    QCOMPARE(textOf(document).paragraphRuns(), text.paragraphRuns());

    // Rows and columns may still come and go.
    table->insertRows(1, 1);
    AttributedText changed = textOf(document);
    QCOMPARE(changed.text(), u"ab\nc\n\n\n\nd\ne\n\nend"_s);
    QCOMPARE(changed.paragraphFormatAt(7).cell.style.vertical, Merge::Continued);
    QCOMPARE(throughDocument(changed), changed);
    table->removeColumns(1, 1);
    changed = textOf(document);
    QCOMPARE(changed.text(), u"ab\n\n\ne\nend"_s);
    QCOMPARE(changed.paragraphFormatAt(5).cell.style.horizontal, Merge::None);
}

void TextBridgeTest::anInsertedTextIsWhatWasCopied()
{
    for (quint32 seed = 1; seed <= 100; ++seed) {
        const AttributedText text = RandomRichText(seed).text();
        QTextDocument document;
        setText(document, text);
        QTextCursor all(&document);
        all.select(QTextCursor::Document);
        const AttributedText copied = selectedText(all);
        QVERIFY2(copied.text() == text.text(), qPrintable(u"seed %1"_s.arg(seed)));

        QTextDocument empty;
        QTextCursor cursor(&empty);
        insertText(cursor, text);
        QVERIFY2(textOf(empty).text() == text.text(), qPrintable(u"seed %1"_s.arg(seed)));
    }
}

void TextBridgeTest::insertingKeepsWhatStandsAround()
{
    ParagraphFormat centered;
    centered.alignment = Alignment::Center;
    AttributedText table(u"x\ny\n"_s);
    table.applyToParagraphs(0, 1, [](ParagraphFormat &format) { format.cell.table = 1; });
    table.applyToParagraphs(2, 1, [](ParagraphFormat &format) { format.cell = {1, 0, 1, {}}; });
    for (const int place : {0, 2, 4}) {
        QTextDocument document;
        setText(document, AttributedText(u"abcd"_s, {}, centered));
        document.setUndoRedoEnabled(true);
        QTextCursor cursor = selecting(document, place, place);

        insertText(cursor, table);

        const AttributedText text = textOf(document);
        const QString before = place == 0 ? QString() : u"abcd"_s.left(place) + u'\n';
        QCOMPARE(text.text(), before + u"x\ny\n"_s + u"abcd"_s.mid(place));
        QCOMPARE(text.paragraphFormatAt(text.size()), centered);
        document.undo();
        QCOMPARE(textOf(document), AttributedText(u"abcd"_s, {}, centered));
    }
}

void TextBridgeTest::htmlBringsItsLooks()
{
    const AttributedText text =
        textOfHtml(u"<p align=center><b>bold</b> <a "
                   u"href='https://a.example/'>link</a></p><ol><li>one</li><li>two</li></ol>"
                   "<table><tr><td>c</td><td>d</td></tr></table>"
                   "<p><img src='data:image/gif;base64,R0lGODlhAQABAAAAACwAAAAAAQABAAA='></p>"_s,
                   {});
    QCOMPARE(text.text(), u"bold link\n\t1.\tone\n\t2.\ttwo\nc\nd\n\uFFFC"_s);
    QVERIFY(text.characterFormatAt(0).bold && !text.characterFormatAt(4).bold);
    QCOMPARE(text.characterFormatAt(6).link, u"https://a.example/"_s);
    QCOMPARE(text.paragraphFormatAt(0).alignment, Alignment::Center);
    QCOMPARE(text.paragraphFormatAt(12).list.levels.value(0).marker, u"{decimal}."_s);
    QCOMPARE(text.paragraphFormatAt(text.text().indexOf(u"d\n"_s)).cell.column, 1);
    QVERIFY(text.characterFormatAt(text.size() - 1).attachment->bytes.startsWith("GIF8"));
    QCOMPARE(throughDocument(text), text);
}

void TextBridgeTest::aChangeLeavesTheRestAlone()
{
    for (quint32 seed = 1; seed <= 100; ++seed) {
        AttributedText text = RandomRichText(seed).text();
        // Nobody selects what another cell covers.
        text.applyToParagraphs(0, text.size(), [](ParagraphFormat &format) {
            format.cell.style.horizontal = format.cell.style.vertical = Merge::None;
        });
        QTextDocument document;
        setText(document, text);
        QTextCursor all(&document);
        all.select(QTextCursor::Document);

        changeLook(all, [](CharacterFormat &look) { look.bold = !look.bold; });
        changeParagraphs(all, [](ParagraphFormat &format) { format.spaceAfter += 20; });

        AttributedText expected = text;
        expected.apply(0, text.size(), [](CharacterFormat &look) { look.bold = !look.bold; });
        expected.applyToParagraphs(0, text.size(), [](ParagraphFormat &format) { format.spaceAfter += 20; });
        QVERIFY2(textOf(document) == expected, qPrintable(u"seed %1"_s.arg(seed)));
        while (document.isUndoAvailable())
            document.undo();
        QVERIFY2(textOf(document) == text, qPrintable(u"seed %1"_s.arg(seed)));
    }
}

void TextBridgeTest::listsNumberTheirItems()
{
    QTextDocument document;
    setText(document, AttributedText(u"one\ntwo\nthree"_s));
    QTextCursor cursor(&document);
    cursor.select(QTextCursor::Document);
    setList(cursor, u"{decimal}."_s);
    QCOMPARE(plainTextOf(document), u"\t1.\tone\n\t2.\ttwo\n\t3.\tthree"_s);

    cursor.setPosition(document.findBlockByNumber(1).position() + 5);
    QVERIFY(splitListItem(cursor));
    QCOMPARE(plainTextOf(document), u"\t1.\tone\n\t2.\tt\n\t3.\two\n\t4.\tthree"_s);
    QVERIFY(changeListLevel(cursor, 1));
    QCOMPARE(plainTextOf(document), u"\t1.\tone\n\t2.\tt\n\t1.\two\n\t3.\tthree"_s);

    cursor.setPosition(document.findBlockByNumber(1).position() + 3);
    QVERIFY(leaveListAtMarker(cursor));
    QCOMPARE(paragraphAt(cursor), ParagraphFormat());
    cursor.select(QTextCursor::Document);
    setList(cursor, {});
    QCOMPARE(plainTextOf(document), u"one\nt\nwo\nthree"_s);

    cursor.movePosition(QTextCursor::End);
    setList(cursor, u"{disc}"_s);
    QVERIFY(splitListItem(cursor));
    QVERIFY(splitListItem(cursor));
    QCOMPARE(plainTextOf(document), u"one\nt\nwo\n\t\u2022\tthree\n"_s);
}

QTEST_MAIN(TextBridgeTest)
#include "TextBridgeTest.moc"
