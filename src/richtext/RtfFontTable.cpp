// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfFontTable.h"

#include "richtext/CodePage.h"

namespace tavrin::richtext {

void RtfFontTable::begin(qint32 number)
{
    end();
    g_number = number;
}

void RtfFontTable::setCharset(int charset)
{
    if (!g_next.codePage)
        g_next.codePage = codePageOfCharset(charset);
}

void RtfFontTable::setCodePage(int codePage)
{
    if (codePage > 0)
        g_next.codePage = codePage;
}

void RtfFontTable::addName(QStringView name)
{
    g_name += name;
}

void RtfFontTable::end()
{
    // Nobody has more; who says so wants to fill the memory.
    constexpr qsizetype mostFonts = 65536;
    if (g_number && g_fonts.size() < mostFonts) {
        g_next.face = faceOfName(g_name);
        g_fonts.insert(*g_number, g_next);
    }
    g_number.reset();
    g_next = {};
    g_name.clear();
}

const RtfFont *RtfFontTable::font(qint32 number) const
{
    const auto found = g_fonts.constFind(number);
    return found == g_fonts.cend() ? nullptr : &*found;
}

} // namespace tavrin::richtext
