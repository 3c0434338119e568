// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/DurableFile.h"
#include "model/TextView.h"

#include <QByteArray>
#include <QString>

#include <algorithm>

namespace tavrin {

/// Where an export puts its text: collects it and passes it on in blocks, in UTF-8 or in UTF-16 with a
/// byte-order mark.
class TextSink
{
public:
    /// The sink outlives it.
    TextSink(const ByteSink &sink, bool utf16) : TextSink(sink, utf16, true) {}
    /// What does not begin its file has no mark.
    TextSink(const ByteSink &sink, bool utf16, bool beginsFile);

    void append(QByteArrayView utf8)
    {
        if (utf8.size() > g_block.end() - g_at)
            makeRoom(utf8);
        else
            g_at = std::copy(utf8.begin(), utf8.end(), g_at);
    }
    void append(const QString &text) { append(QByteArrayView(text.toUtf8())); }
    void append(const TextView &text);

    /// Passes on what is left.
    Result<> finish();
    /// Io when the system has refused; writeDurably() knows why.
    Result<> outcome() const;

private:
    void makeRoom(QByteArrayView utf8);
    void flush();
    void pass(QByteArrayView utf8);

    const ByteSink &g_sink;
    bool g_utf16;
    QByteArray g_block;
    char *g_at; ///< In the block, behind what was appended.
    bool g_isRefused = false;
};

/// Writes a file of text durably.
Result<> writeText(const QString &path, bool utf16, const std::function<Result<>(TextSink &sink)> &produce);

} // namespace tavrin
