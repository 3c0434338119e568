// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TextFile.h"

#include "plist/ByteScan.h"
#include "richtext/CodePage.h"

#include <QCoreApplication>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>

namespace tavrin {

namespace {

struct ByteOrderMark
{
    QByteArrayView bytes;
    TextEncoding encoding;
    qsizetype unit; ///< How many bytes a text of that encoding is a multiple of.
};

// The longer ones first: one of them begins like a shorter one.
const std::array<ByteOrderMark, 5> marks = {{
    {QByteArrayView("\x00\x00\xFE\xFF", 4), TextEncoding::Utf32BigEndian, 1},
    {QByteArrayView("\xFF\xFE\x00\x00", 4), TextEncoding::Utf32LittleEndian, 1},
    {QByteArrayView("\xFE\xFF", 2), TextEncoding::Utf16BigEndian, 2},
    {QByteArrayView("\xFF\xFE", 2), TextEncoding::Utf16LittleEndian, 2},
    {QByteArrayView("\xEF\xBB\xBF", 3), TextEncoding::Utf8, 1},
}};

QByteArrayView withoutMark(QByteArrayView bytes, TextEncoding encoding)
{
    for (const ByteOrderMark &mark : marks) {
        if (mark.encoding == encoding && bytes.startsWith(mark.bytes))
            return bytes.sliced(mark.bytes.size());
    }
    return bytes;
}

std::optional<QStringConverter::Encoding> unicodeEncoding(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8:
        return QStringConverter::Utf8;
    case TextEncoding::Utf16LittleEndian:
        return QStringConverter::Utf16LE;
    case TextEncoding::Utf16BigEndian:
        return QStringConverter::Utf16BE;
    case TextEncoding::Utf32LittleEndian:
        return QStringConverter::Utf32LE;
    case TextEncoding::Utf32BigEndian:
        return QStringConverter::Utf32BE;
    case TextEncoding::Latin1:
        return QStringConverter::Latin1;
    default:
        return {};
    }
}

int codePageOf(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::MacRoman:
        return richtext::macRomanCodePage;
    case TextEncoding::Windows1250:
        return 1250;
    case TextEncoding::Windows1251:
        return 1251;
    case TextEncoding::ShiftJis:
        return 932;
    case TextEncoding::Gb18030:
        return 936;
    default:
        return richtext::westernCodePage;
    }
}

/// A stretch of the bytes at a time, so that the text never stands in memory in three forms.
template <typename Append>
void inStretches(QByteArrayView bytes, Append append)
{
    constexpr qsizetype stretch = qsizetype(1) << 20;
    for (qsizetype at = 0; at < bytes.size(); at += stretch)
        append(bytes.sliced(at, std::min(stretch, bytes.size() - at)));
}

QByteArray converted(QByteArrayView bytes, TextEncoding encoding)
{
    QByteArray utf8;
    utf8.reserve(bytes.size());
    if (const auto unicode = unicodeEncoding(encoding)) {
        QStringDecoder decoder(*unicode, QStringConverter::Flag::ConvertInitialBom);
        QStringEncoder encoder(QStringConverter::Utf8);
        inStretches(bytes, [&](QByteArrayView piece) {
            const QString text = decoder.decode(piece);
            utf8.append(encoder.encode(text));
        });
        if (decoder.hasError() && utf8.isEmpty())
            utf8.append("\xEF\xBF\xBD");
        return utf8;
    }
    richtext::CodePageDecoder decoder(codePageOf(encoding));
    inStretches(bytes, [&](QByteArrayView piece) {
        QString text;
        for (const char byte : piece)
            decoder.take(static_cast<uchar>(byte), text);
        utf8.append(text.toUtf8());
    });
    QString rest;
    decoder.finish(rest);
    return utf8.append(rest.toUtf8());
}

QString tr(const char *text)
{
    return QCoreApplication::translate("TextEncoding", text);
}

} // namespace

QList<TextEncodingName> textEncodings()
{
    return {{TextEncoding::Utf8, tr("Unicode (UTF-8)")},
            {TextEncoding::Utf16LittleEndian, tr("Unicode (UTF-16, little-endian)")},
            {TextEncoding::Utf16BigEndian, tr("Unicode (UTF-16, big-endian)")},
            {TextEncoding::Utf32LittleEndian, tr("Unicode (UTF-32, little-endian)")},
            {TextEncoding::Utf32BigEndian, tr("Unicode (UTF-32, big-endian)")},
            {TextEncoding::Windows1252, tr("Western (Windows 1252)")},
            {TextEncoding::Latin1, tr("Western (ISO Latin 1)")},
            {TextEncoding::MacRoman, tr("Western (Mac OS Roman)")},
            {TextEncoding::Windows1250, tr("Central European (Windows 1250)")},
            {TextEncoding::Windows1251, tr("Cyrillic (Windows 1251)")},
            {TextEncoding::ShiftJis, tr("Japanese (Shift JIS)")},
            {TextEncoding::Gb18030, tr("Chinese (GBK)")}};
}

TextContent TextContent::head(qsizetype size) const
{
    TextContent first = *this;
    if (size >= utf8.size())
        return first;
    const auto isInside = [this](qsizetype at) { return (static_cast<uchar>(utf8[at]) & 0xC0) == 0x80; };
    while (size > 0 && isInside(size))
        --size;
    first.utf8 = utf8.first(size);
    return first;
}

TextEncoding detectedEncoding(QByteArrayView bytes, bool &isGuessed)
{
    isGuessed = false;
    for (const ByteOrderMark &mark : marks) {
        if (bytes.startsWith(mark.bytes) && bytes.size() % mark.unit == 0)
            return mark.encoding;
    }
    if (plist::isValidUtf8(bytes))
        return TextEncoding::Utf8;
    isGuessed = true;
    return TextEncoding::Latin1;
}

Result<TextContent> textContent(const SharedBytes &bytes, std::optional<TextEncoding> encoding)
{
    TextContent content;
    content.source = bytes;
    content.encoding = encoding ? *encoding : detectedEncoding(bytes.view(), content.isGuessed);
    const QByteArrayView text = withoutMark(bytes.view(), content.encoding);
    if (content.encoding == TextEncoding::Utf8 && (!encoding || plist::isValidUtf8(text))) {
        content.bytes = bytes;
        content.utf8 = text;
        return content;
    }
    const Result<SharedBytes> copied = SharedBytes::copyOf(converted(text, content.encoding));
    if (!copied)
        return copied.error();
    content.bytes = *copied;
    content.utf8 = content.bytes.view();
    return content;
}

Result<TextContent>
readTextFile(const QString &path, std::optional<TextEncoding> encoding, Progress &progress)
{
    const Result<SharedBytes> bytes = SharedBytes::readFile(path, progress);
    if (!bytes)
        return bytes.error();
    return textContent(*bytes, encoding);
}

TextContent textContentOf(QByteArrayView utf8)
{
    TextContent content;
    if (const Result<SharedBytes> bytes = SharedBytes::copyOf(utf8)) {
        content.bytes = *bytes;
        content.utf8 = content.bytes.view();
    }
    return content;
}

} // namespace tavrin
