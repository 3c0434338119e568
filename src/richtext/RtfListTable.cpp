// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfListTable.h"

#include "richtext/ListMarker.h"

#include <utility>

namespace tavrin::richtext {

namespace {

constexpr qsizetype mostLevels = 9;
// Nobody has more; who says so wants to fill the memory.
constexpr qsizetype mostLists = 65536;

} // namespace

void RtfListTable::change(RtfTableWord word, const RtfToken &token, bool isOverride)
{
    switch (word) {
    case RtfTableWord::List:
        g_levels.clear();
        break;
    case RtfTableWord::ListIdentifier:
        g_identifier = token.number;
        if (!isOverride && g_lists.size() < mostLists)
            g_lists.insert(g_identifier, g_levels);
        break;
    case RtfTableWord::NumberKind:
        if (!g_levels.isEmpty())
            g_levels.last().marker = markerOfNumberKind(token.number);
        break;
    case RtfTableWord::StartAt:
        if (!g_levels.isEmpty())
            g_levels.last().startAt = token.number;
        break;
    default:
        break;
    }
}

void RtfListTable::beginLevel()
{
    if (g_levels.size() < mostLevels)
        g_levels.append({QStringLiteral("{disc}")});
}

void RtfListTable::addMarker(QStringView text)
{
    g_marker += text;
}

void RtfListTable::endMarker()
{
    const QString marker = std::exchange(g_marker, {});
    if (!g_levels.isEmpty())
        g_levels.last().marker = marker;
}

void RtfListTable::setNumber(qint32 number)
{
    if (g_identifiers.size() < mostLists)
        g_identifiers.insert(number, g_identifier);
}

QList<ListLevel> RtfListTable::levels(qint32 number) const
{
    static const QList<ListLevel> unknown(mostLevels, ListLevel{QStringLiteral("{disc}")});
    const QList<ListLevel> levels = g_lists.value(g_identifiers.value(number, -1));
    return levels.isEmpty() ? unknown : levels;
}

} // namespace tavrin::richtext
