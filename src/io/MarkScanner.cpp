// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/MarkScanner.h"

// Highway compiles this file once for every set of vector instructions; see plist/ByteScan.cpp.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "io/MarkScanner.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavrin::HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

void findMarksInBlocks(const char *blocks, qsizetype count, const Marks &marks, quint64 *found)
{
    for (qsizetype block = 0; block < count; ++block) {
        found[block] = 0;
        for (int at = 0; at < 64; ++at, ++blocks) {
            if (std::find(marks.begin(), marks.end(), *blocks) != marks.end())
                found[block] |= quint64(1) << at;
        }
    }
}

#else

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t blockSize = 64;
using ByteLanes = hn::CappedTag<std::uint8_t, blockSize>;
constexpr ByteLanes lanes;

HWY_INLINE hn::Mask<ByteLanes> is(hn::Vec<ByteLanes> bytes, char mark)
{
    return hn::Eq(bytes, hn::Set(lanes, static_cast<std::uint8_t>(mark)));
}

void findMarksInBlocks(const char *blocks, qsizetype count, const Marks &marks, quint64 *found)
{
    for (const quint64 *end = found + count; found != end; ++found, blocks += blockSize) {
        quint64 all = 0;
        for (std::size_t at = 0; at < blockSize; at += hn::Lanes(lanes)) {
            const auto bytes = hn::LoadU(lanes, reinterpret_cast<const std::uint8_t *>(blocks + at));
            const auto left = hn::Or(hn::Or(is(bytes, marks[0]), is(bytes, marks[1])), is(bytes, marks[2]));
            const auto right = hn::Or(hn::Or(is(bytes, marks[3]), is(bytes, marks[4])), is(bytes, marks[5]));
            quint64 bits = 0;
            hn::StoreMaskBits(lanes, hn::Or(left, right), reinterpret_cast<std::uint8_t *>(&bits));
            all |= bits << at;
        }
        *found = all;
    }
}

#endif

} // namespace tavrin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavrin {

HWY_EXPORT(findMarksInBlocks);

void findMarks(const char *blocks, qsizetype count, const Marks &marks, quint64 *found)
{
    HWY_DYNAMIC_DISPATCH(findMarksInBlocks)(blocks, count, marks, found);
}

} // namespace tavrin
#endif
