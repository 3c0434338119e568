// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <memory>
#include <optional>

class QMimeData;
class QTextCursor;

namespace tavrin {

/// What is selected, in every form that another program may want.
std::unique_ptr<QMimeData> mimeDataOfSelection(const QTextCursor &cursor);

/// The formatted text or the pictures that the data hold. `base`: how text looks that does not say it. None
/// when there is but plain text.
std::optional<richtext::AttributedText> formattedTextOf(const QMimeData &data,
                                                        const richtext::CharacterFormat &base);

/// Whether formattedTextOf() has something.
bool hasFormattedText(const QMimeData &data);

/// Takes the attachments out; true when there were any.
bool removeAttachments(richtext::AttributedText &text);

} // namespace tavrin
