// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfWriter.h"

#include "richtext/AttachmentName.h"
#include "richtext/RtfEscape.h"
#include "richtext/RtfHeader.h"
#include "richtext/RtfLookWriter.h"
#include "richtext/RtfParagraphWriter.h"

#include <algorithm>

namespace tavrin::richtext {

namespace {

/// Writes the paragraphs one after the other. What RTF has said is kept, as only changes are written; a
/// group's end takes it back to what was said before the group.
class BodyWriter
{
public:
    explicit BodyWriter(const AttributedText &text) : g_text(text), g_header(text), g_attachments(text) {}

    QByteArray write()
    {
        g_rtf = g_header.bytes();
        const ParagraphFormat *before = nullptr;
        const qsizetype size = g_text.size();
        for (qsizetype start = 0; start <= size;) {
            const TextRange paragraph = g_text.paragraphAt(start);
            const bool isEnded = paragraph.length > 0 && g_text.text()[paragraph.end() - 1] == u'\n';
            const ParagraphFormat &format = g_text.paragraphFormatAt(start);
            beginCell(before, format, start);
            if (!before || !(*before == format))
                g_rtf += paragraphWords(format, g_header);
            writeParagraph(paragraph, format, isEnded);
            before = &format;
            start = isEnded ? paragraph.end() : size + 1;
        }
        return g_rtf + '}';
    }

private:
    struct Said
    {
        std::optional<CharacterFormat> look;
        bool isUnicodeAlone = false; ///< \uc0
    };

    void beginCell(const ParagraphFormat *before, const ParagraphFormat &format, qsizetype start)
    {
        const bool isRowBegun = before && before->cell.isSameRow(format.cell);
        if (format.cell.table == 0 || isRowBegun)
            return;
        QList<CellStyle> cells;
        qint32 column = -1;
        while (start <= g_text.size()) {
            const TableCell &cell = g_text.paragraphFormatAt(start).cell;
            if (!cell.isSameRow(format.cell))
                break;
            if (cells.isEmpty() || cell.column != column)
                cells.append(cell.style);
            column = cell.column;
            start = std::max(start + 1, g_text.paragraphAt(start).end());
        }
        g_rtf += rowDefinition(cells, g_header);
    }

    /// The paragraph's characters, and how it ends.
    void writeParagraph(TextRange paragraph, const ParagraphFormat &format, bool isEnded)
    {
        const qsizetype text = paragraph.start + lengthOfMarker(paragraph, format);
        if (text > paragraph.start) {
            const Said outside = g_said;
            g_rtf += "{\\listtext";
            writeRuns({paragraph.start, text - paragraph.start}, {});
            g_rtf += '}';
            g_said = outside;
        }
        if (!isEnded) {
            writeRuns({text, paragraph.end() - text}, {});
            return;
        }
        const TableCell &next = g_text.paragraphFormatAt(paragraph.end()).cell;
        const bool isCellEnded = format.cell.table != 0 && !format.cell.isSameCell(next);
        writeRuns({text, paragraph.end() - text}, isCellEnded ? "\\cell " : "\\\n");
        if (isCellEnded && !format.cell.isSameRow(next))
            g_rtf += next.table == format.cell.table ? "\\row\n" : "\\lastrow\\row\n";
    }

    /// The tab, marker and tab that begin an item.
    qsizetype lengthOfMarker(TextRange paragraph, const ParagraphFormat &format) const
    {
        const QStringView text = QStringView(g_text.text()).sliced(paragraph.start, paragraph.length);
        const qsizetype end = text.indexOf(u'\t', 1);
        return format.list.identifier != 0 && text.startsWith(u'\t') && end > 0 ? end + 1 : 0;
    }

    /// The characters of one paragraph, whose "\n" is written as `ending`.
    void writeRuns(TextRange range, QByteArrayView ending)
    {
        const QList<CharacterRuns::Run> &runs = g_text.characterRuns().runs();
        qsizetype i = g_text.characterRuns().indexAt(range.start);
        for (qsizetype position = range.start; position < range.end();) {
            const QString &link = runs.at(i).format->link;
            const Said outside = g_said;
            if (!link.isEmpty())
                beginLink(link);
            for (; position < range.end() && runs.at(i).format->link == link; ++i) {
                const qsizetype end = std::min(runs.at(i).end, range.end());
                writeCharacters({position, end - position}, *runs.at(i).format, ending);
                position = end;
                if (runs.at(i).end > end)
                    break;
            }
            if (!link.isEmpty()) {
                g_rtf += "}}";
                g_said = outside;
            }
        }
    }

    void beginLink(QString link)
    {
        // It would end the address.
        link.replace(u'"', QStringLiteral("%22"));
        g_rtf += "{\\field{\\*\\fldinst{HYPERLINK \"";
        appendEscaped(g_rtf, link);
        g_rtf += "\"}}{\\fldrslt ";
    }

    void writeCharacters(TextRange range, const CharacterFormat &format, QByteArrayView ending)
    {
        g_rtf += lookChange(g_said.look, format, g_header);
        g_said.look = format;
        for (const QChar character : QStringView(g_text.text()).sliced(range.start, range.length)) {
            const char16_t unit = character.unicode();
            if (unit == u'\n') {
                g_rtf += ending;
            } else if (unit == u'\f') {
                g_rtf += "\\page ";
            } else if (format.attachment) {
                writeAttachment(*format.attachment);
            } else {
                if (isWrittenByNumber(unit) && !std::exchange(g_said.isUnicodeAlone, true))
                    g_rtf += "\\uc0";
                appendEscaped(g_rtf, unit);
            }
        }
    }

    void writeAttachment(const Attachment &attachment)
    {
        g_rtf += "{{\\NeXTGraphic ";
        appendEscaped(g_rtf, g_attachments.keyOf(attachment));
        appendWord(g_rtf, " \\width", attachment.width);
        appendWord(g_rtf, " \\height", attachment.height);
        g_rtf += " \\appleattachmentpadding0 \\appleembedtype0 \\appleaqc\n}\\'ac}";
    }

    const AttributedText &g_text;
    RtfHeader g_header;
    AttachmentFiles g_attachments;
    QByteArray g_rtf;
    Said g_said;
};

} // namespace

QByteArray writeRtf(const AttributedText &text)
{
    return BodyWriter(text).write();
}

} // namespace tavrin::richtext
