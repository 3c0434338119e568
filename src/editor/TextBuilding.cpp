// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// From a stored text to the document in which it is shown.

#include "editor/TableShape.h"
#include "editor/TextBridge.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <vector>

namespace tavrin {

using namespace richtext;

namespace {

class TextBuilder
{
public:
    TextBuilder(QTextCursor &cursor, const AttributedText &text, Look last)
        : g_cursor(cursor)
        , g_text(text)
        , g_look(std::move(last))
    {}

    void build();
    /// Into a paragraph that is there already; the text's own first one continues it.
    void buildInto(bool isEmpty);

private:
    const ParagraphFormat &formatOf(const TextParagraph &paragraph) const
    {
        return g_text.paragraphFormatAt(paragraph.start);
    }
    void findParagraphs();
    void insertFrom(size_t first);
    void insertParagraph(const TextParagraph &paragraph, bool inCell);
    void insertCharacters(qsizetype start, qsizetype end);
    void insertRun(QStringView text, const QTextCharFormat &format);
    std::optional<TableShape> tableAt(size_t &index) const;
    void insertTable(const TableShape &shape);
    void fillCell(QTextTable &table, const TableShape &shape, int row, int column);
    void markFiller();
    Look endOf(const TextParagraph &paragraph) const { return lookAtEnd(g_text, paragraph, g_look); }
    const QTextCharFormat &shownLook(const Look &look);
    const QTextBlockFormat &shownParagraph(const ParagraphLook &paragraph);

