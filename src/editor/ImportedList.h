// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"

#include <QHash>

class QTextBlock;
class QTextList;

namespace tavrin {

/// The lists of a document that came with HTML, whose markers are no text there.
class ImportedList
{
public:
    /// Makes the paragraph an item of the list.
    void apply(const QTextList &list, richtext::ParagraphFormat &paragraph);
    /// What stands before the item, with its tabs.
    static QString marker(const QTextList &list, const QTextBlock &item);

private:
    QHash<int, int> g_identifiers; ///< By the number of the list's format.
};

} // namespace tavrin
