// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/AsciiSearch.h"

#include "text/Folding.h"

#include <utility>

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
    size_t rarest; ///< Where in it the two units stand that texts have least often.
    size_t second;

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

/// The first of the places before `end` where the needle stands; `end` when it stands nowhere. Then it also
/// tells whether the units from needle.rarest on, as many as there are places, are ASCII.
template <typename Unit>
HWY_INLINE size_t findUnits(const Unit *text, size_t end, Needle needle, bool &isAscii)
{
    const hn::CappedTag<Unit, 64 / sizeof(Unit)> lanes;
    const size_t step = hn::Lanes(lanes);
    const auto rarest = hn::Set(lanes, needle.units[needle.rarest]);
    const auto rarestCase = hn::Set(lanes, needle.caseBit(needle.rarest));
    const auto second = hn::Set(lanes, needle.units[needle.second]);
    const auto secondCase = hn::Set(lanes, needle.caseBit(needle.second));
    auto seen = hn::Zero(lanes);
    for (size_t at = 0; at + step <= end;) {
        // Where both units stand right, the needle may stand.
        const auto units = hn::LoadU(lanes, text + at + needle.rarest);
        seen = hn::Or(seen, units);
        const auto isRarest = hn::Eq(hn::Or(units, rarestCase), rarest);
        const auto isSecond = hn::Eq(hn::Or(hn::LoadU(lanes, text + at + needle.second), secondCase), second);
        const auto isBoth = hn::And(isRarest, isSecond);
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
    constexpr Unit firstBeyondAscii = 0x80;
    isAscii = hn::AllTrue(lanes, hn::Lt(seen, hn::Set(lanes, firstBeyondAscii)));
    for (size_t at = 0; end < step && at < end; ++at) {
        if (matches(text + at, needle))
            return at;
        isAscii = isAscii && text[at + needle.rarest] < firstBeyondAscii;
    }
    return end;
}

Needle needleOf(const AsciiNeedle &needle)
{
    return {reinterpret_cast<const uchar *>(needle.units.constData()),
            static_cast<size_t>(needle.units.size()),
            needle.caseInsensitive,
            needle.rarest,
            needle.second};
}

size_t findInUnits(const char16_t *text, size_t end, const AsciiNeedle &needle, bool &isAscii)
{
    return findUnits(reinterpret_cast<const quint16 *>(text), end, needleOf(needle), isAscii);
}

size_t findInBytes(const char *text, size_t end, const AsciiNeedle &needle, bool &isAscii)
{
    return findUnits(reinterpret_cast<const uchar *>(text), end, needleOf(needle), isAscii);
}

} // namespace tavrin::text::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavrin::text {

HWY_EXPORT(findInUnits);
HWY_EXPORT(findInBytes);

namespace {

/// How seldom people's texts have the character; only the order means something.
qsizetype rarity(char character)
{
    constexpr QByteArrayView commonFirst(" etaoinsrhldcumfpgwyb.,\nv0123456789kETAOINSRHLDCMxjqz");
    const qsizetype place = commonFirst.indexOf(character);
    return place < 0 ? commonFirst.size() : place;
}

} // namespace

AsciiNeedle::AsciiNeedle(QStringView text, bool ignoresCase)
    : units(text.toLatin1())
    , caseInsensitive(ignoresCase)
{
    const auto isRarer = [this](size_t left, size_t right) {
        return rarity(units[static_cast<qsizetype>(left)]) > rarity(units[static_cast<qsizetype>(right)]);
    };
    for (size_t place = 1; place < static_cast<size_t>(units.size()); ++place) {
        if (isRarer(place, rarest))
            second = std::exchange(rarest, place);
        else if (second == rarest || isRarer(place, second))
            second = place;
    }
}

qsizetype AsciiSearch::find(QStringView text, qsizetype from) const
{
    const qsizetype places = text.size() - g_needle.units.size() + 1 - from;
    if (places <= 0)
        return -1;
    bool isAscii = false;
    const auto place = static_cast<qsizetype>(HWY_DYNAMIC_DISPATCH(findInUnits)(
        text.utf16() + from, static_cast<size_t>(places), g_needle, isAscii));
    return place < places ? from + place : -1;
}

AsciiSearch::Outcome AsciiSearch::find(QByteArrayView text) const
{
    const qsizetype places = text.size() - g_needle.units.size() + 1;
    const auto areAscii = [](QByteArrayView bytes) { return text::isAscii(QLatin1StringView(bytes)); };
    if (places <= 0)
        return {-1, areAscii(text)};
    bool isAscii = false;
    const auto place = static_cast<qsizetype>(
        HWY_DYNAMIC_DISPATCH(findInBytes)(text.data(), static_cast<size_t>(places), g_needle, isAscii));
    if (place < places)
        return {place, false};
    // What the search has not looked at: a few bytes in front and behind.
    const auto start = static_cast<qsizetype>(g_needle.rarest);
    return {-1, isAscii && areAscii(text.first(start)) && areAscii(text.sliced(start + places))};
}

bool AsciiSearch::matchesAt(QStringView text, qsizetype start) const
{
    const qsizetype size = g_needle.units.size();
    return start + size <= text.size() && find(text.sliced(start, size), 0) == 0;
}

} // namespace tavrin::text
#endif
