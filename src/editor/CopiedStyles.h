// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CharacterFormat.h"
#include "richtext/ParagraphFormat.h"

#include <optional>

namespace tavrin {

/// What Copy Style and Copy Ruler took, for all windows that share it.
struct CopiedStyles
{
    std::optional<richtext::CharacterFormat> style;
    std::optional<richtext::ParagraphFormat> ruler;
};

} // namespace tavrin
