// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/Attachment.h"
#include "richtext/RtfTokenizer.h"
#include "richtext/RtfWords.h"

namespace tavrin::richtext {

/// A picture whose bytes stand in the text itself, as it is read.
class RtfPicture
{
public:
    void change(RtfPictureWord word, const RtfToken &token);
    void addHex(QByteArrayView digits);
    void addBytes(QByteArrayView bytes) { g_bytes += bytes; }

    bool isEmpty() const { return g_bytes.isEmpty(); }
    /// `number` counts the pictures of the document, which have no names.
    Attachment attachment(int number) const;

private:
    QByteArray g_bytes;
    QByteArrayView g_suffix = "pict";
    int g_highDigit = -1;
    qint32 g_width = 0;
    qint32 g_height = 0;
    qint32 g_scaleX = 100;
    qint32 g_scaleY = 100;
};

/// The name and size of an attachment, as they are read; the file itself is elsewhere.
class RtfGraphic
{
public:
    void change(RtfPictureWord word, const RtfToken &token);
    void addBytes(QByteArrayView bytes);
    void addText(QStringView text);

    /// Bytes of the name that are not UTF-8 are Latin-1.
    QString name() const;
    qint32 width() const { return g_width; }
    qint32 height() const { return g_height; }

private:
    QByteArray g_name;
    QString g_units; ///< The latest part of the name, which may end inside a pair of units.
    qint32 g_width = 0;
    qint32 g_height = 0;
    bool g_isNamed = false;
};

} // namespace tavrin::richtext
