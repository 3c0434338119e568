// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace tavrin::richtext {

/// The character that stands for an attachment in a text.
constexpr char16_t attachmentCharacter = 0xFFFC;

/// A file inside a text. Null bytes: the text names a file that was not there.
struct Attachment
{
    QString name;
    QByteArray bytes;
    qint32 width = 0; ///< Twips; 0: as large as the picture is.
    qint32 height = 0;

    friend bool operator==(const Attachment &one, const Attachment &other)
    {
        // Copies share their bytes, and there may be many copies of many bytes.
        const bool isShared =
            one.bytes.constData() == other.bytes.constData() && one.bytes.size() == other.bytes.size();
        return one.name == other.name && one.width == other.width && one.height == other.height
               && (isShared || one.bytes == other.bytes);
    }
};

} // namespace tavrin::richtext
