// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CharacterFormat.h"
#include "richtext/RtfTokenizer.h"
#include "richtext/RtfWords.h"

#include <QList>

#include <array>
#include <optional>

namespace tavrin::richtext {

/// The colours of a document by their numbers, from its table and from the one that says them more exactly.
/// It is told the words and texts of the tables as they come.
class RtfColorTable
{
public:
    void change(RtfTableWord word, const RtfToken &token);
    /// A text between the words; a ";" ends a colour.
    void addText(QByteArrayView text, bool isExpanded);

    /// None for 0, for what is no number of a colour, and for the colour that text has anyhow.
    std::optional<Color> color(qint32 number) const;
    /// The same behind text: there a white that stands first means none.
    std::optional<Color> backgroundColor(qint32 number) const;

private:
    void endColor();
    void endExpandedColor();

    QList<std::optional<Color>> g_colors;
    QList<std::optional<Color>> g_expanded;
    std::optional<Color> g_next;
    std::array<qint32, 4> g_components{};
    size_t g_componentCount = 0;
    bool g_isGray = false;
    bool g_isNamed = false;
    QByteArray g_name;
};

} // namespace tavrin::richtext
