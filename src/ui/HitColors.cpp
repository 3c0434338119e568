// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/HitColors.h"

#include <algorithm>
#include <cmath>

namespace tavrin {

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](float part) {
        return part <= 0.04045F ? part / 12.92 : std::pow((double(part) + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

HitColors::HitColors(const QColor &color, const QColor &paper)
    : mark(paper.lightnessF() > 0.5F ? paper.darker(112) : paper.lighter(190))
    , text(readableColor(color, mark))
{}

QColor readableColor(const QColor &color, const QColor &background)
{
    constexpr double enough = 4.5;
    constexpr float step = 0.03F;
    const float towards = luminance(background) > 0.18 ? -step : step;
    QColor readable = color.toHsl();
    while (contrast(readable, background) < enough) {
        const float lightness = readable.lightnessF() + towards;
        if (lightness < 0 || lightness > 1)
            return towards < 0 ? Qt::black : Qt::white;
        readable.setHslF(std::max(0.0F, readable.hslHueF()), readable.hslSaturationF(), lightness);
    }
    return readable;
}

} // namespace tavrin
