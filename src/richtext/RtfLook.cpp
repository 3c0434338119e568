// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfLook.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace tavrin::richtext {

namespace {

// What no text means and some arithmetic could not bear.
constexpr qint32 largest = 100'000'000;

qint32 bounded(qint32 number)
{
    return std::clamp(number, -largest, largest);
}

bool isOn(const RtfToken &token)
{
    return !token.hasNumber || token.number != 0;
}

/// The kind of line is in the low byte of a mask, its pattern in the next, and by words in one bit more.
Underline underlineOfMask(qint32 mask)
{
    switch ((mask & 0xF00) >> 8) {
    case 1:
        return Underline::Dotted;
    case 2:
        return Underline::Dashed;
    case 3:
        return Underline::DashDotted;
    case 4:
        return Underline::DashDotDotted;
    default:
        break;
    }
    const qint32 kind = mask & 0xFF;
    if (kind == 0)
        return Underline::None;
    if (mask & 0x8000)
        return Underline::Words;
    return kind == 9 ? Underline::Double : kind == 2 ? Underline::Thick : Underline::Single;
}

} // namespace

void RtfLook::change(RtfLookWord word, const RtfToken &token, qint32 defaultFont)
{
    using Word = RtfLookWord;
    switch (word) {
    case Word::Plain: {
        const qint32 keptLink = link;
        *this = {};
        font = defaultFont;
        link = keptLink;
        return;
    }
    case Word::Font:
        font = token.number;
        return;
    case Word::Size:
        size = token.hasNumber && token.number > 0 ? std::min(token.number, 100'000) * 500 : 12000;
        return;
    case Word::MilliSize:
        size = std::clamp(token.number, 1, 50'000'000);
        return;
    case Word::Bold:
        bold = isOn(token);
        return;
    case Word::Italic:
        italic = isOn(token);
        return;
    case Word::Foreground:
        foreground = token.number;
        return;
    case Word::Background:
    case Word::Highlight:
        background = token.number;
        isHighlighted = word == Word::Highlight;
        return;
    case Word::Ligature:
        ligatures = static_cast<Ligatures>(std::clamp(token.number, 0, 2));
        return;
    default:
        changeLine(word, token);
        changePlace(word, token);
    }
}

void RtfLook::changeLine(RtfLookWord word, const RtfToken &token)
{
    using Word = RtfLookWord;
    if (word >= Word::Underline && word <= Word::UnderlineDashDotDotted) {
        const int kind = static_cast<int>(word) - static_cast<int>(Word::Underline) + 1;
        underline = isOn(token) ? static_cast<Underline>(kind) : Underline::None;
    } else if (word == Word::UnderlineNone) {
        underline = Underline::None;
    } else if (word == Word::UnderlineStyle) {
        underline = underlineOfMask(token.number);
    } else if (word == Word::UnderlineColor) {
        underlineColor = token.number;
    } else if (word == Word::Strike) {
        strike = isOn(token) ? Strike::Single : Strike::None;
    } else if (word == Word::StrikeDouble) {
        // \strike0\striked0 ends either; a \striked0 behind a \strike ends nothing.
        if (isOn(token))
            strike = Strike::Double;
        else if (strike == Strike::Double)
            strike = Strike::None;
    } else if (word == Word::StrikeStyle) {
        strike = (token.number & 0xFF) == 9   ? Strike::Double
                 : (token.number & 0xFF) == 0 ? Strike::None
                                              : Strike::Single;
    } else if (word == Word::StrikeColor) {
        strikeColor = token.number;
    }
}

void RtfLook::changePlace(RtfLookWord word, const RtfToken &token)
{
    using Word = RtfLookWord;
    constexpr qint32 usualRise = 6;
    if (word == Word::Super || word == Word::Sub)
        script = !isOn(token) ? Script::Normal : word == Word::Super ? Script::Super : Script::Sub;
    else if (word == Word::NoSuperSub)
        script = Script::Normal;
    else if (word == Word::Up)
        baseline = token.hasNumber ? bounded(token.number) : usualRise;
    else if (word == Word::Down)
        baseline = token.hasNumber ? -bounded(token.number) : -usualRise;
    else if (word == Word::Kerning)
        isUnkerned = token.hasNumber && token.number == 0;
    else if (word == Word::ExpandQuarterPoints)
        expansion = bounded(token.number) * 5;
    else if (word == Word::ExpandTwips)
        expansion = bounded(token.number);
}

CharacterFormat
RtfLook::format(const RtfFontTable &fonts, const RtfColorTable &colors, const QStringList &links) const
{
    CharacterFormat format;
    if (const RtfFont *face = fonts.font(font)) {
        format.family = face->face.family;
        format.bold = face->face.bold;
        format.italic = face->face.italic;
    }
    format.size = size;
    format.bold = format.bold || bold;
    format.italic = format.italic || italic;
    format.underline = underline;
    format.strike = strike;
    format.script = script;
    format.ligatures = ligatures;
    format.foreground = colors.color(foreground);
    format.background = isHighlighted ? colors.color(background) : colors.backgroundColor(background);
    format.underlineColor = colors.color(underlineColor);
    format.strikeColor = colors.color(strikeColor);
    format.baseline = baseline;
    if (expansion != 0)
        format.kerning = expansion;
    else if (isUnkerned)
        format.kerning = 0;
    if (link >= 0)
        format.link = links.at(link);
    return format;
}

// They are compared and looked up at every change of the look.
static_assert(std::has_unique_object_representations_v<RtfLook>);

bool operator==(const RtfLook &one, const RtfLook &other)
{
    return std::memcmp(&one, &other, sizeof(RtfLook)) == 0;
}

size_t qHash(const RtfLook &look, size_t seed)
{
    return qHashBits(&look, sizeof(look), seed);
}

} // namespace tavrin::richtext
