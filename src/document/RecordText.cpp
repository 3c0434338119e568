// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordText.h"

#include "richtext/Rtfd.h"

#include <functional>

namespace tavrin {

namespace {

/// Changes both forms alike.
std::optional<RecordText> changed(const RecordText &text,
                                  const std::function<void(QString &)> &changePlain,
                                  const std::function<void(richtext::AttributedText &)> &changeRich)
{
    RecordText result = text;
    changePlain(result.plain);
    if (text.textRTFD.isEmpty())
        return result;
    auto rich = richtext::readRichText(text.textRTFD);
    if (!rich || rich->text() != text.plain)
        return {};
    changeRich(*rich);
    result.textRTFD = richtext::writeRichText(*rich);
    return result;
}

} // namespace

std::optional<RecordText> withoutParts(const RecordText &text, std::span<const TextPart> parts)
{
    const auto remove = [parts](auto &from) {
        for (auto part = parts.rbegin(); part != parts.rend(); ++part)
            from.remove(part->start, part->length);
    };
    return changed(text, remove, remove);
}

std::optional<RecordText>
withReplaced(const RecordText &text, const TextPart &part, const QString &replacement)
{
    return changed(
        text,
        [&](QString &plain) { plain.replace(part.start, part.length, replacement); },
        [&](richtext::AttributedText &rich) {
            richtext::CharacterFormat format =
                part.start < rich.size() ? rich.characterFormatAt(part.start) : richtext::CharacterFormat();
            format.link.clear();
            format.attachment.reset();
            rich.remove(part.start, part.length);
            rich.insert(part.start, replacement, format);
        });
}

std::optional<RecordText> withAppended(const RecordText &text, const QString &appended)
{
    return changed(
        text,
        [&appended](QString &plain) { plain += appended; },
        [&appended](richtext::AttributedText &rich) {
            const qsizetype end = rich.size();
            rich.insert(
                end, appended, end > 0 ? rich.characterFormatAt(end - 1) : richtext::CharacterFormat());
            rich.apply(end, appended.size(), [](richtext::CharacterFormat &format) { format.link.clear(); });
        });
}

} // namespace tavrin
