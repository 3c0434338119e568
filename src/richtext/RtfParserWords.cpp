// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfParser.h"

#include <limits>

namespace tavrin::richtext {

namespace {

constexpr int dosCodePage = 437;
constexpr int dosLatinCodePage = 850;

} // namespace

/// True when the token that came is the fallback of a character in Unicode.
bool RtfParser::isFallback()
{
    if (g_fallback == 0)
        return false;
    --g_fallback;
    return true;
}

void RtfParser::word(const RtfToken &token)
{
    if (purpose() == RtfGroupPurpose::Skipped)
        return;
    finishBytes();
    const RtfWord *found = rtfWord(token.bytes);
    const bool isUnicode = found && found->kind == RtfWordKind::Text
                           && found->value == static_cast<quint16>(RtfTextWord::UnicodeUnit);
    // Who writes no fallback where one is due loses nothing.
    if (isUnicode)
        g_fallback = 0;
    else if (isFallback())
        return;
    const bool isFirst = std::exchange(group().isFresh, false);
    const bool isOptional = std::exchange(group().mayBeSkipped, false);
    if (isOptional && (!found || found->kind != RtfWordKind::Group)) {
        group().purpose = RtfGroupPurpose::Skipped;
        return;
    }
    if (!found)
        return;
    const auto code = static_cast<char16_t>(found->value);
    switch (found->kind) {
    case RtfWordKind::Character:
        characters(QStringView(&code, 1));
        break;
    case RtfWordKind::Group:
        if (isFirst)
            beginPurpose(static_cast<RtfGroupPurpose>(found->value));
        break;
    case RtfWordKind::Text:
        textWord(static_cast<RtfTextWord>(found->value), token);
        break;
    case RtfWordKind::Look:
        if (purpose() == RtfGroupPurpose::Fonts && token.bytes == QByteArrayView("f"))
            g_fonts.begin(token.number);
        else
            group().look.change(static_cast<RtfLookWord>(found->value), token, g_defaultFont);
        break;
    case RtfWordKind::Paragraph:
        paragraphWord(static_cast<RtfParagraphWord>(found->value), token);
        break;
    case RtfWordKind::Cell:
        g_rows.change(static_cast<RtfCellWord>(found->value), token, g_colors);
        break;
    case RtfWordKind::Table:
        tableWord(static_cast<RtfTableWord>(found->value), token);
        break;
    case RtfWordKind::Picture:
        pictureWord(static_cast<RtfPictureWord>(found->value), token);
        break;
    }
}

void RtfParser::symbol(char symbol)
{
    const bool isEscape = symbol == '\\' || symbol == '{' || symbol == '}';
    if (!isEscape)
        finishBytes();
    if (symbol == '*') {
        group().mayBeSkipped = true;
        return;
    }
    if (isFallback())
        return;
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
        byte(static_cast<uchar>(symbol));
        break;
    case '\n':
    case '\r':
        endParagraph(false);
        break;
    case '\t':
        characters(u"\t");
        break;
    case '~':
        characters(u"\u00A0");
        break;
    case '_':
        characters(u"\u2011");
        break;
    case '-':
        characters(u"\u00AD");
        break;
    default:
        break;
    }
}

void RtfParser::textWord(RtfTextWord word, const RtfToken &token)
{
    using Word = RtfTextWord;
    switch (word) {
    case Word::UnicodeUnit: {
        const auto unit = static_cast<char16_t>(token.number);
        characters(QStringView(&unit, 1));
        g_fallback = group().unicodeSkip;
        break;
    }
    case Word::UnicodeSkip:
        group().unicodeSkip = std::max(token.number, 0);
        break;
    case Word::Ansi:
        g_codePage = westernCodePage;
        break;
    case Word::Mac:
        g_codePage = macRomanCodePage;
        break;
    case Word::Pc:
        g_codePage = dosCodePage;
        break;
    case Word::Pca:
        g_codePage = dosLatinCodePage;
        break;
    case Word::CodePage:
        if (token.number > 0)
            g_codePage = token.number;
        break;
    case Word::DefaultFont:
        g_defaultFont = token.number;
        group().look.font = token.number;
        break;
    case Word::DefaultTab:
        g_normalParagraph.tabInterval = token.number;
        g_paragraph.format.tabInterval = token.number;
        break;
    case Word::Paragraph:
    case Word::NestedCell:
        endParagraph(false);
        break;
    case Word::Cell:
        endParagraph(true);
        break;
    case Word::Row:
        if (g_builder.isInParagraph())
            endParagraph(true);
        g_rows.endRow();
        break;
    case Word::LastRow:
        g_rows.setLastRow();
        break;
    case Word::Root:
        break;
    }
    g_decoder = word >= Word::Ansi && word <= Word::CodePage ? nullptr : g_decoder;
}

void RtfParser::tableWord(RtfTableWord word, const RtfToken &token)
{
    switch (purpose()) {
    case RtfGroupPurpose::Fonts:
        if (word == RtfTableWord::FontCharset)
            g_fonts.setCharset(token.number);
        else if (word == RtfTableWord::FontCodePage)
            g_fonts.setCodePage(token.number);
        break;
    case RtfGroupPurpose::Colors:
    case RtfGroupPurpose::ExpandedColors:
        g_colors.change(word, token);
        break;
    case RtfGroupPurpose::Lists:
    case RtfGroupPurpose::ListLevel:
        g_lists.change(word, token, false);
        break;
    case RtfGroupPurpose::ListOverrides:
        g_lists.change(word, token, true);
        break;
    default:
        break;
    }
}

void RtfParser::pictureWord(RtfPictureWord word, const RtfToken &token)
{
    if (purpose() == RtfGroupPurpose::Picture)
        g_picture.change(word, token);
    else if (purpose() == RtfGroupPurpose::Graphic)
        g_graphic.change(word, token);
}

void RtfParser::paragraphWord(RtfParagraphWord word, const RtfToken &token)
{
    if (purpose() == RtfGroupPurpose::ListOverrides) {
        if (word == RtfParagraphWord::List)
            g_lists.setNumber(token.number);
        return;
    }
    if (purpose() != RtfGroupPurpose::Body)
        return;
    const size_t depth = g_groups.size();
    const bool isKept = !g_outerParagraphs.empty() && g_outerParagraphs.back().depth == depth;
    if (depth > 2 && !isKept)
        g_outerParagraphs.push_back({depth, g_paragraph});
    g_paragraph.change(word, token, g_normalParagraph);
}

void RtfParser::endParagraph(bool endsCell)
{
    if (purpose() != RtfGroupPurpose::Body)
        return;
    g_isMarkExpected = false;
    ParagraphFormat format = paragraphFormat();
    if (endsCell)
        format.cell = g_rows.cell();
    else if (format.cell.table == 0)
        g_rows.leave();
    g_builder.endParagraph(currentFormat(), format);
    if (endsCell)
        g_rows.endCell();
}

} // namespace tavrin::richtext
