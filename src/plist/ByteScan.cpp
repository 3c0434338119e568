// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/ByteScan.h"

#include "plist/Utf8Faults.h"

#include <algorithm>
#include <cstring>

// Highway compiles this file once for every set of vector instructions. What stands between its
// BEFORE_NAMESPACE and AFTER_NAMESPACE exists as often; the rest, under HWY_ONCE, exists once.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "plist/ByteScan.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavrin::plist::HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

void classifyBlocks(const char *bytes, qsizetype count, ByteMasks *masks)
{
    classifyPlainly(bytes, count, masks);
}

bool isUtf8(QByteArrayView bytes)
{
    return bytes.isValidUtf8();
}

#else

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t blockSize = 64;

// No vector is wider than a block, so that a block is a whole number of them.
using ByteLanes = hn::CappedTag<std::uint8_t, blockSize>;
using Bytes = hn::Vec<ByteLanes>;
constexpr ByteLanes lanes;

HWY_INLINE Bytes load(const char *bytes)
{
    return hn::LoadU(lanes, reinterpret_cast<const std::uint8_t *>(bytes));
}

HWY_INLINE quint64 bitsOf(hn::Mask<ByteLanes> mask)
{
    quint64 bits = 0;
    hn::StoreMaskBits(lanes, mask, reinterpret_cast<std::uint8_t *>(&bits));
    return bits;
}

HWY_INLINE hn::Mask<ByteLanes> isBeyondAscii(Bytes bytes)
{
    const hn::RebindToSigned<ByteLanes> asSigned;
    return hn::MaskFromVec(hn::BitCast(lanes, hn::BroadcastSignBit(hn::BitCast(asSigned, bytes))));
}

void classifyBlocks(const char *bytes, qsizetype count, ByteMasks *masks)
{
    const Bytes markup = hn::Set(lanes, '<');
    const Bytes ampersand = hn::Set(lanes, '&');
    for (const ByteMasks *end = masks + count; masks != end; ++masks, bytes += blockSize) {
        ByteMasks found{};
        for (std::size_t at = 0; at < blockSize; at += hn::Lanes(lanes)) {
            const Bytes piece = load(bytes + at);
            found.markup |= bitsOf(hn::Eq(piece, markup)) << at;
            found.ampersand |= bitsOf(hn::Eq(piece, ampersand)) << at;
            found.beyondAscii |= bitsOf(isBeyondAscii(piece)) << at;
        }
        *masks = found;
    }
}

// A character is judged by each of its bytes together with the three before it.
constexpr std::size_t lookBack = 3;

HWY_INLINE Bytes lookUp(const Utf8Faults::Table &table, Bytes halves)
{
    return hn::TableLookupBytes(hn::LoadDup128(lanes, table.data()), halves);
}

// Not 0 where a byte does not follow from those before it. Reads `lookBack` bytes before `at`.
HWY_INLINE Bytes faultsIn(const char *at)
{
    const Bytes second = load(at);
    const Bytes first = load(at - 1);
    const Bytes pairs = hn::And(hn::And(lookUp(utf8Faults.firstHigh, hn::ShiftRight<4>(first)),
                                        lookUp(utf8Faults.firstLow, hn::And(first, hn::Set(lanes, 0x0F)))),
                                lookUp(utf8Faults.secondHigh, hn::ShiftRight<4>(second)));
    // The subtraction leaves the highest bit to leads of three bytes (from E0) and of four (from F0).
    constexpr std::uint8_t highest = Utf8Faults::twoContinuations;
    const Bytes third = hn::SaturatedSub(load(at - 2), hn::Set(lanes, 0xE0 - highest));
    const Bytes fourth = hn::SaturatedSub(load(at - 3), hn::Set(lanes, 0xF0 - highest));
    const Bytes due = hn::And(hn::Or(third, fourth), hn::Set(lanes, highest));
    return hn::Xor(pairs, due);
}

HWY_INLINE Bytes faultsInBlock(const char *block)
{
    Bytes all = load(block - lookBack);
    for (std::size_t at = 0; at < blockSize; at += hn::Lanes(lanes))
        all = hn::Or(all, load(block + at));
    Bytes faults = hn::Zero(lanes);
    if (hn::AllFalse(lanes, isBeyondAscii(all)))
        return faults;
    for (std::size_t at = 0; at < blockSize; at += hn::Lanes(lanes))
        faults = hn::Or(faults, faultsIn(block + at));
    return faults;
}

// For a block that has nothing before it or ends behind the text: zeros, which are ASCII, stand in for that.
HWY_INLINE Bytes faultsAtEdge(QByteArrayView bytes, std::size_t block)
{
    char copy[lookBack + blockSize] = {};
    const std::size_t before = std::min(block, lookBack);
    const std::size_t size = std::min(static_cast<std::size_t>(bytes.size()) - block, blockSize);
    if (before + size > 0)
        std::memcpy(copy + lookBack - before, bytes.data() + block - before, before + size);
    return faultsInBlock(copy + lookBack);
}

bool isUtf8(QByteArrayView bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    Bytes faults = faultsAtEdge(bytes, 0);
    std::size_t block = blockSize;
    for (; block + blockSize <= size; block += blockSize)
        faults = hn::Or(faults, faultsInBlock(bytes.data() + block));
    // Even an empty last block is looked at: its zeros find a character that was cut short.
    if (block <= size)
        faults = hn::Or(faults, faultsAtEdge(bytes, block));
    return hn::AllTrue(lanes, hn::Eq(faults, hn::Zero(lanes)));
}

#endif

} // namespace tavrin::plist::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavrin::plist {

HWY_EXPORT(classifyBlocks);
HWY_EXPORT(isUtf8);

void classify(const char *bytes, qsizetype count, ByteMasks *masks)
{
    HWY_DYNAMIC_DISPATCH(classifyBlocks)(bytes, count, masks);
}

void classifyPlainly(const char *bytes, qsizetype count, ByteMasks *masks)
{
    for (const ByteMasks *end = masks + count; masks != end; ++masks) {
        *masks = {};
        for (quint64 bit = 1; bit != 0; bit <<= 1, ++bytes) {
            masks->markup |= *bytes == '<' ? bit : 0;
            masks->ampersand |= *bytes == '&' ? bit : 0;
            masks->beyondAscii |= static_cast<uchar>(*bytes) >= 0x80 ? bit : 0;
        }
    }
}

bool isValidUtf8(QByteArrayView bytes)
{
    return HWY_DYNAMIC_DISPATCH(isUtf8)(bytes);
}

} // namespace tavrin::plist
#endif