    QTextCursor &g_cursor;
    const AttributedText &g_text;
    std::vector<TextParagraph> g_paragraphs;
    Look g_look; ///< The latest that was used.
    QTextCharFormat g_format;
    bool g_hasFormat = false;
    ParagraphLook g_paragraph;
    QTextBlockFormat g_block;
    bool g_hasBlock = false;
    bool g_isFresh = true; ///< The cursor stands in a paragraph that the text has not used yet.
};

const QTextCharFormat &TextBuilder::shownLook(const Look &look)
{
    if (!g_hasFormat || !(g_look == look)) {
        g_look = look;
        g_format = charFormatFor(look);
        g_hasFormat = true;
    }
    return g_format;
}

const QTextBlockFormat &TextBuilder::shownParagraph(const ParagraphLook &paragraph)
{
    if (!g_hasBlock || !(g_paragraph == paragraph)) {
        g_paragraph = paragraph;
        g_block = blockFormatFor(paragraph);
        g_hasBlock = true;
    }
    return g_block;
}

void TextBuilder::findParagraphs()
{
    const QString &text = g_text.text();
    for (qsizetype start = 0;;) {
        const qsizetype end = text.indexOf(u'\n', start);
        g_paragraphs.push_back({start, end < 0 ? text.size() : end});
        if (end < 0)
            return;
        start = end + 1;
    }
}

void TextBuilder::build()
{
    findParagraphs();
    insertFrom(0);
    if (g_isFresh)
        markFiller();
}

void TextBuilder::buildInto(bool isEmpty)
{
    findParagraphs();
    QTextBlockFormat around = g_cursor.blockFormat();
    if (!around.hasProperty(ParagraphProperty))
        around = blockFormatFor(paragraphLookOf(around));
    g_isFresh = isEmpty || g_cursor.atBlockStart();
    const TextParagraph &first = g_paragraphs.front();
    if (formatOf(first).cell.table != 0) {
        insertFrom(0);
    } else {
        if (isEmpty && g_paragraphs.size() > 1)
            g_cursor.setBlockFormat(shownParagraph(g_text.paragraphRuns().at(first.start)));
        g_isFresh = false;
        insertCharacters(first.start, first.end);
        insertFrom(1);
    }
    // What stood behind the cursor is still a part of its own paragraph.
    const bool endsParagraph = g_paragraphs.back().start == g_text.size();
    if (g_isFresh || (g_paragraphs.size() > 1 && endsParagraph))
        g_cursor.setBlockFormat(around);
}

void TextBuilder::insertFrom(size_t first)
{
    for (size_t i = first; i < g_paragraphs.size();) {
        if (const auto shape = tableAt(i))
            insertTable(*shape);
        else
            insertParagraph(g_paragraphs[i++], false);
    }
}

void TextBuilder::insertParagraph(const TextParagraph &paragraph, bool inCell)
{
    const auto &runs = g_text.paragraphRuns();
    ParagraphLook look = runs.at(paragraph.start);
    if (inCell && look->cell.table != 0) {
        ParagraphFormat format = *look;
        format.cell = {};
        look = ParagraphLook(std::move(format));
    }
    const QTextCharFormat &atEnd = shownLook(endOf(paragraph));
    if (!g_isFresh) {
        g_cursor.insertBlock(shownParagraph(look), atEnd);
    } else {
        QTextBlockFormat format = shownParagraph(look);
        if (g_cursor.position() == 0)
            format.setProperty(FirstEndProperty, QVariant::fromValue(g_look));
        g_cursor.setBlockFormat(format);
        // The first paragraph of a cell has the cell's own format.
        if (!inCell)
            g_cursor.setBlockCharFormat(atEnd);
    }
    g_isFresh = false;
    insertCharacters(paragraph.start, paragraph.end);
}

void TextBuilder::insertCharacters(qsizetype start, qsizetype end)
{
    const auto &runs = g_text.characterRuns().runs();
    const QStringView text(g_text.text());
    for (qsizetype i = g_text.characterRuns().indexAt(start); start < end; ++i) {
        const qsizetype runEnd = std::min(runs.at(i).end, end);
        insertRun(text.sliced(start, runEnd - start), shownLook(runs.at(i).format));
        start = runEnd;
    }
}

/// What a QTextDocument takes for the end of a paragraph stands there as something else.
std::optional<QChar> replacementFor(QChar unit)
{
    switch (unit.unicode()) {
    case u'\r':
    case QChar::ParagraphSeparator:
        return QChar(QChar::LineSeparator);
    case 0xFDD0:
    case 0xFDD1:
        return QChar(QChar::ReplacementCharacter);
    default:
        return {};
    }
}

void TextBuilder::insertRun(QStringView text, const QTextCharFormat &format)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto replacement = replacementFor(text[i]);
        if (!replacement)
            continue;
        if (i > start)
            g_cursor.insertText(text.sliced(start, i - start).toString(), format);
        QTextCharFormat marked = format;
        marked.setProperty(OriginalProperty, static_cast<int>(text[i].unicode()));
        g_cursor.insertText(QString(*replacement), marked);
        start = i + 1;
    }
    if (start < text.size())
        g_cursor.insertText(text.sliced(start).toString(), format);
}

void TextBuilder::markFiller()
{
    QTextBlockFormat format;
    format.setProperty(FillerProperty, true);
    g_cursor.setBlockFormat(format);
    g_cursor.setBlockCharFormat(charFormatFor(g_look));
}

/// The table that begins there, if it can be shown as one; the index then is that of the paragraph behind it.
std::optional<TableShape> TextBuilder::tableAt(size_t &index) const
{
    const TableCell *last = &formatOf(g_paragraphs[index]).cell;
    if (last->table == 0 || last->row != 0 || last->column != 0)
        return {};
    TableShape shape;
    size_t i = index;
    for (; i < g_paragraphs.size(); ++i) {
        const TableCell &cell = formatOf(g_paragraphs[i]).cell;
        if (cell.table != last->table)
            break;
        const bool isFirst = i == index;
        if (!isFirst && cell.isSameCell(*last) && !(cell.style == last->style))
            return {};
        const bool isNextRow = isFirst || (cell.row == last->row + 1 && cell.column == 0);
        const bool isNextCell = isNextRow || (cell.row == last->row && cell.column == last->column + 1);
        if (!isNextCell && !cell.isSameCell(*last))
            return {};
        if (isNextRow)
            shape.rows.emplace_back();
        if (isNextCell) {
            shape.rows.back().emplace_back();
            ++shape.cells;
        }
        shape.rows.back().back().push_back(g_paragraphs[i]);
        shape.columns = std::max(shape.columns, shape.rows.back().size());
        last = &cell;
    }
    if (!shape.isShown())
        return {};
    index = i;
    return shape;
}

