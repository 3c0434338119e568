// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TextSink.h"

#include <QtEndian>

namespace tavrin {

TextSink::TextSink(const ByteSink &sink, bool utf16) : g_sink(sink), g_utf16(utf16)
{
    g_pending.reserve(blockSize + blockSize / 4);
    if (g_utf16)
        g_isRefused = !g_sink(QByteArrayView("\xFF\xFE", 2));
}

void TextSink::append(const TextView &text)
{
    QByteArray buffer;
    append(utf8Of(text, buffer));
}

// Only whole texts are appended, so no character is cut in two.
void TextSink::flush()
{
    if (!g_isRefused && g_utf16) {
        // fromUtf8() takes a first U+FEFF for a mark; here it is text.
        const bool beginsWithMark = g_pending.startsWith("\xEF\xBB\xBF");
        QString text = QString::fromUtf8(g_pending);
        if (beginsWithMark)
            text.prepend(QChar(QChar::ByteOrderMark));
        QByteArray units(text.size() * 2, Qt::Uninitialized);
        qToLittleEndian<quint16>(text.utf16(), text.size(), units.data());
        g_isRefused = !g_sink(units);
    } else if (!g_isRefused) {
        g_isRefused = !g_sink(g_pending);
    }
    g_pending.resize(0);
}

bool TextSink::finish()
{
    flush();
    return !g_isRefused;
}

QByteArrayView utf8Of(const TextView &text, QByteArray &buffer)
{
    if (text.form() == TextView::Form::Utf8)
        return text.bytes();
    buffer = text.toString().toUtf8();
    return buffer;
}

} // namespace tavrin
