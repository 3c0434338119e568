// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/AttributedText.h"

#include "base/InternalInconsistency.h"

#include <algorithm>

namespace tavrin::richtext {

AttributedText::AttributedText(const QString &text,
                               const CharacterFormat &character,
                               const ParagraphFormat &paragraph)
    : AttributedText(text,
                     CharacterRuns(text.size(), SharedFormat(character)),
                     ParagraphRuns(text.size() + 1, SharedFormat(paragraph)))
{}

AttributedText::AttributedText(QString text, CharacterRuns characters, ParagraphRuns paragraphs)
    : g_text(std::move(text))
    , g_characters(std::move(characters))
    , g_paragraphs(std::move(paragraphs))
{
    require(g_characters.size() == size() && g_paragraphs.size() == size() + 1, "AttributedText");
    dropStrayAttachments(0, size());
}

const CharacterFormat &AttributedText::characterFormatAt(qsizetype position) const
{
    require(position >= 0 && position < size(), "characterFormatAt");
    return *g_characters.at(position);
}

const ParagraphFormat &AttributedText::paragraphFormatAt(qsizetype position) const
{
    require(position >= 0 && position <= size(), "paragraphFormatAt");
    return *g_paragraphs.at(position);
}

TextRange AttributedText::paragraphAt(qsizetype position) const
{
    require(position >= 0 && position <= size(), "paragraphAt");
    const TextRange paragraph = paragraphWithEndAt(position);
    return {paragraph.start, std::min(paragraph.end(), size()) - paragraph.start};
}

AttributedText AttributedText::substring(qsizetype position, qsizetype length) const
{
    require(position >= 0 && length >= 0 && length <= size() - position, "substring");
    return {g_text.mid(position, length),
            g_characters.part(position, length),
            g_paragraphs.part(position, length + 1)};
}

void AttributedText::insert(qsizetype position, QStringView text, const CharacterFormat &format)
{
    require(position >= 0 && position <= size(), "insert");
    // The text may be a part of ours.
    const QString kept = text.toString();
    g_paragraphs.replace(position, 0, ParagraphRuns(kept.size(), g_paragraphs.at(position)));
    g_characters.replace(position, 0, CharacterRuns(kept.size(), SharedFormat(format)));
    g_text.insert(position, kept);
    dropStrayAttachments(position, kept.size());
}

void AttributedText::insert(qsizetype position, const AttributedText &other)
{
    require(position >= 0 && position <= size(), "insert");
    const qsizetype length = other.size();
    if (length == 0)
        return;
    const bool isAtEnd = position == size();
    g_paragraphs.replace(
        position, isAtEnd ? 1 : 0, other.g_paragraphs.part(0, isAtEnd ? length + 1 : length));
    g_characters.replace(position, 0, other.g_characters);
    g_text.insert(position, QString(other.g_text));
    unifyParagraphAt(position);
    unifyParagraphAt(position + length);
}

void AttributedText::append(const AttributedText &other)
{
    insert(size(), other);
}

void AttributedText::remove(qsizetype position, qsizetype length)
{
    require(position >= 0 && length >= 0 && length <= size() - position, "remove");
    g_text.remove(position, length);
    g_characters.replace(position, length, {});
    g_paragraphs.replace(position, length, {});
    unifyParagraphAt(position);
}

void AttributedText::replace(qsizetype position, qsizetype length, QStringView text)
{
    require(position >= 0 && length > 0 && length <= size() - position, "replace");
    const QString kept = text.toString();
    CharacterFormat format = characterFormatAt(position);
    format.attachment.reset();
    insert(position, kept, format);
    remove(position + kept.size(), length);
}

void AttributedText::apply(qsizetype position,
                           qsizetype length,
                           const std::function<void(CharacterFormat &)> &change)
{
    require(position >= 0 && length >= 0 && length <= size() - position, "apply");
    g_characters.apply(position, length, change);
    dropStrayAttachments(position, length);
}

void AttributedText::applyToParagraphs(qsizetype position,
                                       qsizetype length,
                                       const std::function<void(ParagraphFormat &)> &change)
{
    require(position >= 0 && length >= 0 && length <= size() - position, "applyToParagraphs");
    const qsizetype start = paragraphAt(position).start;
    // A range that ends behind a "\n" does not touch the paragraph that begins there.
    const TextRange last = paragraphWithEndAt(length == 0 ? position : position + length - 1);
    g_paragraphs.apply(start, last.end() - start, change);
}

void AttributedText::require(bool isInside, const char *operation) const
{
    if (!isInside)
        throw InternalInconsistency(QStringLiteral("AttributedText %1: outside of %2 characters")
                                        .arg(QLatin1StringView(operation))
                                        .arg(size())
                                        .toStdString());
}

TextRange AttributedText::paragraphWithEndAt(qsizetype position) const
{
    const QStringView text(g_text);
    const qsizetype start = text.first(position).lastIndexOf(u'\n') + 1;
    const qsizetype found = text.indexOf(u'\n', position);
    return {start, (found < 0 ? size() : found) + 1 - start};
}

void AttributedText::unifyParagraphAt(qsizetype position)
{
    const TextRange paragraph = paragraphWithEndAt(position);
    const auto &first = g_paragraphs.runs().at(g_paragraphs.indexAt(paragraph.start));
    if (first.end < paragraph.end())
        g_paragraphs.replace(
            paragraph.start, paragraph.length, ParagraphRuns(paragraph.length, first.format));
}

void AttributedText::dropStrayAttachments(qsizetype position, qsizetype length)
{
    const QList<CharacterRuns::Run> &runs = g_characters.runs();
    const auto first = runs.cbegin() + g_characters.indexAt(position);
    const auto last = std::find_if(
        first, runs.cend(), [end = position + length](const auto &run) { return run.end >= end; });
    const auto hasAttachment = [](const auto &run) { return run.format->attachment.has_value(); };
    if (std::none_of(first, last == runs.cend() ? last : last + 1, hasAttachment))
        return;
    CharacterRuns kept;
    qsizetype start = 0;
    const CharacterRuns before = g_characters.part(position, length);
    for (const auto &run : before.runs()) {
        if (!run.format->attachment) {
            kept.append(run.end - start, run.format);
            start = run.end;
            continue;
        }
        CharacterFormat plain = *run.format;
        plain.attachment.reset();
        const SharedFormat without(plain);
        for (; start < run.end; ++start)
            kept.append(1, g_text[position + start] == attachmentCharacter ? run.format : without);
    }
    g_characters.replace(position, length, kept);
}

} // namespace tavrin::richtext
