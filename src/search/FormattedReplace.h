// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "search/SearchKey.h"

#include <QByteArray>

#include <optional>
#include <span>

namespace tavrin {

/// A text in its two stored forms.
struct StoredText
{
    QString plain;
    QByteArray textRTFD; ///< Empty for a text without formatting.
};

/// The text with those parts of its plain form, which are in order, replaced; what stands around them keeps
/// its formatting. None when the formatting cannot be kept: its bytes cannot be read, or are of another text.
std::optional<StoredText>
replacedInText(const StoredText &text, std::span<const text::Match> parts, const QString &replacement);

} // namespace tavrin
