// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/MarkScanner.h"

// Highway compiles this file once for every set of vector instructions; see plist/ByteScan.cpp.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "io/MarkScanner.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include <bit>

HWY_BEFORE_NAMESPACE();
namespace tavrin::HWY_NAMESPACE {

constexpr std::size_t blockSize = 64;

#if HWY_TARGET == HWY_SCALAR

quint64 marksIn(const char *block, const Marks &marks)
{
    quint64 found = 0;
    for (std::size_t at = 0; at < blockSize; ++at) {
        if (std::find(marks.begin(), marks.end(), block[at]) != marks.end())
            found |= quint64(1) << at;
    }
    return found;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using ByteLanes = hn::CappedTag<std::uint8_t, blockSize>;
constexpr ByteLanes lanes;

HWY_INLINE hn::Mask<ByteLanes> is(hn::Vec<ByteLanes> bytes, char mark)
{
    return hn::Eq(bytes, hn::Set(lanes, static_cast<std::uint8_t>(mark)));
}

HWY_INLINE quint64 marksIn(const char *block, const Marks &marks)
{
    quint64 all = 0;
    for (std::size_t at = 0; at < blockSize; at += hn::Lanes(lanes)) {
        const auto bytes = hn::LoadU(lanes, reinterpret_cast<const std::uint8_t *>(block + at));
        auto found = is(bytes, marks[0]);
        for (std::size_t mark = 1; mark < marks.size(); ++mark)
            found = hn::Or(found, is(bytes, marks[mark]));
        quint64 bits = 0;
        hn::StoreMaskBits(lanes, found, reinterpret_cast<std::uint8_t *>(&bits));
        all |= bits << at;
    }
    return all;
}

#endif

std::size_t findMarks(const char *text, qsizetype blocks, const Marks &marks, quint16 *places)
{
    // Up to so many too many are written: to ask after each would cost more.
    constexpr int atOnce = 8;
    quint16 *to = places;
    for (std::size_t start = 0; start < static_cast<std::size_t>(blocks) * blockSize; start += blockSize) {
        quint64 found = marksIn(text + start, marks);
        const int count = std::popcount(found);
        for (int written = 0; written < count; written += atOnce) {
            for (int i = 0; i < atOnce; ++i) {
                to[written + i] =
                    static_cast<quint16>(start + static_cast<unsigned>(std::countr_zero(found)));
                found &= found - 1;
            }
        }
        to += count;
    }
    return static_cast<std::size_t>(to - places);
}

} // namespace tavrin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavrin {

HWY_EXPORT(findMarks);

// False at the end of the text. What stands behind it may look like marks.
bool MarkScanner::scan()
{
    g_next = 0;
    g_found = 0;
    while (g_found == 0 && g_windowStart + windowSize < g_text.size()) {
        g_windowStart += windowSize;
        const qsizetype left = g_text.size() - g_windowStart;
        const qsizetype blocks = std::min((left + blockSize - 1) / blockSize, windowBlocks);
        g_found =
            HWY_DYNAMIC_DISPATCH(findMarks)(g_text.data() + g_windowStart, blocks, g_marks, g_places.data());
        while (g_found > 0 && g_places[g_found - 1] >= left)
            --g_found;
    }
    return g_found > 0;
}

} // namespace tavrin
#endif
