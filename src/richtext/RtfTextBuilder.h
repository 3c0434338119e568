// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <array>

namespace tavrin::richtext {

/// Puts a text together from front to back.
///
/// A few bytes can ask for a new format, which is a hundred times as large; so the number of different ones
/// is bounded by the size of what is read. No real document comes near; one that does keeps all of its text.
class RtfTextBuilder
{
public:
    explicit RtfTextBuilder(qsizetype sizeOfRtf);

    /// False when there are too many formats already.
    bool takeFormat();

    void append(QStringView text, const SharedFormat<CharacterFormat> &format);
    void appendAscii(QByteArrayView text, const SharedFormat<CharacterFormat> &format);
    void endParagraph(const SharedFormat<CharacterFormat> &character, const ParagraphFormat &format);
    /// True when the paragraph that has not ended has characters.
    bool isInParagraph() const { return g_text.size() > g_paragraphs.size(); }

    /// `last` is the format of the paragraph that has not ended.
    AttributedText finish(const ParagraphFormat &last);

private:
    SharedFormat<ParagraphFormat> shared(const ParagraphFormat &format);

    QString g_text;
    CharacterRuns g_characters;
    ParagraphRuns g_paragraphs;
    qsizetype g_formatsLeft;
    std::array<SharedFormat<ParagraphFormat>, 8> g_recent; ///< Documents alternate between a few.
    size_t g_oldest = 0;
};

} // namespace tavrin::richtext
