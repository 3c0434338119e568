// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfParagraph.h"

#include <algorithm>

namespace tavrin::richtext {

namespace {

constexpr qint32 longest = 100'000'000;
constexpr qsizetype mostTabStops = 1000;

} // namespace

void RtfParagraph::change(RtfParagraphWord word, const RtfToken &token, const ParagraphFormat &normal)
{
    using Word = RtfParagraphWord;
    if (changeLength(word, std::clamp(token.number, -longest, longest)) || changeAlignment(word))
        return;
    switch (word) {
    case Word::Default:
        *this = {normal};
        break;
    case Word::LineHeight:
        lineHeight = std::clamp(token.number, -longest, longest);
        changeLineHeight(false);
        break;
    case Word::LineIsMultiple:
        changeLineHeight(token.number != 0);
        break;
    case Word::Tab:
        if (format.tabStops.size() < mostTabStops)
            format.tabStops.append({std::clamp(token.number, -longest, longest), nextTab});
        nextTab = TabKind::Left;
        break;
    case Word::TabCenter:
        nextTab = TabKind::Center;
        break;
    case Word::TabRight:
        nextTab = TabKind::Right;
        break;
    case Word::TabDecimal:
        nextTab = TabKind::Decimal;
        break;
    case Word::List:
        format.list.identifier = std::max(token.number, 0);
        break;
    case Word::ListLevel:
        format.list.level = std::max(token.number, 0);
        break;
    case Word::InTable:
        format.cell.table = !token.hasNumber || token.number != 0 ? 1 : 0;
        break;
    case Word::TableDepth:
        if (token.number == 0)
            format.cell.table = 0;
        break;
    default:
        break;
    }
}

bool RtfParagraph::changeLength(RtfParagraphWord word, qint32 length)
{
    using Word = RtfParagraphWord;
    switch (word) {
    case Word::HeadIndent:
        format.headIndent = length;
        return true;
    case Word::FirstLineIndent:
        format.firstLineIndent = length;
        return true;
    case Word::TailIndent:
        format.tailIndent = length;
        return true;
    case Word::SpaceBefore:
        format.spaceBefore = length;
        return true;
    case Word::SpaceAfter:
        format.spaceAfter = length;
        return true;
    case Word::MinimumLineHeight:
        format.minimumLineHeight = length;
        return true;
    case Word::MaximumLineHeight:
        format.maximumLineHeight = length;
        return true;
    case Word::LineSpacing:
        format.lineSpacing = length;
        return true;
    case Word::TabInterval:
        format.tabInterval = length;
        return true;
    default:
        return false;
    }
}

bool RtfParagraph::changeAlignment(RtfParagraphWord word)
{
    using Word = RtfParagraphWord;
    switch (word) {
    case Word::AlignLeft:
        format.alignment = Alignment::Left;
        return true;
    case Word::AlignCenter:
        format.alignment = Alignment::Center;
        return true;
    case Word::AlignRight:
        format.alignment = Alignment::Right;
        return true;
    case Word::AlignJustified:
        format.alignment = Alignment::Justified;
        return true;
    case Word::AlignNatural:
        format.alignment = Alignment::Natural;
        return true;
    case Word::DirectionNatural:
        format.direction = Direction::Natural;
        return true;
    case Word::LeftToRight:
        format.direction = Direction::LeftToRight;
        return true;
    case Word::RightToLeft:
        format.direction = Direction::RightToLeft;
        return true;
    default:
        return false;
    }
}

void RtfParagraph::changeLineHeight(bool isMultiple)
{
    format.lineMultiple = isMultiple ? lineHeight : 0;
    format.minimumLineHeight = isMultiple ? 0 : std::abs(lineHeight);
    format.maximumLineHeight = isMultiple || lineHeight > 0 ? 0 : -lineHeight;
}

} // namespace tavrin::richtext
