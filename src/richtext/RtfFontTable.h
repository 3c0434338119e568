// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/FontName.h"

#include <QHash>

#include <optional>

namespace tavrin::richtext {

struct RtfFont
{
    FontFace face;
    std::optional<int> codePage; ///< Missing: that of the document.
};

/// The fonts of a document by their numbers. It is told the words and texts of the table as they come.
class RtfFontTable
{
public:
    void begin(qint32 number);
    void setCharset(int charset);
    void setCodePage(int codePage);
    void addName(QStringView name);
    void end();

    /// Null when there is no such font.
    const RtfFont *font(qint32 number) const;
    /// Of the font whose name is being read.
    std::optional<int> codePageOfNext() const { return g_next.codePage; }

private:
    QHash<qint32, RtfFont> g_fonts;
    RtfFont g_next;
    QString g_name;
    std::optional<qint32> g_number;
};

} // namespace tavrin::richtext
