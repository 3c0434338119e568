// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlText.h"

#include "plist/Utf8.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

std::optional<char32_t> numberedCharacter(QByteArrayView digits)
{
    const bool isHexadecimal = digits.startsWith('x');
    if (isHexadecimal)
        digits = digits.sliced(1);
    quint32 point = 0;
    if (digits.size() > 8)
        return {};
    const auto [stop, error] = std::from_chars(digits.begin(), digits.end(), point, isHexadecimal ? 16 : 10);
    if (error != std::errc() || stop != digits.end() || point > QChar::LastValidCodePoint
        || QChar::isSurrogate(point))
        return {};
    return point;
}

// The character that an entity stands for, given what is between "&" and ";".
std::optional<char32_t> entityCharacter(QByteArrayView name)
{
    if (name.startsWith('#'))
        return numberedCharacter(name.sliced(1));
    if (name == "lt")
        return U'<';
    if (name == "gt")
        return U'>';
    if (name == "amp")
        return U'&';
    if (name == "quot")
        return U'"';
    if (name == "apos")
        return U'\'';
    return {};
}

/// Decodes text with entities, piece by piece.
bool appendDecoded(QByteArrayView utf8, QString &text, qsizetype &position)
{
    constexpr qsizetype longestName = 11; // "#x" and 8 digits, and a semicolon
    while (!utf8.isEmpty()) {
        const qsizetype ampersand = utf8.indexOf('&');
        const QByteArrayView plain = ampersand < 0 ? utf8 : utf8.first(ampersand);
        text += fromUtf8(plain);
        position += plain.size();
        if (ampersand < 0)
            return true;
        utf8 = utf8.sliced(ampersand + 1);
        const qsizetype semicolon = utf8.first(std::min(utf8.size(), longestName)).indexOf(';');
        const auto character = semicolon < 0 ? std::nullopt : entityCharacter(utf8.first(semicolon));
        if (!character)
            return false;
        text += QChar::fromUcs4(*character);
        utf8 = utf8.sliced(semicolon + 1);
        position += semicolon + 2;
    }
    return true;
}

} // namespace

XmlText readXmlText(QByteArrayView utf8)
{
    constexpr QByteArrayView cdataStart("<![CDATA[");
    constexpr QByteArrayView cdataEnd("]]>");
    XmlText result{u""_s};
    for (;;) {
        const QByteArrayView rest = utf8.sliced(result.length);
        const qsizetype plainLength = rest.indexOf('<');
        if (plainLength < 0) {
            result.failure = "the file ends inside a text";
            return result;
        }
        const QByteArrayView plain = rest.first(plainLength);
        const QByteArrayView markup = rest.sliced(plainLength);
        const bool hasEntities = plain.contains('&');
        if (!hasEntities && result.length == 0) {
            result.text = fromUtf8(plain);
            result.length += plainLength;
        } else if (!appendDecoded(plain, result.text, result.length)) {
            result.failure = "unknown or malformed entity";
            return result;
        }
        if (markup.startsWith("</"))
            return result;
        const qsizetype end = markup.startsWith(cdataStart) ? markup.indexOf(cdataEnd) : -1;
        if (end < 0) {
            result.failure = "markup inside a text";
            return result;
        }
        result.text += fromUtf8(markup.sliced(cdataStart.size(), end - cdataStart.size()));
        result.length += end + cdataEnd.size();
    }
}

} // namespace tavrin::plist
