// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

namespace tavrin::richtext {

struct RtfToken
{
    enum class Kind : quint8 {
        End,
        Open,
        Close,
        Word,   ///< Its letters are in `bytes`; `number` and `hasNumber` are what stands behind them.
        Symbol, ///< A backslash and the one byte that is in `bytes`.
        Byte,   ///< A byte that was written as a number, which is in `number`.
        Text,
        Binary, ///< Raw bytes, of as many as the word \bin said.
    };

    Kind kind = Kind::End;
    bool hasNumber = false;
    qint32 number = 0;
    QByteArrayView bytes;
};

/// Takes RTF apart, from the front to the end; the bytes have to outlive it. It refuses nothing.
class RtfTokenizer
{
public:
    explicit RtfTokenizer(QByteArrayView rtf) : g_next(rtf.begin()), g_end(rtf.end()) {}

    RtfToken next();

private:
    RtfToken afterBackslash();
    RtfToken word();

    const char *g_next;
    const char *g_end;
};

} // namespace tavrin::richtext
