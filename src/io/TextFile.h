// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "base/SharedBytes.h"

#include <QString>

#include <span>

namespace tavrin {

/// How the characters of a text file are stored.
enum class TextEncoding {
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
    Utf32LittleEndian,
    Utf32BigEndian,
    Latin1,
    Windows1252,
    MacRoman,
    Windows1250,
    Windows1251,
    ShiftJis,
    Gb18030,
};

struct TextEncodingName
{
    TextEncoding encoding;
    QString name; ///< For people.
};

/// All of them, the usual ones first.
QList<TextEncodingName> textEncodings();

/// What a text file holds, as valid UTF-8.
struct TextContent
{
    SharedBytes source; ///< The file as it is, for reading it in another encoding.
    SharedBytes bytes;
    QByteArrayView utf8; ///< Lies in the bytes, and is followed by SharedBytes::padding readable bytes.
    TextEncoding encoding = TextEncoding::Utf8;
    bool isGuessed = false; ///< Neither a mark nor valid UTF-8 said so.

    bool isEmpty() const { return utf8.isEmpty(); }
    /// The first bytes of the text, cut where a character begins; for previews.
    TextContent head(qsizetype size) const;
};

/// What nobody has told the encoding of: a byte-order mark decides, else UTF-8 when it is valid, else every
/// byte is the character of its number.
TextEncoding detectedEncoding(QByteArrayView bytes, bool &isGuessed);

/// The text of the bytes. What is no character in the encoding becomes U+FFFD; a byte-order mark is dropped.
Result<TextContent> textContent(const SharedBytes &bytes, std::optional<TextEncoding> encoding = {});

/// Reads a text file. NotFound, Io, Cancelled.
Result<TextContent>
readTextFile(const QString &path, std::optional<TextEncoding> encoding, Progress &progress);

/// For texts that are at hand.
TextContent textContentOf(QByteArrayView utf8);

} // namespace tavrin
