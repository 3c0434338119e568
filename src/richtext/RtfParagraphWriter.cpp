// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfParagraphWriter.h"

#include "richtext/RtfEscape.h"

#include <algorithm>
#include <iterator>

namespace tavrin::richtext {

namespace {

void appendTabStops(QByteArray &rtf, const QList<TabStop> &tabStops)
{
    constexpr const char *kinds[] = {"", "\\tqc", "\\tqr", "\\tqdec"};
    for (const TabStop &tab : tabStops) {
        rtf += kinds[static_cast<size_t>(tab.kind)];
        appendWord(rtf, "\\tx", tab.position);
    }
}

void appendLengths(QByteArray &rtf, const ParagraphFormat &format)
{
    const std::pair<const char *, qint32> lengths[] = {
        {"\\pardeftab", format.tabInterval},
        {"\\li", format.headIndent},
        {"\\fi", format.firstLineIndent},
        {"\\ri", format.tailIndent},
        {"\\sl", format.lineMultiple},
        {"\\slminimum", format.minimumLineHeight},
        {"\\slmaximum", format.maximumLineHeight},
        {"\\slleading", format.lineSpacing},
        {"\\sb", format.spaceBefore},
        {"\\sa", format.spaceAfter},
    };
    for (const auto &[word, length] : lengths) {
        if (length == 0)
            continue;
        appendWord(rtf, word, length);
        if (length == format.lineMultiple && QByteArrayView(word) == "\\sl")
            rtf += "\\slmult1";
    }
}

void appendCell(QByteArray &rtf, const CellStyle &cell, const RtfHeader &header)
{
    constexpr const char *alignments[] = {"\\clvertalt", "\\clvertalc", "\\clvertalb"};
    constexpr const char *borders[] = {" \\clbrdrt", " \\clbrdrl", " \\clbrdrb", " \\clbrdrr"};
    constexpr const char *paddings[] = {"\\clpadt", "\\clpadl", "\\clpadb", "\\clpadr"};
    constexpr const char *across[] = {"", "\\clmgf", "\\clmrg"};
    constexpr const char *down[] = {"", "\\clvmgf", "\\clvmrg"};
    rtf += across[static_cast<size_t>(cell.horizontal)];
    rtf += down[static_cast<size_t>(cell.vertical)];
    rtf += alignments[static_cast<size_t>(cell.alignment)];
    if (cell.background)
        appendWord(rtf, " \\clcbpat", header.color(cell.background));
    appendWord(rtf, " \\clwWidth", cell.width);
    rtf += "\\clftsWidth3";
    for (size_t i = 0; i < cell.sides.size(); ++i) {
        const CellSide &side = cell.sides[i];
        rtf += borders[i];
        rtf += side.borderWidth == 0 ? "\\brdrnil" : "\\brdrs";
        if (side.borderWidth != 0)
            appendWord(rtf, "\\brdrw", side.borderWidth);
        if (side.borderColor)
            appendWord(rtf, "\\brdrcf", header.color(side.borderColor));
    }
    for (size_t i = 0; i < cell.sides.size(); ++i) {
        if (cell.sides[i].padding != 0)
            appendWord(rtf, paddings[i], cell.sides[i].padding);
    }
}

} // namespace

QByteArray paragraphWords(const ParagraphFormat &format, const RtfHeader &header)
{
    constexpr const char *alignments[] = {"", "\\ql", "\\qc", "\\qr", "\\qj"};
    constexpr const char *directions[] = {"\\pardirnatural", "\\ltrpar", "\\rtlpar"};
    QByteArray rtf = "\\pard";
    if (format.cell.table != 0)
        rtf += "\\intbl\\itap1";
    appendTabStops(rtf, format.tabStops);
    appendLengths(rtf, format);
    rtf += alignments[static_cast<size_t>(format.alignment)];
    rtf += directions[static_cast<size_t>(format.direction)];
    rtf += "\\partightenfactor0\n";
    if (format.list.identifier != 0) {
        appendWord(rtf, "\\ls", header.list(format.list));
        appendWord(rtf, "\\ilvl", format.list.level);
    }
    return rtf;
}

QByteArray rowDefinition(const QList<CellStyle> &cells, const RtfHeader &header)
{
    // Half the gap between two cells hangs out on the left.
    constexpr qint32 gap = 108;
    QByteArray rtf = "\n\\itap1\\trowd \\taflags1 ";
    appendWord(rtf, "\\trgaph", gap);
    appendWord(rtf, "\\trleft", -gap);
    rtf += " \\trbrdrt\\brdrnil \\trbrdrl\\brdrnil \\trbrdrr\\brdrnil\n";
    qint32 right = -gap;
    for (const CellStyle &cell : cells) {
        appendCell(rtf, cell, header);
        right += cell.width;
        appendWord(rtf, " \\gaph\\cellx", right);
        rtf += '\n';
    }
    return rtf;
}

} // namespace tavrin::richtext
