// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TextSink.h"

#include <QtEndian>

namespace tavrin {

namespace {

constexpr qsizetype blockSize = qsizetype(256) << 10;

} // namespace

TextSink::TextSink(const ByteSink &sink, bool utf16, bool beginsFile)
    : g_sink(sink)
    , g_utf16(utf16)
    , g_block(blockSize, Qt::Uninitialized)
    , g_at(g_block.data())
{
    if (g_utf16 && beginsFile)
        g_isRefused = !g_sink(QByteArrayView("\xFF\xFE", 2));
}

void TextSink::append(const TextView &text)
{
    QByteArray buffer;
    append(text.utf8(buffer));
}

void TextSink::makeRoom(QByteArrayView utf8)
{
    flush();
    if (utf8.size() > g_block.size())
        pass(utf8);
    else
        g_at = std::copy(utf8.begin(), utf8.end(), g_at);
}

void TextSink::flush()
{
    pass(QByteArrayView(g_block.constData(), g_at));
    g_at = g_block.data();
}

// Only whole texts come here, so no character is cut in two.
void TextSink::pass(QByteArrayView utf8)
{
    if (g_isRefused)
        return;
    if (!g_utf16) {
        g_isRefused = !g_sink(utf8);
        return;
    }
    // fromUtf8() takes a first U+FEFF for a mark; here it is text.
    QString text = QString::fromUtf8(utf8);
    if (utf8.startsWith("\xEF\xBB\xBF"))
        text.prepend(QChar(QChar::ByteOrderMark));
    QByteArray units(text.size() * 2, Qt::Uninitialized);
    qToLittleEndian<quint16>(text.utf16(), text.size(), units.data());
    g_isRefused = !g_sink(units);
}

Result<> TextSink::outcome() const
{
    if (g_isRefused)
        return Error{Error::Kind::Io, {}, {}};
    return {};
}

Result<> TextSink::finish()
{
    flush();
    return outcome();
}

Result<> writeText(const QString &path, bool utf16, const std::function<Result<>(TextSink &sink)> &produce)
{
    return writeDurably(path, [&](const ByteSink &bytes) -> Result<> {
        TextSink sink(bytes, utf16);
        if (Result<> produced = produce(sink); !produced)
            return produced;
        return sink.finish();
    });
}

} // namespace tavrin
