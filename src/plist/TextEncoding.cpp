// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/TextEncoding.h"

#include "plist/ByteScan.h"
#include "plist/ReadError.h"

#include <QString>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

enum class Encoding { Utf8, Utf16Little, Utf16Big, Utf32Little, Utf32Big, Ascii, Latin1, Windows1252 };

struct ByteOrderMark
{
    QByteArrayView bytes;
    Encoding encoding = Encoding::Utf8;
};

// The 32-bit marks first: one of them begins like a 16-bit one.
constexpr ByteOrderMark byteOrderMarks[] = {
    {QByteArrayView("\x00\x00\xFE\xFF", 4), Encoding::Utf32Big},
    {QByteArrayView("\xFF\xFE\x00\x00", 4), Encoding::Utf32Little},
    {QByteArrayView("\xEF\xBB\xBF", 3), Encoding::Utf8},
    {QByteArrayView("\xFE\xFF", 2), Encoding::Utf16Big},
    {QByteArrayView("\xFF\xFE", 2), Encoding::Utf16Little},
};

struct EncodingName
{
    QByteArrayView name;
    Encoding encoding = Encoding::Utf8;
};

constexpr EncodingName encodingNames[] = {
    {"utf-8", Encoding::Utf8},
    {"utf8", Encoding::Utf8},
    {"us-ascii", Encoding::Ascii},
    {"ascii", Encoding::Ascii},
    {"iso-8859-1", Encoding::Latin1},
    {"iso_8859-1", Encoding::Latin1},
    {"latin1", Encoding::Latin1},
    {"windows-1252", Encoding::Windows1252},
    {"cp1252", Encoding::Windows1252},
};

// 0x80 to 0x9F; the rest is as in Latin-1. Unassigned places keep their control character.
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The name that an XML declaration gives, empty when it gives none.
QByteArrayView declaredName(QByteArrayView bytes)
{
    constexpr QByteArrayView opening("<?xml");
    constexpr QByteArrayView attribute("encoding=");
    if (!bytes.startsWith(opening))
        return {};
    const auto end = std::find_if(
        bytes.begin() + opening.size(), bytes.end(), [](char byte) { return byte == '?' || byte == '>'; });
    const auto found = std::search(bytes.begin(), end, attribute.begin(), attribute.end());
    if (end - found <= attribute.size())
        return {};
    const auto quote = found + attribute.size();
    const auto closing = std::find(quote + 1, end, *quote);
    if ((*quote != '"' && *quote != '\'') || closing == end)
        return {};
    return {quote + 1, closing};
}

std::optional<QByteArray> decodeSingleBytes(QByteArrayView bytes, Encoding encoding)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &unit : text) {
        if (encoding == Encoding::Ascii && unit.unicode() >= 0x80)
            return {};
        if (encoding == Encoding::Windows1252 && unit.unicode() >= 0x80 && unit.unicode() < 0xA0)
            unit = windows1252[unit.unicode() - 0x80U];
    }
    return text.toUtf8();
}

std::optional<QByteArray> decodeUtf16(QByteArrayView bytes, bool isLittleEndian)
{
    if (bytes.size() % 2 != 0)
        return {};
    QString text(bytes.size() / 2, Qt::Uninitialized);
    auto *units = reinterpret_cast<char16_t *>(text.data());
    if (isLittleEndian)
        qFromLittleEndian<char16_t>(bytes.data(), text.size(), units);
    else
        qFromBigEndian<char16_t>(bytes.data(), text.size(), units);
    if (!text.isValidUtf16())
        return {};
    return text.toUtf8();
}

std::optional<QByteArray> decodeUtf32(QByteArrayView bytes, bool isLittleEndian)
{
    if (bytes.size() % 4 != 0)
        return {};
    QString text;
    text.reserve(bytes.size() / 4);
    for (qsizetype i = 0; i < bytes.size(); i += 4) {
        const char *at = bytes.data() + i;
        const char32_t point =
            isLittleEndian ? qFromLittleEndian<char32_t>(at) : qFromBigEndian<char32_t>(at);
        if (point > QChar::LastValidCodePoint || QChar::isSurrogate(point))
            return {};
        text.append(QStringView(QChar::fromUcs4(point)));
    }
    return text.toUtf8();
}

std::optional<QByteArray> decode(QByteArrayView bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf16Little:
    case Encoding::Utf16Big:
        return decodeUtf16(bytes, encoding == Encoding::Utf16Little);
    case Encoding::Utf32Little:
    case Encoding::Utf32Big:
        return decodeUtf32(bytes, encoding == Encoding::Utf32Little);
    case Encoding::Ascii:
    case Encoding::Latin1:
    case Encoding::Windows1252:
        return decodeSingleBytes(bytes, encoding);
    case Encoding::Utf8:
        break;
    }
    return QByteArray::fromRawData(bytes.data(), bytes.size());
}

// Only after the whole is known to be faulty: finds the first faulty line.
qsizetype faultyUtf8Position(QByteArrayView bytes)
{
    qsizetype start = 0;
    while (start < bytes.size()) {
        const qsizetype newline = bytes.indexOf('\n', start);
        const qsizetype end = newline < 0 ? bytes.size() : newline + 1;
        if (!bytes.sliced(start, end - start).isValidUtf8())
            break;
        start = end;
    }
    return start;
}

Result<QByteArray> decodeStrictly(QByteArrayView bytes, Encoding encoding)
{
    std::optional<QByteArray> text = decode(bytes, encoding);
    if (!text)
        return corruptAtLine({}, 0, "the text is not in the encoding that the file claims");
    if (encoding == Encoding::Utf8 && !isValidUtf8(*text))
        return corruptAtLine(*text, faultyUtf8Position(*text), "not valid UTF-8");
    return *std::move(text);
}

} // namespace

Result<QByteArray> toUtf8(QByteArrayView bytes)
{
    for (const ByteOrderMark &mark : byteOrderMarks) {
        if (bytes.startsWith(mark.bytes))
            return decodeStrictly(bytes.sliced(mark.bytes.size()), mark.encoding);
    }
    // 16-bit XML without a mark: nothing else begins so.
    if (bytes.startsWith(QByteArrayView("<\0", 2)))
        return decodeStrictly(bytes, Encoding::Utf16Little);
    if (bytes.startsWith(QByteArrayView("\0<", 2)))
        return decodeStrictly(bytes, Encoding::Utf16Big);

    const QByteArrayView declared = declaredName(bytes);
    if (declared.isEmpty())
        return decodeStrictly(bytes, Encoding::Utf8);
    const auto *known = std::ranges::find_if(encodingNames, [declared](const EncodingName &candidate) {
        return candidate.name.compare(declared, Qt::CaseInsensitive) == 0;
    });
    if (known == std::end(encodingNames))
        return corruptAtLine(bytes, 0, "the declared encoding is not known");
    return decodeStrictly(bytes, known->encoding);
}

bool beginsLikeXml(QByteArrayView utf8)
{
    const auto first = std::ranges::find_if_not(
        utf8, [](char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); });
    return first != utf8.end() && *first == '<';
}

} // namespace tavrin::plist
