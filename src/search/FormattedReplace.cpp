// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/FormattedReplace.h"

#include "richtext/Rtfd.h"

#include <algorithm>

namespace tavrin {

using namespace richtext;

namespace {

/// Puts the parts that stay and the replacements one behind the other, so that many of them take no longer
/// than few.
class ReplacingText
{
public:
    explicit ReplacingText(const AttributedText &text) : g_from(text) {}

    void keep(qsizetype position, qsizetype length)
    {
        g_text += QStringView(g_from.text()).sliced(position, length);
        append(g_characters, g_from.characterRuns().part(position, length));
        append(g_paragraphs, g_from.paragraphRuns().part(position, length));
    }

    /// Looks like the first character that it stands for.
    void insert(qsizetype position, const QString &replacement)
    {
        CharacterFormat look = g_from.characterFormatAt(position);
        look.attachment.reset();
        g_text += replacement;
        g_characters.append(replacement.size(), SharedFormat(look));
        g_paragraphs.append(replacement.size(), g_from.paragraphRuns().at(position));
    }

    AttributedText finish()
    {
        g_paragraphs.append(1, g_from.paragraphRuns().at(g_from.size()));
        return {std::move(g_text), std::move(g_characters), std::move(g_paragraphs)};
    }

private:
    template <typename Runs>
    static void append(Runs &runs, const Runs &more)
    {
        qsizetype from = 0;
        for (const auto &run : more.runs()) {
            runs.append(run.end - from, run.format);
            from = run.end;
        }
    }

    const AttributedText &g_from;
    QString g_text;
    CharacterRuns g_characters;
    ParagraphRuns g_paragraphs;
};

AttributedText
replacedInFormatted(AttributedText text, std::span<const text::Match> parts, const QString &replacement)
{
    const auto joinsParagraphs = [&text](const text::Match &part) {
        return QStringView(text.text()).sliced(part.start, part.length).contains(u'\n');
    };
    if (std::ranges::any_of(parts, joinsParagraphs)) {
        for (size_t i = parts.size(); i-- > 0;)
            text.replace(parts[i].start, parts[i].length, replacement);
        return text;
    }
    ReplacingText replacing(text);
    qsizetype from = 0;
    for (const text::Match &part : parts) {
        replacing.keep(from, part.start - from);
        replacing.insert(part.start, replacement);
        from = part.start + part.length;
    }
    replacing.keep(from, text.size() - from);
    return replacing.finish();
}

} // namespace

std::optional<RecordText>
replacedInText(const RecordText &text, std::span<const text::Match> parts, const QString &replacement)
{
    if (!text.textRTFD.isEmpty()) {
        auto formatted = readRichText(text.textRTFD);
        // The parts are those of the plain text: where that is another text, they say nothing.
        if (!formatted || formatted->text() != text.plain)
            return {};
        const AttributedText replaced = replacedInFormatted(std::move(*formatted), parts, replacement);
        return RecordText{replaced.text(), writeRichText(replaced)};
    }
    QString replaced;
    qsizetype from = 0;
    for (const text::Match &part : parts) {
        replaced += QStringView(text.plain).sliced(from, part.start - from);
        replaced += replacement;
        from = part.start + part.length;
    }
    replaced += QStringView(text.plain).sliced(from);
    return RecordText{replaced, {}};
}

} // namespace tavrin
