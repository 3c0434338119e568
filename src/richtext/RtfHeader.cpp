// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfHeader.h"

#include "richtext/ListMarker.h"
#include "richtext/RtfEscape.h"

#include <algorithm>

namespace tavrin::richtext {

namespace {

// Number 0 is no colour, 1 is always white: behind text, it means none.
constexpr int firstColor = 2;

QByteArray component(quint8 value)
{
    return "\\c" + QByteArray::number((value * 100'000 + 127) / 255);
}

/// What stands before an item, as lists say it: its length, then its characters, of which a control character
/// is the place of the level's number.
QByteArray levelText(const ListLevel &level, int depth)
{
    constexpr int bullet = 23;
    QByteArray text = "{\\leveltext\\leveltemplateid" + QByteArray::number(depth + 1);
    if (numberKindOf(level.marker) == bullet) {
        const QString marker = markerText(level.marker, 1).left(1);
        text += marker.isEmpty() ? "\\'00" : "\\'01";
        appendEscaped(text, marker);
        return text + ";}{\\levelnumbers;}";
    }
    const QByteArray place = "\\'0" + QByteArray::number(depth);
    return text + "\\'02" + place + ".;}{\\levelnumbers\\'01;}";
}

QByteArray levelBytes(const ListLevel &level, int depth)
{
    constexpr int indent = 720;
    const QByteArray kind = QByteArray::number(numberKindOf(level.marker));
    QByteArray bytes =
        "{\\listlevel\\levelnfc" + kind + "\\levelnfcn" + kind + "\\leveljc0\\leveljcn0\\levelfollow0";
    appendWord(bytes, "\\levelstartat", level.startAt);
    bytes += "\\levelspace360\\levelindent0{\\*\\levelmarker ";
    appendEscaped(bytes, level.marker);
    bytes += '}' + levelText(level, depth);
    appendWord(bytes, "\\fi-360\\li", indent * (depth + 1));
    appendWord(bytes, "\\lin", indent * (depth + 1));
    return bytes + " }";
}

} // namespace

RtfHeader::RtfHeader(const AttributedText &text)
{
    for (const auto &run : text.characterRuns().runs()) {
        const CharacterFormat &format = *run.format;
        if (!g_fonts.contains(format.family)) {
            g_fonts.insert(format.family, static_cast<int>(g_fontNames.size()));
            g_fontNames.append(format.family);
        }
        for (const auto &color :
             {format.foreground, format.background, format.underlineColor, format.strikeColor})
            addColor(color);
    }
    for (const auto &run : text.paragraphRuns().runs())
        g_freeListNumber = std::max(g_freeListNumber, run.format->list.identifier);
    for (const auto &run : text.paragraphRuns().runs()) {
        addList(run.format->list);
        addColor(run.format->cell.style.background);
        for (const CellSide &side : run.format->cell.style.sides)
            addColor(side.borderColor);
    }
}

void RtfHeader::addColor(const std::optional<Color> &color)
{
    if (!color || g_colors.contains(keyOf(*color)))
        return;
    g_colors.insert(keyOf(*color), static_cast<int>(g_colorValues.size()) + firstColor);
    g_colorValues.append(*color);
}

void RtfHeader::addList(const ListItem &list)
{
    if (list.identifier == 0 || this->list(list) != 0)
        return;
    QList<NumberedList> &same = g_listsByIdentifier[list.identifier];
    const int number = same.isEmpty() ? list.identifier : ++g_freeListNumber;
    same.append({number, list.levels});
    g_lists.append({number, list.levels});
}

int RtfHeader::list(const ListItem &list) const
{
    for (const NumberedList &one : g_listsByIdentifier.value(list.identifier)) {
        if (one.levels == list.levels)
            return one.number;
    }
    return 0;
}

QByteArray RtfHeader::bytes() const
{
    return "{\\rtf1\\ansi\\ansicpg1252\\cocoartf2639\n\\cocoatextscaling0\\cocoaplatform0" + fontTable()
           + colorTables() + listTables();
}

QByteArray RtfHeader::fontTable() const
{
    QByteArray table = "{\\fonttbl";
    for (qsizetype i = 0; i < g_fontNames.size(); ++i) {
        table += "\\f" + QByteArray::number(i) + "\\fnil\\fcharset0 ";
        QByteArray name;
        appendEscaped(name, g_fontNames[i]);
        // Written bare, it would end the name.
        table += name.replace(";", "\\'3b") + ';';
    }
    return table + "}\n";
}

QByteArray RtfHeader::colorTables() const
{
    QByteArray table = "{\\colortbl;\\red255\\green255\\blue255;";
    QByteArray expanded = "{\\*\\expandedcolortbl;;";
    for (const Color &color : g_colorValues) {
        appendWord(table, "\\red", color.red);
        appendWord(table, "\\green", color.green);
        appendWord(table, "\\blue", color.blue);
        table += ';';
        expanded += "\\cssrgb" + component(color.red) + component(color.green) + component(color.blue);
        if (color.alpha != 255)
            expanded += component(color.alpha);
        expanded += ';';
    }
    return table + "}\n" + expanded + "}\n";
}

QByteArray RtfHeader::listTables() const
{
    if (g_lists.isEmpty())
        return {};
    QByteArray table = "{\\*\\listtable";
    QByteArray overrides = "{\\*\\listoverridetable";
    for (const NumberedList &list : g_lists) {
        const QByteArray number = QByteArray::number(list.number);
        table += "{\\list\\listtemplateid" + number + "\\listhybrid";
        for (qsizetype level = 0; level < list.levels.size(); ++level)
            table += levelBytes(list.levels[level], static_cast<int>(level));
        table += "{\\listname ;}\\listid" + number + "}\n";
        overrides += "{\\listoverride\\listid" + number + "\\listoverridecount0\\ls" + number + '}';
    }
    return table + "}\n" + overrides + "}\n";
}

} // namespace tavrin::richtext
