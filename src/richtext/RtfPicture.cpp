// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfPicture.h"

#include "richtext/HexDigit.h"

#include <QStringDecoder>

#include <algorithm>

namespace tavrin::richtext {

namespace {

// Longer than any paper; the arithmetic stays in its range.
constexpr qint32 longest = 1'000'000;

qint32 lengthOf(const RtfToken &token)
{
    return std::clamp(token.number, 0, longest);
}

qint32 scaled(qint32 length, qint32 percent)
{
    return static_cast<qint32>(std::min<qint64>(static_cast<qint64>(length) * percent / 100, longest));
}

} // namespace

void RtfPicture::change(RtfPictureWord word, const RtfToken &token)
{
    switch (word) {
    case RtfPictureWord::Png:
        g_suffix = "png";
        break;
    case RtfPictureWord::Jpeg:
        g_suffix = "jpg";
        break;
    case RtfPictureWord::Metafile:
        g_suffix = "wmf";
        break;
    case RtfPictureWord::EnhancedMetafile:
        g_suffix = "emf";
        break;
    case RtfPictureWord::Bitmap:
        g_suffix = "dib";
        break;
    case RtfPictureWord::GoalWidth:
        g_width = lengthOf(token);
        break;
    case RtfPictureWord::GoalHeight:
        g_height = lengthOf(token);
        break;
    case RtfPictureWord::ScaleX:
        g_scaleX = lengthOf(token);
        break;
    case RtfPictureWord::ScaleY:
        g_scaleY = lengthOf(token);
        break;
    default:
        break;
    }
}

void RtfPicture::addHex(QByteArrayView digits)
{
    for (const char byte : digits) {
        const int digit = hexDigit(byte);
        if (digit < 0)
            continue;
        if (g_highDigit < 0) {
            g_highDigit = digit;
            continue;
        }
        g_bytes += static_cast<char>(g_highDigit << 4 | digit);
        g_highDigit = -1;
    }
}

Attachment RtfPicture::attachment(int number) const
{
    const QString name = QStringLiteral("Picture %1.").arg(number) + QLatin1StringView(g_suffix);
    return {name, g_bytes, scaled(g_width, g_scaleX), scaled(g_height, g_scaleY)};
}

void RtfGraphic::change(RtfPictureWord word, const RtfToken &token)
{
    if (word == RtfPictureWord::Width)
        g_width = lengthOf(token);
    else if (word == RtfPictureWord::Height)
        g_height = lengthOf(token);
    g_isNamed = true;
}

void RtfGraphic::addBytes(QByteArrayView bytes)
{
    // What stands behind the size is no name.
    if (g_isNamed)
        return;
    g_name += g_units.toUtf8();
    g_name += bytes;
    g_units.clear();
}

void RtfGraphic::addText(QStringView text)
{
    if (!g_isNamed)
        g_units += text;
}

QString RtfGraphic::name() const
{
    QStringDecoder utf8(QStringConverter::Utf8);
    const QByteArray bytes = g_name + g_units.toUtf8();
    const QString name = utf8.decode(bytes);
    return (utf8.hasError() ? QString::fromLatin1(bytes) : name).trimmed();
}

} // namespace tavrin::richtext
