// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/CharacterFormat.h"
#include "richtext/RtfColorTable.h"
#include "richtext/RtfFontTable.h"
#include "richtext/RtfTokenizer.h"
#include "richtext/RtfWords.h"

#include <QHashFunctions>
#include <QStringList>

namespace tavrin::richtext {

/// What RTF has said about the look of the characters that follow. It is small, as every group keeps one;
/// fonts, colours and links are numbers in the tables of the document.
struct RtfLook
{
    qint32 font = -1;
    qint32 size = 12000;
    qint32 foreground = 0;
    qint32 background = 0;
    qint32 underlineColor = 0;
    qint32 strikeColor = 0;
    qint32 baseline = 0;
    qint32 expansion = 0; ///< Twips.
    qint32 link = -1;
    bool bold = false;
    bool italic = false;
    bool isUnkerned = false;
    bool isHighlighted = false; ///< The background was said by a word that knows no "none" but 0.
    Underline underline = Underline::None;
    Strike strike = Strike::None;
    Script script = Script::Normal;
    Ligatures ligatures = Ligatures::Default;

    void change(RtfLookWord word, const RtfToken &token, qint32 defaultFont);
    CharacterFormat
    format(const RtfFontTable &fonts, const RtfColorTable &colors, const QStringList &links) const;

    friend bool operator==(const RtfLook &one, const RtfLook &other);

private:
    void changeLine(RtfLookWord word, const RtfToken &token);
    void changePlace(RtfLookWord word, const RtfToken &token);
};

size_t qHash(const RtfLook &look, size_t seed = 0);

} // namespace tavrin::richtext
