// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfTokenizer.h"

#include "richtext/HexDigit.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tavrin::richtext {

namespace {

constexpr std::array<bool, 256> endsText = [] {
    std::array<bool, 256> ends{};
    for (const char byte : {'\\', '{', '}', '\r', '\n'})
        ends[static_cast<uchar>(byte)] = true;
    return ends;
}();

constexpr bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

constexpr bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

} // namespace

RtfToken RtfTokenizer::next()
{
    using Kind = RtfToken::Kind;
    while (g_next != g_end && (*g_next == '\n' || *g_next == '\r'))
        ++g_next;
    if (g_next == g_end)
        return {};
    switch (*g_next) {
    case '{':
        ++g_next;
        return {Kind::Open, false, 0, {}};
    case '}':
        ++g_next;
        return {Kind::Close, false, 0, {}};
    case '\\':
        ++g_next;
        return afterBackslash();
    default:
        const char *start = g_next;
        while (g_next != g_end && !endsText[static_cast<uchar>(*g_next)])
            ++g_next;
        return {Kind::Text, false, 0, {start, g_next}};
    }
}

RtfToken RtfTokenizer::afterBackslash()
{
    using Kind = RtfToken::Kind;
    if (g_next == g_end)
        return {};
    if (isLetter(*g_next))
        return word();
    if (*g_next == '\'' && g_end - g_next > 2 && hexDigit(g_next[1]) >= 0 && hexDigit(g_next[2]) >= 0) {
        const qint32 byte = hexDigit(g_next[1]) * 16 + hexDigit(g_next[2]);
        g_next += 3;
        return {Kind::Byte, true, byte, {}};
    }
    return {Kind::Symbol, false, 0, {g_next++, 1}};
}

RtfToken RtfTokenizer::word()
{
    RtfToken token{RtfToken::Kind::Word, false, 0, {}};
    const char *start = g_next;
    while (g_next != g_end && isLetter(*g_next))
        ++g_next;
    token.bytes = {start, g_next};
    const bool isNegative = g_end - g_next > 1 && *g_next == '-' && isDigit(g_next[1]);
    if (isNegative)
        ++g_next;
    qint64 number = 0;
    constexpr qint64 largest = std::numeric_limits<qint32>::max();
    for (; g_next != g_end && isDigit(*g_next); ++g_next) {
        number = std::min(number * 10 + (*g_next - '0'), largest);
        token.hasNumber = true;
    }
    token.number = static_cast<qint32>(isNegative ? -number : number);
    if (g_next != g_end && *g_next == ' ')
        ++g_next;
    if (token.bytes == QByteArrayView("bin")) {
        const qsizetype size = std::clamp<qsizetype>(token.number, 0, g_end - g_next);
        token = {RtfToken::Kind::Binary, false, 0, {g_next, size}};
        g_next += size;
    }
    return token;
}

} // namespace tavrin::richtext
