// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CharacterFormat.h"
#include "richtext/RtfHeader.h"

#include <optional>

namespace tavrin::richtext {

/// The words that turn the look of `before` into that of `after`; without `before` they say all of it. Links
/// and attachments are no looks.
QByteArray lookChange(const std::optional<CharacterFormat> &before,
                      const CharacterFormat &after,
                      const RtfHeader &header);

} // namespace tavrin::richtext
