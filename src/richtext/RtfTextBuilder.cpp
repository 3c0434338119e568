// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfTextBuilder.h"

#include <algorithm>

namespace tavrin::richtext {

RtfTextBuilder::RtfTextBuilder(qsizetype sizeOfRtf)
{
    constexpr qsizetype always = 65536;
    constexpr qsizetype bytesPerFormat = 32;
    g_formatsLeft = always + sizeOfRtf / bytesPerFormat;
}

bool RtfTextBuilder::takeFormat()
{
    return g_formatsLeft > 0 && g_formatsLeft-- > 0;
}

void RtfTextBuilder::append(QStringView text, const SharedFormat<CharacterFormat> &format)
{
    g_text += text;
    g_characters.append(text.size(), format);
}

void RtfTextBuilder::appendAscii(QByteArrayView text, const SharedFormat<CharacterFormat> &format)
{
    g_text += QLatin1StringView(text);
    g_characters.append(text.size(), format);
}

void RtfTextBuilder::endParagraph(const SharedFormat<CharacterFormat> &character,
                                  const ParagraphFormat &format)
{
    append(u"\n", character);
    g_paragraphs.append(g_text.size() - g_paragraphs.size(), shared(format));
}

AttributedText RtfTextBuilder::finish(const ParagraphFormat &last)
{
    g_paragraphs.append(g_text.size() + 1 - g_paragraphs.size(), shared(last));
    g_text.squeeze();
    return {std::move(g_text), std::move(g_characters), std::move(g_paragraphs)};
}

SharedFormat<ParagraphFormat> RtfTextBuilder::shared(const ParagraphFormat &format)
{
    const auto found = std::ranges::find_if(g_recent, [&format](const auto &one) { return *one == format; });
    if (found != g_recent.end())
        return *found;
    SharedFormat<ParagraphFormat> &next = g_recent[g_oldest];
    if (!takeFormat())
        return next;
    g_oldest = (g_oldest + 1) % g_recent.size();
    return next = SharedFormat(format);
}

} // namespace tavrin::richtext
