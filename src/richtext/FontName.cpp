// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/FontName.h"

namespace tavrin::richtext {

namespace {

struct Style
{
    QStringView ending;
    bool bold = false;
    bool italic = false;
};

constexpr Style styles[] = {
    {u"-BoldOblique", true, true},
    {u"-BoldItalic", true, true},
    {u"-Bold", true, false},
    {u"-Oblique", false, true},
    {u"-Italic", false, true},
    {u"-Regular", false, false},
    {u"-Roman", false, false},
};

// The faces whose names say no family.
constexpr QStringView families[][2] = {
    {u"ArialMT", u"Arial"},
    {u"TimesNewRomanPSMT", u"Times New Roman"},
    {u"CourierNewPSMT", u"Courier New"},
};

/// Null when the name ends with no style, or is nothing else.
const Style *styleAtEnd(QStringView name)
{
    for (const Style &style : styles) {
        if (name.size() > style.ending.size() && name.endsWith(style.ending))
            return &style;
    }
    return nullptr;
}

} // namespace

FontFace faceOfName(const QString &name)
{
    FontFace face;
    QStringView family(name);
    // "Arial-BoldMT": the mark of the maker stands behind the style.
    constexpr QStringView maker = u"MT";
    bool hasMaker = false;
    while (true) {
        if (const Style *style = styleAtEnd(family)) {
            face.bold = face.bold || style->bold;
            face.italic = face.italic || style->italic;
            family.chop(style->ending.size());
        } else if (!hasMaker && family.endsWith(maker) && styleAtEnd(family.chopped(maker.size()))) {
            hasMaker = true;
            family.chop(maker.size());
        } else {
            break;
        }
    }
    face.family = family.toString();
    if (hasMaker)
        face.family += maker;
    for (const auto &[called, known] : families) {
        if (face.family == called)
            face.family = known.toString();
    }
    return face;
}

} // namespace tavrin::richtext
