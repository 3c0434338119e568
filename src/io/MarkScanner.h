// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QtAlgorithms>

#include <algorithm>
#include <array>

namespace tavrin {

/// The bytes that a MarkScanner stops at. One that is not needed is given twice.
using Marks = std::array<char, 6>;

/// One bit for each of the 64 bytes of a block, lowest first: whether it is one of the marks.
void findMarks(const char *blocks, qsizetype count, const Marks &marks, quint64 *found);

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
        while (g_bits == 0) {
            if (++g_block * blockSize >= g_text.size())
                return g_text.size();
            if (g_block >= g_windowEnd)
                scan();
            g_bits = g_found[static_cast<size_t>(g_block - g_windowStart)];
        }
        const qsizetype place = g_block * blockSize + qCountTrailingZeroBits(g_bits);
        g_bits &= g_bits - 1;
        return std::min(place, g_text.size());
    }

private:
    static constexpr qsizetype window = 128;

    void scan()
    {
        const qsizetype blocks = (g_text.size() + blockSize - 1) / blockSize;
        g_windowStart = g_block;
        g_windowEnd = std::min(blocks, g_block + window);
        findMarks(g_text.data() + g_block * blockSize, g_windowEnd - g_windowStart, g_marks, g_found.data());
    }

    QByteArrayView g_text;
    Marks g_marks;
    qsizetype g_block = -1;
    qsizetype g_windowStart = 0;
    qsizetype g_windowEnd = 0;
    quint64 g_bits = 0;
    std::array<quint64, window> g_found;
};

} // namespace tavrin
