// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"
#include "richtext/RtfTokenizer.h"
#include "richtext/RtfWords.h"

namespace tavrin::richtext {

/// What RTF has said about the paragraph that is being read. In `format` the cell's table is only 0 or not,
/// and the list is only a number and a level.
struct RtfParagraph
{
    ParagraphFormat format;
    TabKind nextTab = TabKind::Left;
    qint32 lineHeight = 0; ///< As \sl says it.

    /// `normal` is what a paragraph starts with.
    void change(RtfParagraphWord word, const RtfToken &token, const ParagraphFormat &normal);

private:
    bool changeLength(RtfParagraphWord word, qint32 length);
    bool changeAlignment(RtfParagraphWord word);
    void changeLineHeight(bool isMultiple);
};

} // namespace tavrin::richtext
