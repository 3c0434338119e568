// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CharacterFormat.h"
#include "richtext/FormatRuns.h"
#include "richtext/ParagraphFormat.h"

#include <functional>

namespace tavrin::richtext {

using CharacterRuns = FormatRuns<CharacterFormat>;
using ParagraphRuns = FormatRuns<ParagraphFormat>;

/// Part of a text, in 16-bit units.
struct TextRange
{
    qsizetype start = 0;
    qsizetype length = 0;

    qsizetype end() const { return start + length; }
    friend bool operator==(const TextRange &, const TextRange &) = default;
};

/// A text whose characters and paragraphs have formats. A value: copies are cheap and independent.
///
/// A paragraph ends with "\n", which belongs to it, or with the text; so there is always one more paragraph
/// than there are "\n", and an empty text has one. All of a paragraph has one paragraph format: that of its
/// first character, when an edit brings two together. Only U+FFFC has an attachment. A place outside the text
/// throws InternalInconsistency.
class AttributedText
{
public:
    AttributedText() : AttributedText(QString()) {}
    explicit AttributedText(const QString &text,
                            const CharacterFormat &character = {},
                            const ParagraphFormat &paragraph = {});
    /// Of parts that somebody kept together: `paragraphs` is one longer than the text, for the end of the
    /// last paragraph.
    AttributedText(QString text, CharacterRuns characters, ParagraphRuns paragraphs);

    const QString &text() const { return g_text; }
    qsizetype size() const { return g_text.size(); }
    bool isEmpty() const { return g_text.isEmpty(); }

    const CharacterRuns &characterRuns() const { return g_characters; }
    const ParagraphRuns &paragraphRuns() const { return g_paragraphs; }
    const CharacterFormat &characterFormatAt(qsizetype position) const;
    /// Also at the end of the text.
    const ParagraphFormat &paragraphFormatAt(qsizetype position) const;
    /// The paragraph in which the position is, with its "\n".
    TextRange paragraphAt(qsizetype position) const;

    AttributedText substring(qsizetype position, qsizetype length) const;

    /// New characters belong to the paragraph into which they are put, as do the paragraphs they begin.
    void insert(qsizetype position, QStringView text, const CharacterFormat &format);
    /// The other text's paragraphs keep their formats, but for the first where it continues one.
    void insert(qsizetype position, const AttributedText &other);
    /// Afterwards a last paragraph that `other` leaves empty has the format it has there.
    void append(const AttributedText &other);
    void remove(qsizetype position, qsizetype length);
    /// The new characters look like the first one replaced.
    void replace(qsizetype position, qsizetype length, QStringView text);

    void apply(qsizetype position, qsizetype length, const std::function<void(CharacterFormat &)> &change);
    /// Changes every paragraph that the range touches.
    void applyToParagraphs(qsizetype position,
                           qsizetype length,
                           const std::function<void(ParagraphFormat &)> &change);

    friend bool operator==(const AttributedText &, const AttributedText &) = default;

private:
    void require(bool isInside, const char *operation) const;
    /// As paragraphAt(), but the end of the text counts as one more character of the last paragraph.
    TextRange paragraphWithEndAt(qsizetype position) const;
    void unifyParagraphAt(qsizetype position);
    void dropStrayAttachments(qsizetype position, qsizetype length);

    QString g_text;
    CharacterRuns g_characters;
    ParagraphRuns g_paragraphs;
};

} // namespace tavrin::richtext
