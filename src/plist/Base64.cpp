// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/Base64.h"

#include <algorithm>
#include <array>

namespace tavrin::plist {

namespace {

constexpr char symbols[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Symbols count as 0 to 63; the other kinds have a bit that no symbol has, so that one test tells.
constexpr quint8 padding = 64;
constexpr quint8 blank = 65;
constexpr quint8 other = 66;
constexpr quint8 foreign = 128;
constexpr quint8 notSymbol = padding | foreign;

constexpr std::array<quint8, 256> makeKinds()
{
    std::array<quint8, 256> kinds{};
    for (size_t i = 0; i < 256; ++i)
        kinds[i] = i < 0x80 ? other : foreign;
    for (const char byte : {' ', '\t', '\n', '\v', '\f', '\r'})
        kinds[static_cast<uchar>(byte)] = blank;
    for (quint8 i = 0; i < 64; ++i)
        kinds[static_cast<uchar>(symbols[i])] = i;
    kinds[static_cast<size_t>('=')] = padding;
    return kinds;
}

constexpr std::array<quint8, 256> kinds = makeKinds();

/// The two symbols of each 12 bits.
constexpr std::array<std::array<char, 2>, 4096> makePairs()
{
    std::array<std::array<char, 2>, 4096> pairs{};
    for (size_t bits = 0; bits < pairs.size(); ++bits)
        pairs[bits] = {symbols[bits >> 6], symbols[bits & 63]};
    return pairs;
}

constexpr std::array<std::array<char, 2>, 4096> pairs = makePairs();

quint8 kindOf(char byte)
{
    return kinds[static_cast<uchar>(byte)];
}

} // namespace

std::optional<QByteArray> decodeBase64(QByteArrayView text)
{
    QByteArray bytes(text.size() / 4 * 3, Qt::Uninitialized);
    char *out = bytes.data();
    const char *at = text.begin();
    const char *const end = text.end();
    quint32 group = 0;
    int symbolsInGroup = 0;
    int paddingRun = 0;
    while (at != end) {
        // The common case: a group without blanks or padding.
        while (symbolsInGroup == 0 && end - at >= 4) {
            const quint8 a = kindOf(at[0]);
            const quint8 b = kindOf(at[1]);
            const quint8 c = kindOf(at[2]);
            const quint8 d = kindOf(at[3]);
            if ((a | b | c | d) & notSymbol)
                break;
            const quint32 whole = quint32(a) << 18 | quint32(b) << 12 | quint32(c) << 6 | d;
            *out++ = static_cast<char>(whole >> 16);
            *out++ = static_cast<char>(whole >> 8);
            *out++ = static_cast<char>(whole);
            paddingRun = 0;
            at += 4;
        }
        if (at == end)
            break;
        const quint8 kind = kindOf(*at++);
        if (kind == foreign)
            return {};
        if (kind == padding)
            ++paddingRun;
        else if (kind != blank)
            paddingRun = 0;
        if (kind > padding)
            continue;
        group = group << 6 | (kind & 63U);
        if (++symbolsInGroup < 4)
            continue;
        *out++ = static_cast<char>(group >> 16);
        if (paddingRun < 2)
            *out++ = static_cast<char>(group >> 8);
        if (paddingRun < 1)
            *out++ = static_cast<char>(group);
        group = 0;
        symbolsInGroup = 0;
    }
    bytes.resize(out - bytes.data());
    return bytes;
}

char *encodeBase64(QByteArrayView bytes, char *out)
{
    const auto *at = reinterpret_cast<const uchar *>(bytes.data());
    qsizetype left = bytes.size();
    for (; left >= 3; left -= 3, at += 3) {
        const quint32 group = quint32(at[0]) << 16 | quint32(at[1]) << 8 | at[2];
        out = std::copy_n(pairs[group >> 12].data(), 2, out);
        out = std::copy_n(pairs[group & 4095].data(), 2, out);
    }
    if (left > 0) {
        const quint32 group = quint32(at[0]) << 16 | (left > 1 ? quint32(at[1]) << 8 : 0);
        *out++ = symbols[group >> 18];
        *out++ = symbols[group >> 12 & 63];
        *out++ = left > 1 ? symbols[group >> 6 & 63] : '=';
        *out++ = '=';
    }
    return out;
}

} // namespace tavrin::plist
