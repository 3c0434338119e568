// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

namespace tavrin::plist {

/// What two neighbouring bytes tell about UTF-8, as three tables of sixteen entries.
///
/// Look up the high half of the first byte, the low half of the first and the high half of the second: a bit
/// that is set in all three is a fault. The method is that of J. Keiser and D. Lemire, "Validating UTF-8 in
/// less than one instruction per byte", Software: Practice and Experience 51 (2021).
struct Utf8Faults
{
    using Table = std::array<std::uint8_t, 16>;
    Table firstHigh{};
    Table firstLow{};
    Table secondHigh{};

    /// The bit of two continuations in a row: a fault unless a lead of three or four bytes stands before.
    static constexpr std::uint8_t twoContinuations = 0x80;
};

namespace detail {

/// A set of half bytes, one bit each.
constexpr unsigned halves(unsigned first, unsigned last)
{
    return ((2U << last) - 1) & ~((1U << first) - 1);
}

constexpr Utf8Faults utf8Faults()
{
    constexpr unsigned any = halves(0x0, 0xF);
    constexpr unsigned ascii = halves(0x0, 0x7);
    constexpr unsigned continuation = halves(0x8, 0xB);
    constexpr unsigned lead = halves(0xC, 0xF);
    struct Pair
    {
        unsigned firstHigh, firstLow, secondHigh;
    };
    constexpr Pair pairs[8] = {
        {lead, any, any & ~continuation},                              // cut short
        {ascii, any, continuation},                                    // a continuation of nothing
        {halves(0xC, 0xC), halves(0x0, 0x1), continuation},            // overlong: C0, C1
        {halves(0xE, 0xE), halves(0x0, 0x0), halves(0x8, 0x9)},        // overlong: E0 80 to 9F
        {halves(0xE, 0xE), halves(0xD, 0xD), halves(0xA, 0xB)},        // surrogate: ED A0 to BF
        {halves(0xF, 0xF), halves(0x4, 0xF), halves(0x9, 0xB)},        // too large: F4 90 and above
        {halves(0xF, 0xF), any & ~halves(0x1, 0x4), halves(0x8, 0x8)}, // overlong: F0 80; too large: F5
        {continuation, any, continuation},                             // Utf8Faults::twoContinuations
    };
    Utf8Faults faults;
    for (unsigned half = 0; half < 16; ++half) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            const auto entry = [half, bit](unsigned set) {
                return static_cast<std::uint8_t>(((set >> half) & 1U) << bit);
            };
            faults.firstHigh[half] |= entry(pairs[bit].firstHigh);
            faults.firstLow[half] |= entry(pairs[bit].firstLow);
            faults.secondHigh[half] |= entry(pairs[bit].secondHigh);
        }
    }
    return faults;
}

} // namespace detail

alignas(16) inline constexpr Utf8Faults utf8Faults = detail::utf8Faults();

} // namespace tavrin::plist
