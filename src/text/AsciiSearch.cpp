// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/AsciiSearch.h"

// Highway compiles this file once for every set of vector instructions. What stands between its
// BEFORE_NAMESPACE and AFTER_NAMESPACE exists as often; the rest, under HWY_ONCE, exists once.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "text/AsciiSearch.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavrin::text::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

struct Needle
{
    const uchar *units;
    size_t size;
    bool caseInsensitive;

    /// The bit in which the case of the unit shows.
    HWY_INLINE uchar caseBit(size_t index) const
    {
        return caseInsensitive && units[index] >= 'a' && units[index] <= 'z' ? 0x20 : 0;
    }
};

template <typename Unit>
HWY_INLINE bool matches(const Unit *text, Needle needle)
{
    for (size_t i = 0; i < needle.size; ++i) {
        if ((text[i] | needle.caseBit(i)) != needle.units[i])
            return false;
    }
    return true;
}

/// The first of the places before `end` where the needle stands; `end` when it stands nowhere.
template <typename Unit>
HWY_INLINE size_t findUnits(const Unit *text, size_t end, Needle needle)
{
    const hn::CappedTag<Unit, 64 / sizeof(Unit)> lanes;
    const size_t step = hn::Lanes(lanes);
    const size_t behind = needle.size - 1;
    const auto first = hn::Set(lanes, needle.units[0]);
    const auto firstCase = hn::Set(lanes, needle.caseBit(0));
    const auto last = hn::Set(lanes, needle.units[behind]);
    const auto lastCase = hn::Set(lanes, needle.caseBit(behind));
    for (size_t at = 0; at + step <= end;) {
        // Where both the first and the last unit stand right, the needle may stand.
        const auto isFirst = hn::Eq(hn::Or(hn::LoadU(lanes, text + at), firstCase), first);
        const auto isLast = hn::Eq(hn::Or(hn::LoadU(lanes, text + at + behind), lastCase), last);
        const auto isBoth = hn::And(isFirst, isLast);
        if (!hn::AllFalse(lanes, isBoth)) {
            quint64 bits = 0;
            hn::StoreMaskBits(lanes, isBoth, reinterpret_cast<uchar *>(&bits));
            for (; bits != 0; bits &= bits - 1) {
                const size_t place = at + hwy::Num0BitsBelowLS1Bit_Nonzero64(bits);
                if (matches(text + place, needle))
                    return place;
            }
        }
        // The last step may look at some places once more.
        at = at + step == end || at + 2 * step <= end ? at + step : end - step;
    }
    for (size_t at = 0; end < step && at < end; ++at) {
        if (matches(text + at, needle))
            return at;
    }
    return end;
}

size_t findInUnits(const char16_t *text, size_t end, const char *needle, size_t size, bool caseInsensitive)
{
    return findUnits(reinterpret_cast<const quint16 *>(text),
                     end,
                     {reinterpret_cast<const uchar *>(needle), size, caseInsensitive});
}

size_t findInBytes(const char *text, size_t end, const char *needle, size_t size, bool caseInsensitive)
{
    return findUnits(reinterpret_cast<const uchar *>(text),
                     end,
                     {reinterpret_cast<const uchar *>(needle), size, caseInsensitive});
}

} // namespace tavrin::text::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavrin::text {

HWY_EXPORT(findInUnits);
HWY_EXPORT(findInBytes);

namespace {

/// Calls find(end, size) over the places at or behind `from`, of which it gives the first or `end`.
template <typename Find>
qsizetype findFrom(qsizetype from, qsizetype textSize, qsizetype needleSize, Find find)
{
    const qsizetype places = textSize - needleSize + 1 - from;
    if (places <= 0)
        return -1;
    const auto place =
        static_cast<qsizetype>(find(static_cast<size_t>(places), static_cast<size_t>(needleSize)));
    return place < places ? from + place : -1;
}

} // namespace

qsizetype AsciiSearch::find(QStringView text, qsizetype from) const
{
    return findFrom(from, text.size(), g_needle.size(), [&](size_t end, size_t size) {
        return HWY_DYNAMIC_DISPATCH(findInUnits)(
            text.utf16() + from, end, g_needle.constData(), size, g_caseInsensitive);
    });
}

qsizetype AsciiSearch::find(QByteArrayView text, qsizetype from) const
{
    return findFrom(from, text.size(), g_needle.size(), [&](size_t end, size_t size) {
        return HWY_DYNAMIC_DISPATCH(findInBytes)(
            text.data() + from, end, g_needle.constData(), size, g_caseInsensitive);
    });
}

bool AsciiSearch::matchesAt(QStringView text, qsizetype start) const
{
    return start + g_needle.size() <= text.size() && find(text.sliced(start, g_needle.size()), 0) == 0;
}

} // namespace tavrin::text
#endif
