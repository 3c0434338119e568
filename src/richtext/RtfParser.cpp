// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfParser.h"

#include "richtext/AttachmentName.h"
#include "richtext/HyperlinkField.h"

#include <algorithm>

namespace tavrin::richtext {

namespace {

// Deeper groups are followed, but what they change outlasts them.
constexpr size_t deepestGroup = 5000;

bool isAboutField(RtfGroupPurpose purpose)
{
    return purpose == RtfGroupPurpose::Field || purpose == RtfGroupPurpose::FieldInstruction
           || purpose == RtfGroupPurpose::FieldResult;
}

} // namespace

RtfParser::RtfParser(QByteArrayView rtf, const AttachmentSource &attachments)
    : g_tokenizer(rtf)
    , g_attachments(attachments)
    , g_builder(rtf.size())
    , g_groups(1)
{}

AttributedText RtfParser::parse()
{
    using Kind = RtfToken::Kind;
    for (RtfToken token = g_tokenizer.next(); token.kind != Kind::End; token = g_tokenizer.next()) {
        switch (token.kind) {
        case Kind::Open:
            open();
            break;
        case Kind::Close:
            if (!close())
                return g_builder.finish(lastParagraphFormat());
            break;
        case Kind::Word:
            word(token);
            break;
        case Kind::Symbol:
            symbol(token.bytes.front());
            break;
        case Kind::Byte:
            if (!isFallback())
                byte(static_cast<uchar>(token.number));
            break;
        case Kind::Text:
            text(token.bytes);
            break;
        case Kind::Binary:
            if (!isFallback() && purpose() == RtfGroupPurpose::Picture)
                g_picture.addBytes(token.bytes);
            break;
        case Kind::End:
            break;
        }
    }
    const ParagraphFormat last = lastParagraphFormat();
    g_tooDeep = 0;
    while (close()) {
    }
    return g_builder.finish(last);
}

RtfGroupPurpose RtfParser::purposeAround() const
{
    return g_groups.size() >= 3 ? g_groups[g_groups.size() - 3].purpose : RtfGroupPurpose::Body;
}

void RtfParser::open()
{
    finishBytes();
    g_fallback = 0;
    g_isMarkExpected = false;
    if (g_groups.size() >= deepestGroup) {
        ++g_tooDeep;
        return;
    }
    g_groups.push_back(g_groups.back());
    group().mayBeSkipped = false;
    group().isFresh = true;
}

bool RtfParser::close()
{
    finishBytes();
    g_fallback = 0;
    g_isMarkExpected = false;
    if (g_tooDeep > 0) {
        --g_tooDeep;
        return true;
    }
    const size_t depth = g_groups.size();
    const RtfGroupPurpose ended = purpose();
    // The document's own group lies in the one that was there before it.
    if (depth <= 2)
        return false;
    g_groups.pop_back();
    if (!g_outerParagraphs.empty() && g_outerParagraphs.back().depth == depth) {
        g_paragraph = std::move(g_outerParagraphs.back().paragraph);
        g_outerParagraphs.pop_back();
    }
    if (ended == RtfGroupPurpose::Fonts)
        g_fonts.end();
    if (ended != purpose())
        endPurpose(ended);
    if (!g_fields.empty() && g_fields.back().depth == depth)
        g_fields.pop_back();
    return true;
}

void RtfParser::beginPurpose(RtfGroupPurpose begun)
{
    using Purpose = RtfGroupPurpose;
    if (purpose() == Purpose::FieldInstruction && isAboutField(begun))
        return;
    switch (begun) {
    case Purpose::Field:
        g_fields.push_back({g_groups.size(), -1});
        begun = purpose();
        break;
    case Purpose::FieldResult:
        begun = purpose();
        if (!g_fields.empty() && g_fields.back().link >= 0)
            group().look.link = g_fields.back().link;
        break;
    case Purpose::UnicodeAlternative:
        begun = purpose() == Purpose::Alternatives ? purposeAround() : purpose();
        break;
    case Purpose::Body:
        begun = purpose();
        break;
    case Purpose::ListLevel:
        g_lists.beginLevel();
        break;
    case Purpose::Picture:
        g_picture = {};
        break;
    case Purpose::Graphic:
        g_graphic = {};
        break;
    default:
        break;
    }
    group().purpose = begun;
}

void RtfParser::endPurpose(RtfGroupPurpose ended)
{
    using Purpose = RtfGroupPurpose;
    switch (ended) {
    case Purpose::Fonts:
    case Purpose::Colors:
    case Purpose::ExpandedColors:
        forgetFormats();
        break;
    case Purpose::ListMarker:
        g_lists.endMarker();
        break;
    case Purpose::FieldInstruction:
        endInstruction();
        break;
    case Purpose::Graphic:
        endGraphic();
        break;
    case Purpose::Picture:
        endPicture();
        break;
    default:
        break;
    }
}

void RtfParser::endInstruction()
{
    const QString link = linkOfInstruction(g_instruction);
    g_instruction.clear();
    if (link.isEmpty() || g_fields.empty())
        return;
    g_fields.back().link = static_cast<qint32>(g_links.size());
    g_links.append(link);
}

void RtfParser::endGraphic()
{
    const QString key = g_graphic.name();
    const QByteArray bytes = g_attachments ? g_attachments(key) : QByteArray();
    appendAttachment({nameOfAttachmentKey(key), bytes, g_graphic.width(), g_graphic.height()});
    g_isMarkExpected = true;
}

void RtfParser::endPicture()
{
    if (!g_picture.isEmpty())
        appendAttachment(g_picture.attachment(++g_pictureCount));
    g_picture = {};
}

void RtfParser::appendAttachment(Attachment attachment)
{
    if (purpose() != RtfGroupPurpose::Body)
        return;
    SharedFormat<CharacterFormat> shared = currentFormat();
    if (g_builder.takeFormat()) {
        CharacterFormat format = *shared;
        format.attachment = std::move(attachment);
        shared = SharedFormat(std::move(format));
    }
    g_builder.append(QStringView(&attachmentCharacter, 1), shared);
}

const SharedFormat<CharacterFormat> &RtfParser::currentFormat()
{
    const RtfLook &look = group().look;
    if (g_isFormatKnown && g_formatLook == look)
        return g_format;
    g_formatLook = look;
    g_isFormatKnown = true;
    const auto found = g_formats.constFind(look);
    if (found != g_formats.cend())
        g_format = *found;
    else if (g_builder.takeFormat())
        g_format = *g_formats.insert(look, SharedFormat(look.format(g_fonts, g_colors, g_links)));
    else
        g_format = {};
    return g_format;
}

void RtfParser::forgetFormats()
{
    g_formats.clear();
    g_isFormatKnown = false;
    g_decoder = nullptr;
}

ParagraphFormat RtfParser::paragraphFormat()
{
    ParagraphFormat format = g_paragraph.format;
    ListItem &list = format.list;
    if (list.identifier == 0) {
        list = {};
    } else {
        list.levels = g_lists.levels(list.identifier);
        list.level = std::min(list.level, static_cast<qint32>(list.levels.size()) - 1);
    }
    if (format.cell.table != 0)
        format.cell = g_rows.cell();
    return format;
}

ParagraphFormat RtfParser::lastParagraphFormat()
{
    ParagraphFormat format = paragraphFormat();
    // Behind the last row of a table stands an empty paragraph.
    if (!g_builder.isInParagraph())
        format.cell = {};
    return format;
}

} // namespace tavrin::richtext
