// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/FormattedReplace.h"

namespace tavrin {

std::optional<StoredText>
replacedInText(const StoredText &text, std::span<const text::Match> parts, const QString &replacement)
{
    // Nothing here reads rich text yet.
    if (!text.textRTFD.isEmpty())
        return {};
    QString replaced;
    qsizetype from = 0;
    for (const text::Match &part : parts) {
        replaced += QStringView(text.plain).sliced(from, part.start - from);
        replaced += replacement;
        from = part.start + part.length;
    }
    replaced += QStringView(text.plain).sliced(from);
    return StoredText{replaced, {}};
}

} // namespace tavrin
