// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ImportedList.h"

#include "editor/TextLists.h"
#include "richtext/ListMarker.h"

#include <QTextList>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QString markerOfStyle(QTextListFormat::Style style)
{
    switch (style) {
    case QTextListFormat::ListCircle:
        return u"{circle}"_s;
    case QTextListFormat::ListSquare:
        return u"{square}"_s;
    case QTextListFormat::ListDecimal:
        return u"{decimal}."_s;
    case QTextListFormat::ListLowerAlpha:
        return u"{lower-alpha}."_s;
    case QTextListFormat::ListUpperAlpha:
        return u"{upper-alpha}."_s;
    case QTextListFormat::ListLowerRoman:
        return u"{lower-roman}."_s;
    case QTextListFormat::ListUpperRoman:
        return u"{upper-roman}."_s;
    default:
        return u"{disc}"_s;
    }
}

} // namespace

void ImportedList::apply(const QTextList &list, richtext::ParagraphFormat &paragraph)
{
    int &identifier = g_identifiers[list.objectIndex()];
    if (identifier == 0)
        identifier = static_cast<int>(g_identifiers.size());
    const qint32 level = qBound(0, list.format().indent() - 1, deepestListLevel);
    makeListItem(paragraph, identifier, markerOfStyle(list.format().style()), level);
}

QString ImportedList::marker(const QTextList &list, const QTextBlock &item)
{
    return listMarker(markerOfStyle(list.format().style()), list.itemNumber(item) + 1);
}

} // namespace tavrin
