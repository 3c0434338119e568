// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlText.h"

#include "plist/Utf8.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

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

/// Hands text with entities on, piece by piece and decoded.
template <typename Receiver>
bool decodeEntities(QByteArrayView utf8, Receiver &receiver, qsizetype &position)
{
    constexpr qsizetype longestName = 11; // "#x" and 8 digits, and a semicolon
    while (!utf8.isEmpty()) {
        const qsizetype ampersand = utf8.indexOf('&');
        const QByteArrayView plain = ampersand < 0 ? utf8 : utf8.first(ampersand);
        receiver.takePlain(plain);
        position += plain.size();
        if (ampersand < 0)
            return true;
        utf8 = utf8.sliced(ampersand + 1);
        const qsizetype semicolon = utf8.first(std::min(utf8.size(), longestName)).indexOf(';');
        const auto character = semicolon < 0 ? std::nullopt : entityCharacter(utf8.first(semicolon));
        if (!character)
            return false;
        receiver.takeCharacter(*character);
        utf8 = utf8.sliced(semicolon + 1);
        position += semicolon + 2;
    }
    return true;
}

template <typename Receiver>
XmlTextExtent walkXmlText(QByteArrayView utf8, Receiver &receiver)
{
    constexpr QByteArrayView cdataStart("<![CDATA[");
    constexpr QByteArrayView cdataEnd("]]>");
    qsizetype length = 0;
    for (;;) {
        const QByteArrayView rest = utf8.sliced(length);
        const qsizetype plainLength = rest.indexOf('<');
        if (plainLength < 0)
            return {length, "the file ends inside a text"};
        const QByteArrayView markup = rest.sliced(plainLength);
        if (!decodeEntities(rest.first(plainLength), receiver, length))
            return {length, "unknown or malformed entity"};
        if (markup.startsWith("</"))
            return {length, nullptr};
        const qsizetype end = markup.startsWith(cdataStart) ? markup.indexOf(cdataEnd) : -1;
        if (end < 0)
            return {length, "markup inside a text"};
        receiver.takePlain(markup.sliced(cdataStart.size(), end - cdataStart.size()));
        length += end + cdataEnd.size();
    }
}

struct TextBuilder
{
    QString text;

    void takePlain(QByteArrayView utf8)
    {
        if (text.isEmpty())
            text = fromUtf8(utf8);
        else
            text += fromUtf8(utf8);
    }
    void takeCharacter(char32_t character) { text += QChar::fromUcs4(character); }
};

struct TextIgnorer
{
    void takePlain(QByteArrayView /*utf8*/) {}
    void takeCharacter(char32_t /*character*/) {}
};

} // namespace

XmlText readXmlText(QByteArrayView utf8)
{
    TextBuilder builder{u""_s};
    const XmlTextExtent extent = walkXmlText(utf8, builder);
    if (builder.text.isNull())
        builder.text = u""_s;
    return {std::move(builder.text), extent.length, extent.failure};
}

XmlTextExtent checkXmlText(QByteArrayView utf8)
{
    TextIgnorer ignorer;
    return walkXmlText(utf8, ignorer);
}

} // namespace tavrin::plist
