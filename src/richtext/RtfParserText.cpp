// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfParser.h"

#include <algorithm>
#include <cstring>

namespace tavrin::richtext {

namespace {

/// How many bytes at the front are ASCII.
qsizetype asciiLength(QByteArrayView text)
{
    qsizetype length = 0;
    for (; length + 8 <= text.size(); length += 8) {
        quint64 word = 0;
        std::memcpy(&word, text.data() + length, sizeof(word));
        if ((word & 0x8080808080808080U) != 0)
            break;
    }
    while (length < text.size() && static_cast<uchar>(text[length]) < 0x80)
        ++length;
    return length;
}

} // namespace

void RtfParser::text(QByteArrayView text)
{
    const qsizetype skipped = std::min<qsizetype>(g_fallback, text.size());
    g_fallback -= skipped;
    text = text.sliced(skipped);
    group().isFresh = false;
    switch (purpose()) {
    case RtfGroupPurpose::Body:
        bodyText(text);
        break;
    case RtfGroupPurpose::Picture:
        g_picture.addHex(text);
        break;
    case RtfGroupPurpose::Colors:
        g_colors.addText(text, false);
        break;
    case RtfGroupPurpose::ExpandedColors:
        g_colors.addText(text, true);
        break;
    case RtfGroupPurpose::Graphic:
        g_graphic.addBytes(text);
        break;
    case RtfGroupPurpose::Fonts:
        for (qsizetype end = text.indexOf(';'); end >= 0; end = text.indexOf(';')) {
            bytes(text.first(end));
            finishBytes();
            g_fonts.end();
            text = text.sliced(end + 1);
        }
        bytes(text);
        break;
    case RtfGroupPurpose::FieldInstruction:
    case RtfGroupPurpose::ListMarker:
        bytes(text);
        break;
    default:
        break;
    }
}

void RtfParser::bodyText(QByteArrayView text)
{
    while (!text.isEmpty()) {
        const qsizetype length = g_unfinished || g_isMarkExpected ? 0 : asciiLength(text);
        if (length > 0)
            g_builder.appendAscii(text.first(length), currentFormat());
        else
            byte(static_cast<uchar>(text.front()));
        text = text.sliced(std::max<qsizetype>(length, 1));
    }
}

void RtfParser::bytes(QByteArrayView text)
{
    for (const char one : text)
        byte(static_cast<uchar>(one));
}

void RtfParser::byte(uchar byte)
{
    if (purpose() == RtfGroupPurpose::Graphic) {
        const char bytes[] = {static_cast<char>(byte)};
        g_graphic.addBytes(QByteArrayView(bytes, 1));
        return;
    }
    if (isMarkOfAttachment(byte))
        return;
    CodePageDecoder &taker = g_unfinished ? *g_unfinished : decoder();
    taker.take(byte, g_decoded);
    g_unfinished = taker.isInside() ? &taker : nullptr;
    if (g_decoded.isEmpty())
        return;
    characters(g_decoded);
    g_decoded.resize(0);
}

void RtfParser::finishBytes()
{
    if (!g_unfinished)
        return;
    std::exchange(g_unfinished, nullptr)->finish(g_decoded);
    characters(g_decoded);
    g_decoded.resize(0);
}

void RtfParser::characters(QStringView text)
{
    switch (purpose()) {
    case RtfGroupPurpose::Body:
        if (!isMarkOfAttachment(text.size() == 1 ? text.front().unicode() : u'\0'))
            g_builder.append(text, currentFormat());
        break;
    case RtfGroupPurpose::Fonts:
        g_fonts.addName(text);
        break;
    case RtfGroupPurpose::FieldInstruction:
        g_instruction += text;
        break;
    case RtfGroupPurpose::ListMarker:
        g_lists.addMarker(text);
        break;
    case RtfGroupPurpose::Graphic:
        g_graphic.addText(text);
        break;
    default:
        break;
    }
}

/// Behind the name of an attachment stands one character, in whose place the attachment is.
bool RtfParser::isMarkOfAttachment(char16_t character)
{
    constexpr char16_t mark = 0xAC;
    if (!std::exchange(g_isMarkExpected, false))
        return false;
    return character == mark || character == attachmentCharacter;
}

CodePageDecoder &RtfParser::decoder()
{
    const bool isFontTable = purpose() == RtfGroupPurpose::Fonts;
    if (isFontTable)
        return g_codePages.decoder(g_fonts.codePageOfNext().value_or(g_codePage));
    const qint32 font = group().look.font;
    if (!g_decoder || g_decoderFont != font) {
        const RtfFont *found = g_fonts.font(font);
        g_decoderFont = font;
        g_decoder = &g_codePages.decoder(found ? found->codePage.value_or(g_codePage) : g_codePage);
    }
    return *g_decoder;
}

} // namespace tavrin::richtext
