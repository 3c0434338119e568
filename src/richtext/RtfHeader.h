// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <QHash>

namespace tavrin::richtext {

/// The fonts, colours and lists that a text uses, with their numbers in its RTF.
class RtfHeader
{
public:
    explicit RtfHeader(const AttributedText &text);

    int font(const QString &family) const { return g_fonts.value(family); }
    /// 0: none.
    int color(const std::optional<Color> &color) const { return color ? g_colors.value(keyOf(*color)) : 0; }
    /// The list's identifier, unless another list has it.
    int list(const ListItem &list) const;

    /// All that stands before the text, with the brace that opens the document.
    QByteArray bytes() const;

private:
    static quint32 keyOf(const Color &color)
    {
        return quint32(color.red) << 24 | quint32(color.green) << 16 | quint32(color.blue) << 8 | color.alpha;
    }

    void addColor(const std::optional<Color> &color);
    void addList(const ListItem &list);
    QByteArray fontTable() const;
    QByteArray colorTables() const;
    QByteArray listTables() const;

    QStringList g_fontNames;
    QHash<QString, int> g_fonts;
    QList<Color> g_colorValues;
    QHash<quint32, int> g_colors;
    struct NumberedList
    {
        int number;
        QList<ListLevel> levels;
    };
    QList<NumberedList> g_lists;
    QHash<int, QList<NumberedList>> g_listsByIdentifier;
    int g_freeListNumber = 0;
};

} // namespace tavrin::richtext
