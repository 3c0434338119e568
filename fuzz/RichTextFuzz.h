// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"
#include "richtext/Rtfd.h"

#include <cstdio>
#include <cstdlib>

// What the fuzz target and the replay of its corpus check. A failed check ends the program.

namespace tavrin::richtext::fuzz {

inline void require(bool isTrue, const char *what)
{
    if (isTrue)
        return;
    std::fprintf(stderr, "not true: %s\n", what);
    std::abort();
}

/// What is read from any bytes is written so that it comes back: its text at once; the rest as it is written,
/// which mends a table without all its rows, but needs no mending twice.
inline void checkRichText(QByteArrayView bytes)
{
    const Result<AttributedText> text = readRichText(bytes);
    if (!text)
        return;
    const Result<AttributedText> back = readRichText(writeRichText(*text));
    require(back.has_value(), "what was written is read");
    require(back->text() == text->text(), "the text is the same");
    const QByteArray written = writeRichText(*back);
    const Result<AttributedText> again = readRichText(written);
    require(again && *again == *back, "the second time all is the same");
    require(writeRichText(*again) == written, "equal texts are written equally");

    const qsizetype middle = text->size() / 2;
    AttributedText joined = text->substring(0, middle);
    joined.append(text->substring(middle, text->size() - middle));
    require(joined == *text, "two halves make a whole");
}

} // namespace tavrin::richtext::fuzz
