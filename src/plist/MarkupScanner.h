// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/ByteScan.h"

#include <QtAlgorithms>

#include <algorithm>
#include <array>

namespace tavrin::plist {

/// Finds one '<' after the other in a text, and tells what stood on the way. It only goes forward.
///
/// The text is classified a window at a time, so that its bytes are in the cache when they are looked at.
class MarkupScanner
{
public:
    static constexpr qsizetype blockSize = 64;

    /// The text is followed by at least blockSize readable bytes.
    explicit MarkupScanner(QByteArrayView text) : g_text(text) {}

    /// The first '<' at `from` or behind it; the end of the text when there is none.
    const char *next(const char *from)
    {
        const auto offset = from - g_text.data();
        qsizetype block = offset / blockSize;
        const quint64 behind = ~quint64(0) << (offset % blockSize);
        g_passedAmpersand = false;
        g_passedBeyondAscii = false;
        ByteMasks masks = masksOf(block);
        quint64 markup = masks.markup & behind;
        quint64 ampersand = masks.ampersand & behind;
        quint64 beyondAscii = masks.beyondAscii & behind;
        quint64 passedAmpersands = 0;
        quint64 passedBeyondAscii = 0;
        while (markup == 0) {
            passedAmpersands |= ampersand;
            passedBeyondAscii |= beyondAscii;
            if (++block * blockSize >= g_text.size()) {
                g_passedAmpersand = passedAmpersands != 0;
                g_passedBeyondAscii = passedBeyondAscii != 0;
                return g_text.end();
            }
            masks = masksOf(block);
            markup = masks.markup;
            ampersand = masks.ampersand;
            beyondAscii = masks.beyondAscii;
        }
        const quint64 before = (markup & (~markup + 1)) - 1;
        g_passedAmpersand = (passedAmpersands | (ampersand & before)) != 0;
        g_passedBeyondAscii = (passedBeyondAscii | (beyondAscii & before)) != 0;
        const char *found = g_text.data() + block * blockSize + qCountTrailingZeroBits(markup);
        return std::min(found, g_text.end());
    }

    /// Whether the last search passed such a byte.
    bool passedAmpersand() const { return g_passedAmpersand; }
    bool passedBeyondAscii() const { return g_passedBeyondAscii; }

private:
    static constexpr qsizetype firstWindow = 8;
    static constexpr qsizetype largestWindow = 256;

    const ByteMasks &masksOf(qsizetype block)
    {
        if (block >= g_windowEnd)
            classifyFrom(block);
        return g_masks[static_cast<size_t>(block - g_windowStart)];
    }

    void classifyFrom(qsizetype block)
    {
        // Small at first, for who looks at a few bytes only.
        g_window = std::min(2 * g_window, largestWindow);
        const qsizetype blocks = (g_text.size() + blockSize - 1) / blockSize;
        g_windowStart = block;
        g_windowEnd = block + std::clamp<qsizetype>(blocks - block, 1, g_window);
        classify(g_text.data() + block * blockSize, g_windowEnd - block, g_masks.data());
    }

    QByteArrayView g_text;
    qsizetype g_window = firstWindow / 2;
    qsizetype g_windowStart = 0;
    qsizetype g_windowEnd = 0;
    bool g_passedAmpersand = false;
    bool g_passedBeyondAscii = false;
    std::array<ByteMasks, largestWindow> g_masks;
};

} // namespace tavrin::plist
