// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/FontName.h"

namespace tavrin::richtext {

namespace {

struct Style
{
    QStringView ending;
    bool bold;
    bool italic;
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

} // namespace

FontFace faceOfName(const QString &name)
{
    FontFace face{name};
    // "Arial-BoldMT": the mark of the maker stands behind the style.
    const QString maker = name.endsWith(u"MT") ? QStringLiteral("MT") : QString();
    const QString rest = name.chopped(maker.size());
    for (const Style &style : styles) {
        if (!rest.endsWith(style.ending) || rest.size() == style.ending.size())
            continue;
        face = {rest.chopped(style.ending.size()) + maker, style.bold, style.italic};
        break;
    }
    for (const auto &[called, family] : families) {
        if (face.family == called)
            face.family = family.toString();
    }
    return face;
}

} // namespace tavrin::richtext
