// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/Attachment.h"

#include <QString>

#include <optional>

namespace tavrin::richtext {

struct Color
{
    quint8 red = 0;
    quint8 green = 0;
    quint8 blue = 0;
    quint8 alpha = 255;

    friend bool operator==(const Color &, const Color &) = default;
};

enum class Underline : quint8 {
    None,
    Single,
    Double,
    Thick,
    Words,
    Dotted,
    Dashed,
    DashDotted,
    DashDotDotted
};
enum class Strike : quint8 { None, Single, Double };
enum class Script : quint8 { Normal, Super, Sub };
enum class Ligatures : quint8 { None, Default, All };

/// How a character looks, where it leads, and what stands in its place. A colour that is missing is that of
/// the view, or for a line that of the text.
struct CharacterFormat
{
    QString family = QStringLiteral("Helvetica");
    qint32 size = 12000; ///< Thousandths of a point.
    bool bold = false;
    bool italic = false;
    Underline underline = Underline::None;
    Strike strike = Strike::None;
    Script script = Script::Normal;
    Ligatures ligatures = Ligatures::Default;
    std::optional<Color> foreground;
    std::optional<Color> background;
    std::optional<Color> underlineColor;
    std::optional<Color> strikeColor;
    qint32 baseline = 0;                  ///< Half points up.
    std::optional<qint32> kerning;        ///< Twips between the characters; missing: what the font says.
    QString link;                         ///< An address of any scheme; empty: none.
    std::optional<Attachment> attachment; ///< Only on U+FFFC.

    friend bool operator==(const CharacterFormat &, const CharacterFormat &) = default;
};

} // namespace tavrin::richtext
