// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfColorTable.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tavrin::richtext {

namespace {

constexpr Color white{255, 255, 255};

quint8 byteOf(qint32 component)
{
    constexpr qint32 full = 100'000;
    return static_cast<quint8>((std::clamp(component, 0, full) * 255 + full / 2) / full);
}

} // namespace

void RtfColorTable::change(RtfTableWord word, const RtfToken &token)
{
    const auto part = static_cast<quint8>(std::clamp(token.number, 0, 255));
    Color color = g_next.value_or(Color());
    switch (word) {
    case RtfTableWord::Red:
        color.red = part;
        break;
    case RtfTableWord::Green:
        color.green = part;
        break;
    case RtfTableWord::Blue:
        color.blue = part;
        break;
    case RtfTableWord::Component:
        if (g_componentCount < g_components.size())
            g_components[g_componentCount++] = token.number;
        return;
    case RtfTableWord::GrayColorSpace:
        g_isGray = true;
        return;
    case RtfTableWord::ColorName:
        g_isNamed = true;
        return;
    default:
        return;
    }
    g_next = color;
}

void RtfColorTable::addText(QByteArrayView text, bool isExpanded)
{
    for (const char byte : text) {
        if (byte == ';')
            std::invoke(isExpanded ? &RtfColorTable::endExpandedColor : &RtfColorTable::endColor, this);
        else if (g_isNamed && g_name.size() < 64)
            g_name += byte;
    }
}

void RtfColorTable::endColor()
{
    g_colors.append(std::exchange(g_next, {}));
}

void RtfColorTable::endExpandedColor()
{
    std::optional<Color> color;
    const auto component = [this](size_t i) { return byteOf(g_components[i]); };
    if (g_isGray && g_componentCount >= 1)
        color = Color{
            component(0), component(0), component(0), g_componentCount > 1 ? component(1) : quint8(255)};
    else if (g_componentCount >= 3)
        color = Color{
            component(0), component(1), component(2), g_componentCount > 3 ? component(3) : quint8(255)};
    // The system's own colour of text is no colour of this text.
    const bool isTextColor = g_name.trimmed() == "textColor";
    if (isTextColor && g_expanded.size() < g_colors.size())
        g_colors[g_expanded.size()].reset();
    g_expanded.append(isTextColor ? std::nullopt : color);
    g_componentCount = 0;
    g_isGray = false;
    g_isNamed = false;
    g_name.clear();
}

std::optional<Color> RtfColorTable::color(qint32 number) const
{
    if (number < 0)
        return {};
    if (number < g_expanded.size() && g_expanded.at(number))
        return g_expanded.at(number);
    return number < g_colors.size() ? g_colors.at(number) : std::nullopt;
}

std::optional<Color> RtfColorTable::backgroundColor(qint32 number) const
{
    const std::optional<Color> found = color(number);
    return number == 1 && found == white ? std::nullopt : found;
}

} // namespace tavrin::richtext
