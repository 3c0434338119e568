// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>

namespace tavrin {

/// The text of a record in its two stored forms, of which the rich one counts.
struct RecordText
{
    QString plain;
    QByteArray textRTFD; ///< Empty for a text without formatting.

    friend bool operator==(const RecordText &, const RecordText &) = default;
};

/// Part of a text, in 16-bit units.
struct TextPart
{
    qsizetype start;
    qsizetype length;
};

/// The text without these parts, which are in order; what stands around them keeps its formatting. None when
/// that cannot be kept: the rich text is damaged, or holds another text than the plain one.
std::optional<RecordText> withoutParts(const RecordText &text, std::span<const TextPart> parts);

/// The text with another one in the place of a part, which looks like the beginning of that.
std::optional<RecordText>
withReplaced(const RecordText &text, const TextPart &part, const QString &replacement);

/// The text with another one behind it, which looks like its end.
std::optional<RecordText> withAppended(const RecordText &text, const QString &appended);

} // namespace tavrin
