// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CodePage.h"
#include "richtext/RtfColorTable.h"
#include "richtext/RtfFontTable.h"
#include "richtext/RtfListTable.h"
#include "richtext/RtfLook.h"
#include "richtext/RtfParagraph.h"
#include "richtext/RtfPicture.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfRows.h"
#include "richtext/RtfTextBuilder.h"
#include "richtext/RtfTokenizer.h"

#include <QHash>

#include <vector>

namespace tavrin::richtext {

/// Reads one document: keeps what holds in each group that is open, and gives every word and text to whom it
/// concerns.
class RtfParser
{
public:
    RtfParser(QByteArrayView rtf, const AttachmentSource &attachments);

    AttributedText parse();

private:
    /// What holds until a group's end, besides the paragraph.
    struct Group
    {
        RtfGroupPurpose purpose = RtfGroupPurpose::Body;
        bool mayBeSkipped = false; ///< It begins with \*: of a purpose that we need not know.
        bool isFresh = true;       ///< Nothing else stands in it yet.
        qint32 unicodeSkip = 1;
        RtfLook look;
    };
    /// A paragraph changes in few groups, so it is kept when it does.
    struct OuterParagraph
    {
        size_t depth;
        RtfParagraph paragraph;
    };
    struct Field
    {
        size_t depth;
        qint32 link;
    };

    Group &group() { return g_groups.back(); }
    RtfGroupPurpose purpose() const { return g_groups.back().purpose; }
    RtfGroupPurpose purposeAround() const;

    // Groups.
    void open();
    bool close();
    void beginPurpose(RtfGroupPurpose purpose);
    void endPurpose(RtfGroupPurpose purpose);
    void endInstruction();
    void endGraphic();
    void endPicture();
    void appendAttachment(Attachment attachment);

    // Words.
    bool isFallback();
    void word(const RtfToken &token);
    void symbol(char symbol);
    void textWord(RtfTextWord word, const RtfToken &token);
    void tableWord(RtfTableWord word, const RtfToken &token);
    void pictureWord(RtfPictureWord word, const RtfToken &token);
    void paragraphWord(RtfParagraphWord word, const RtfToken &token);
    void endParagraph(bool endsCell);
    ParagraphFormat paragraphFormat();
    ParagraphFormat lastParagraphFormat();

    // Text.
    void text(QByteArrayView text);
    void bodyText(QByteArrayView text);
    void bytes(QByteArrayView text);
    void byte(uchar byte);
    void finishBytes();
    void characters(QStringView text);
    bool isMarkOfAttachment(char16_t character);
    CodePageDecoder &decoder();
    const SharedFormat<CharacterFormat> &currentFormat();
    void forgetFormats();

    RtfTokenizer g_tokenizer;
    const AttachmentSource &g_attachments;
    RtfTextBuilder g_builder;

    std::vector<Group> g_groups;
    size_t g_tooDeep = 0; ///< Groups that are open below the deepest that is kept.
    RtfParagraph g_paragraph;
    std::vector<OuterParagraph> g_outerParagraphs;
    ParagraphFormat g_normalParagraph;

    int g_codePage = westernCodePage;
    qint32 g_defaultFont = -1;
    CodePages g_codePages;
    CodePageDecoder *g_decoder = nullptr; ///< For the font of g_decoderFont.
    qint32 g_decoderFont = -1;
    CodePageDecoder *g_unfinished = nullptr; ///< The one that waits for the next byte.
    QString g_decoded;
    qint64 g_fallback = 0; ///< So many characters repeat in bytes what was said in Unicode.

    RtfFontTable g_fonts;
    RtfColorTable g_colors;
    RtfListTable g_lists;
    RtfRows g_rows;

    std::vector<Field> g_fields;
    QStringList g_links;
    QString g_instruction;
    RtfPicture g_picture;
    RtfGraphic g_graphic;
    int g_pictureCount = 0;
    bool g_isMarkExpected = false; ///< One character more belongs to the attachment that came.

    QHash<RtfLook, SharedFormat<CharacterFormat>> g_formats;
    RtfLook g_formatLook;
    SharedFormat<CharacterFormat> g_format;
    bool g_isFormatKnown = false;
};

} // namespace tavrin::richtext
