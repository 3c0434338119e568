// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/DurableFile.h"
#include "model/TextView.h"

#include <QByteArray>
#include <QString>

namespace tavrin {

/// Where an export puts its text: collects it and passes it on in blocks, in UTF-8 or in UTF-16 with a
/// byte-order mark.
class TextSink
{
public:
    /// The sink outlives it.
    TextSink(const ByteSink &sink, bool utf16);

    void append(QByteArrayView utf8)
    {
        g_pending.append(utf8);
        if (g_pending.size() >= blockSize)
            flush();
    }
    void append(const QString &text) { append(QByteArrayView(text.toUtf8())); }
    void append(const TextView &text);

    /// Passes on what is left. False when the system has refused any of it.
    bool finish();
    bool isRefused() const { return g_isRefused; }

private:
    static constexpr qsizetype blockSize = qsizetype(256) << 10;

    void flush();

    const ByteSink &g_sink;
    bool g_utf16;
    QByteArray g_pending;
    bool g_isRefused = false;
};

/// The UTF-8 of a text where it stands, or in the buffer.
QByteArrayView utf8Of(const TextView &text, QByteArray &buffer);

} // namespace tavrin
