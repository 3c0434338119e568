// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

#include <algorithm>
#include <array>

namespace tavrin {

/// The bytes that a MarkScanner stops at. One that is not needed is given twice.
using Marks = std::array<char, 8>;

/// Goes over a text from one of a few bytes to the next, with the widest vectors at hand.
class MarkScanner
{
public:
    static constexpr qsizetype blockSize = 64;

    /// The text is followed by at least blockSize readable bytes.
    MarkScanner(QByteArrayView text, const Marks &marks) : g_text(text), g_marks(marks) {}

    /// Where the next mark stands; the size of the text when there is none.
    qsizetype next()
    {
        if (g_next == g_found && !scan())
            return g_text.size();
        return g_windowStart + g_places[g_next++];
    }

private:
    static constexpr qsizetype windowBlocks = 64;
    static constexpr qsizetype windowSize = windowBlocks * blockSize;
    static constexpr size_t spare = 8;

    bool scan();

    QByteArrayView g_text;
    Marks g_marks;
    qsizetype g_windowStart = -windowSize;
    size_t g_next = 0;  ///< Of the places
    size_t g_found = 0; ///< that were found in the window.
    std::array<quint16, static_cast<size_t>(windowSize) + spare> g_places;
};

} // namespace tavrin
