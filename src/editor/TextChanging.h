// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/TextFormats.h"

#include <QTextBlock>

#include <functional>

class QTextCursor;

namespace tavrin {

using LookChange = std::function<void(richtext::CharacterFormat &)>;
using ParagraphChange = std::function<void(richtext::ParagraphFormat &)>;

/// Changes the look of what is selected, in one step that can be undone; of what is typed next, when nothing
/// is. Formats that the change leaves as they were are not touched.
void changeLook(QTextCursor &cursor, const LookChange &change);
/// The same for a range of the document's positions.
void changeLook(QTextDocument &document, int start, int end, const LookChange &change);

/// Changes the paragraphs that the selection, or the cursor, touches; one step.
void changeParagraphs(QTextCursor &cursor, const ParagraphChange &change);

/// Whether all that is selected is so; what is typed next, when nothing is.
bool isWholly(const QTextCursor &cursor, const std::function<bool(const richtext::CharacterFormat &)> &is);

/// The look of the first selected character, or of what is typed next.
richtext::CharacterFormat lookAt(const QTextCursor &cursor);
/// The format of the first selected paragraph.
richtext::ParagraphFormat paragraphAt(const QTextCursor &cursor);

void setParagraph(const QTextBlock &block, const richtext::ParagraphFormat &format);

} // namespace tavrin
