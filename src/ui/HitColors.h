// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

namespace tavrin {

/// How a hit looks on a paper: the mark behind it, and its text in the colour that can be read there.
struct HitColors
{
    HitColors(const QColor &color, const QColor &paper);

    QColor mark;
    QColor text;
};

/// A colour of the same hue that can be read on that background, as near to the given one as that allows.
QColor readableColor(const QColor &color, const QColor &background);

} // namespace tavrin
