// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

namespace tavrin {

/// A colour in the screen's own RGB space, each component from 0 to 1.
struct Color
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    static constexpr Color white() { return {1, 1, 1, 1}; }

    friend bool operator==(const Color &, const Color &) = default;
};

} // namespace tavrin
