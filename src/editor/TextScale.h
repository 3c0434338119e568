// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>

namespace tavrin {

/// The sizes at which a window shows its texts, in percent; a size's tag is its place here.
inline constexpr std::array textScalePercents{25, 50, 75, 90, 100, 125, 150, 200, 300, 400};
inline constexpr int lastTextScaleTag = static_cast<int>(textScalePercents.size()) - 1;
inline constexpr int usualTextScaleTag = 4;

/// 1 for the size that is stored. A tag beyond either end is that end's.
inline constexpr double textScaleForTag(int tag)
{
    return textScalePercents.at(static_cast<size_t>(std::clamp(tag, 0, lastTextScaleTag))) / 100.0;
}

} // namespace tavrin
