// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/WordBounds.h"

namespace tavrin::text {

bool isWholeWord(QStringView text, qsizetype start, qsizetype length)
{
    const auto isOfWord = [text](qsizetype index) {
        return index >= 0 && index < text.size() && (text[index].isLetterOrNumber() || text[index].isMark());
    };
    return !isOfWord(start - 1) && !isOfWord(start + length);
}

} // namespace tavrin::text
