// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/RecordText.h"
#include "search/SearchKey.h"

namespace tavrin {

/// The text with those parts of its plain form, which are in order, replaced; what stands around them keeps
/// its formatting. None when the formatting cannot be kept: its bytes cannot be read, or are of another text.
std::optional<RecordText>
replacedInText(const RecordText &text, std::span<const text::Match> parts, const QString &replacement);

} // namespace tavrin