void TextBuilder::insertTable(const TableShape &shape)
{
    if (g_isFresh)
        markFiller();
    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_None);
    format.setCellSpacing(0);
    format.setCellPadding(0);
    format.setColumnWidthConstraints(shape.widths(g_text));
    QTextTable *table =
        g_cursor.insertTable(static_cast<int>(shape.rows.size()), static_cast<int>(shape.columns), format);
    for (int row = 0; row < table->rows(); ++row) {
        for (int column = 0; column < table->columns(); ++column) {
            if (static_cast<size_t>(column) < shape.rows[static_cast<size_t>(row)].size()) {
                fillCell(*table, shape, row, column);
            } else {
                QTextTableCellFormat absent;
                absent.setProperty(AbsentCellProperty, true);
                table->cellAt(row, column).setFormat(absent);
            }
        }
    }
    g_cursor.setPosition(table->lastPosition() + 1);
    g_isFresh = true;
}

bool isCovered(const QTextTable &table, int row, int column)
{
    const QTextTableCell cell = table.cellAt(row, column);
    return cell.row() != row || cell.column() != column;
}

/// Whether none of the cells is covered already.
bool areFree(const QTextTable &table, int row, int column, const MergedCells &cells)
{
    for (int r = row; r < row + cells.rows; ++r) {
        for (int c = column; c < column + cells.columns; ++c) {
            if (isCovered(table, r, c))
                return false;
        }
    }
    return true;
}

void TextBuilder::fillCell(QTextTable &table, const TableShape &shape, int row, int column)
{
    if (isCovered(table, row, column))
        return;
    const auto r = static_cast<size_t>(row);
    const auto c = static_cast<size_t>(column);
    const std::vector<TextParagraph> &paragraphs = shape.rows[r][c];
    QTextTableCellFormat format =
        cellFormatFor(formatOf(paragraphs.front()).cell.style, endOf(paragraphs.front()));
    const MergedCells merged = shape.mergedAt(r, c, g_text);
    if (merged.cells.size() > 1 && areFree(table, row, column, merged)) {
        // While the others are empty, and the last paragraph here is nobody's yet.
        table.mergeCells(row, column, merged.rows, merged.columns);
        format.setProperty(MergedProperty, QVariant::fromValue(merged));
    }
    QTextTableCell cell = table.cellAt(row, column);
    cell.setFormat(format);
    g_cursor = cell.firstCursorPosition();
    g_isFresh = true;
    for (const TextParagraph &paragraph : paragraphs)
        insertParagraph(paragraph, true);
}

} // namespace

void setText(QTextDocument &document, const AttributedText &text, const CharacterFormat &plain)
{
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    TextBuilder(cursor, text, Look(plain)).build();
    cursor.endEditBlock();
    document.setUndoRedoEnabled(true);
    document.setModified(false);
}

void insertText(QTextCursor &cursor, const AttributedText &text)
{
    AttributedText inserted = text;
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    // There are no tables in cells.
    if (cursor.currentTable())
        inserted.applyToParagraphs(0, inserted.size(), [](ParagraphFormat &format) { format.cell = {}; });
    const bool isEmpty = cursor.block().length() == 1;
    TextBuilder(cursor, inserted, lookOf(cursor.charFormat())).buildInto(isEmpty);
    cursor.endEditBlock();
}

} // namespace tavrin
