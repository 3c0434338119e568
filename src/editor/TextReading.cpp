// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// From the document in which a text is shown back to the text.

#include "editor/ImportedList.h"
#include "editor/TextBridge.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include <algorithm>
#include <utility>

namespace tavrin {

using namespace richtext;

namespace {

constexpr qint32 twipsPerPoint = 20;

/// What a picture of an imported document is, when its bytes are there.
std::optional<Attachment> pictureOf(const QTextDocument &document, const QTextImageFormat &format)
{
    const QVariant resource = document.resource(QTextDocument::ImageResource, QUrl(format.name()));
    QByteArray bytes = resource.toByteArray();
    if (bytes.isEmpty()) {
        QBuffer buffer(&bytes);
        if (!qvariant_cast<QImage>(resource).save(&buffer, "PNG"))
            return {};
    }
    // A file that only claims to be a picture stays where it is.
    QBuffer buffer(&bytes);
    if (!QImageReader(&buffer).canRead())
        return {};
    const auto points = [](double pixels) { return qRound(qBound(0.0, pixels, 10'000.0)) * twipsPerPoint; };
    const QString suffix = bytes.startsWith("\xFF\xD8") ? QStringLiteral("jpeg")
                           : bytes.startsWith("GIF8")   ? QStringLiteral("gif")
                                                        : QStringLiteral("png");
    return Attachment{
        QStringLiteral("image.") + suffix, bytes, points(format.width()), points(format.height())};
}

class TextReader
{
public:
    TextReader(const QTextDocument &document, CharacterFormat base)
        : g_document(document)
        , g_base(std::move(base))
    {}

    AttributedText read();
    /// Of the document, which was read.
    QList<TextPlacement::Block> blocks() const { return g_blocks; }

private:
    void readFrame(const QTextFrame &frame, ParagraphFormat *cell);
    void readTable(const QTextTable &table);
    MergedCells::Cell storedCell(const QTextTableCell &cell, int row, int column) const;
    void readCovered(const MergedCells::Cell &stored, const TableCell &cell);
    void readBlock(const QTextBlock &block, ParagraphFormat *cell);
    void readFragment(const QTextFragment &fragment);
    void appendText(const QString &text, const Look &look);
    ParagraphLook paragraphOf(const QTextBlock &block, ParagraphFormat *cell);
    static bool isFiller(const QTextBlock &block);
    int tableNumber(int storedNumber);

    const QTextDocument &g_document;
    CharacterFormat g_base;
    QString g_text;
    CharacterRuns g_characters;
    ParagraphRuns g_paragraphs;
    ImportedList g_list;
    QList<TextPlacement::Block> g_blocks;
    std::optional<Look> g_pendingEnd; ///< How the "\n" looks that the next paragraph needs before it.
    ParagraphLook g_lastParagraph;
    int g_tables = 0;
    int g_storedTable = 0; ///< Of paragraphs that are cells without being shown as such.
};

AttributedText TextReader::read()
{
    readFrame(*g_document.rootFrame(), nullptr);
    g_paragraphs.append(g_text.size() + 1 - g_paragraphs.size(), g_lastParagraph);
    return {std::move(g_text), std::move(g_characters), std::move(g_paragraphs)};
}

void TextReader::appendText(const QString &text, const Look &look)
{
    g_text += text;
    g_characters.append(text.size(), look);
}

void TextReader::readFrame(const QTextFrame &frame, ParagraphFormat *cell)
{
    for (auto part = frame.begin(); part != frame.end(); ++part) {
        if (const QTextFrame *child = part.currentFrame()) {
            const auto *table = qobject_cast<const QTextTable *>(child);
            if (table && !cell)
                readTable(*table);
            else
                readFrame(*child, cell);
        } else if (part.currentBlock().isValid()) {
            readBlock(part.currentBlock(), cell);
        }
    }
}

/// What the text has where a table has that cell: of one that another covers, what it had before.
MergedCells::Cell TextReader::storedCell(const QTextTableCell &cell, int row, int column) const
{
    const QTextCharFormat format = cell.format();
    MergedCells::Cell stored{cellStyleOf(format), {}, Look(g_base)};
    const auto merged = qvariant_cast<MergedCells>(format.property(MergedProperty));
    const int down = row - cell.row();
    const int right = column - cell.column();
    if (merged.rows == cell.rowSpan() && merged.columns == cell.columnSpan())
        return down == 0 && right == 0 ? stored : merged.cells.at(down * merged.columns + right);
    // Of a table that is not ours, or whose rows and columns were changed.
    const auto mergeOf = [](int span, int place) {
        return span < 2 ? Merge::None : place == 0 ? Merge::First : Merge::Continued;
    };
    if (merged.rows > 0 || cell.rowSpan() > 1 || cell.columnSpan() > 1) {
        stored.style.horizontal = mergeOf(cell.columnSpan(), right);
        stored.style.vertical = mergeOf(cell.rowSpan(), down);
    }
    return stored;
}

void TextReader::readCovered(const MergedCells::Cell &stored, const TableCell &cell)
{
    if (const auto pending = std::exchange(g_pendingEnd, stored.end)) {
        appendText(QStringLiteral("\n"), *pending);
        g_paragraphs.append(g_text.size() - g_paragraphs.size(), g_lastParagraph);
    }
    ParagraphFormat format = *stored.paragraph;
    format.cell = cell;
    g_lastParagraph = ParagraphLook(format);
}

void TextReader::readTable(const QTextTable &table)
{
    g_storedTable = 0;
    ++g_tables;
    for (int row = 0; row < table.rows(); ++row) {
        int columns = table.columns();
        const auto isAbsent = [&](int column) {
            const QTextTableCell cell = table.cellAt(row, column);
            return cell.format().hasProperty(AbsentCellProperty)
                   && cell.firstPosition() == cell.lastPosition();
        };
        while (columns > 1 && isAbsent(columns - 1))
            --columns;
        for (int column = 0; column < columns; ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            const MergedCells::Cell stored = storedCell(cell, row, column);
            ParagraphFormat format;
            format.cell = {g_tables, row, column, stored.style};
            if (cell.row() != row || cell.column() != column) {
                readCovered(stored, format.cell);
                continue;
            }
            for (auto part = cell.begin(); part != cell.end(); ++part) {
                if (const QTextFrame *child = part.currentFrame())
                    readFrame(*child, &format);
                else if (part.currentBlock().isValid())
                    readBlock(part.currentBlock(), &format);
            }
        }
    }
}

/// A paragraph that is there for a table beside it, and into which nobody has typed.
bool TextReader::isFiller(const QTextBlock &block)
{
    const bool isMarked = block.blockFormat().hasProperty(FillerProperty);
    // HTML's have no mark.
    const bool isOurs = block.blockFormat().hasProperty(ParagraphProperty);
    if (block.length() != 1 || (isOurs && !isMarked))
        return false;
    const auto isInTable = [](const QTextBlock &other) {
        return other.isValid() && QTextCursor(other).currentTable() != nullptr;
    };
    return isInTable(block.next()) || (isInTable(block.previous()) && (!isMarked || !block.next().isValid()));
}

int TextReader::tableNumber(int storedNumber)
{
    if (storedNumber != std::exchange(g_storedTable, storedNumber))
        ++g_tables;
    return g_tables;
}

ParagraphLook TextReader::paragraphOf(const QTextBlock &block, ParagraphFormat *cell)
{
    ParagraphLook look = paragraphLookOf(block.blockFormat());
    const bool isImported = block.textList() && !block.blockFormat().hasProperty(ParagraphProperty);
    const int stored = look->cell.table;
    if (!cell && !isImported && stored == 0) {
        g_storedTable = 0;
        return look;
    }
    ParagraphFormat format = *look;
    if (cell)
        format.cell = cell->cell;
    else if (stored != 0)
        format.cell.table = tableNumber(stored);
    else
        g_storedTable = 0;
    if (isImported)
        g_list.apply(*block.textList(), format);
    // Paragraphs of one cell often look the same, and share it.
    if (format == *g_lastParagraph)
        return g_lastParagraph;
    return ParagraphLook(std::move(format));
}

void TextReader::readBlock(const QTextBlock &block, ParagraphFormat *cell)
{
    if (!cell && isFiller(block)) {
        g_blocks.append({block.position(), g_text.size(), g_text.size()});
        return;
    }
    const bool isFirst = block.position() == 0 && block.blockFormat().hasProperty(FirstEndProperty);
    const Look atEnd = isFirst ? qvariant_cast<Look>(block.blockFormat().property(FirstEndProperty))
                               : lookOf(block.charFormat(), g_base);
    if (const auto pending = std::exchange(g_pendingEnd, atEnd)) {
        appendText(QStringLiteral("\n"), *pending);
        g_paragraphs.append(g_text.size() - g_paragraphs.size(), g_lastParagraph);
    }
    g_lastParagraph = paragraphOf(block, cell);
    if (block.textList() && !block.blockFormat().hasProperty(ParagraphProperty))
        appendText(g_list.marker(*block.textList(), block), atEnd);
    const qsizetype start = g_text.size();
    for (auto part = block.begin(); part != block.end(); ++part)
        readFragment(part.fragment());
    g_blocks.append({block.position(), start, g_text.size()});
}

void TextReader::readFragment(const QTextFragment &fragment)
{
    const QTextCharFormat format = fragment.charFormat();
    if (format.isImageFormat()) {
        CharacterFormat look = *lookOf(format, g_base);
        look.attachment = pictureOf(g_document, format.toImageFormat());
        if (look.attachment)
            appendText(fragment.text(), Look(std::move(look)));
        return;
    }
    QString text = fragment.text();
    if (format.hasProperty(OriginalProperty)) {
        const auto original = static_cast<char16_t>(format.intProperty(OriginalProperty));
        for (QChar &unit : text) {
            if (unit == QChar::LineSeparator || unit == QChar::ReplacementCharacter)
                unit = original;
        }
    }
    appendText(text, lookOf(format, g_base));
}

} // namespace

AttributedText textOf(const QTextDocument &document, const CharacterFormat &base)
{
    return TextReader(document, base).read();
}

AttributedText selectedText(const QTextCursor &cursor)
{
    if (!cursor.hasSelection())
        return {};
    const TextPlacement placement(*cursor.document());
    const qsizetype start = placement.placeOf(cursor.selectionStart());
    return textOf(*cursor.document()).substring(start, placement.placeOf(cursor.selectionEnd()) - start);
}

TextPlacement::TextPlacement(const QTextDocument &document)
{
    if (document.rootFrame()->childFrames().isEmpty())
        return;
    TextReader reader(document, {});
    reader.read();
    g_blocks = reader.blocks();
}

qsizetype TextPlacement::placeOf(int position) const
{
    if (g_blocks.isEmpty())
        return position;
    const auto behind = std::ranges::upper_bound(g_blocks, position, {}, &Block::position);
    if (behind == g_blocks.cbegin())
        return 0;
    const Block &block = *std::prev(behind);
    return std::min(block.start + position - block.position, block.end);
}

int TextPlacement::positionOf(qsizetype place) const
{
    if (g_blocks.isEmpty())
        return static_cast<int>(place);
    const auto found = std::ranges::lower_bound(g_blocks, place, {}, &Block::end);
    if (found == g_blocks.cend())
        return g_blocks.constLast().position;
    return found->position + static_cast<int>(std::max<qsizetype>(0, place - found->start));
}

QString plainTextOf(const QTextDocument &document)
{
    return textOf(document).text();
}

AttributedText textOfHtml(const QString &html, const CharacterFormat &base)
{
    QTextDocument document;
    document.setHtml(html);
    return textOf(document, base);
}

} // namespace tavrin
