// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfReader.h"

#include "richtext/RtfParser.h"

#include <QCoreApplication>

namespace tavrin::richtext {

namespace {

constexpr QByteArrayView beginning("{\\rtf");

/// Some programs put the sign of UTF-8, blanks or empty lines before it.
QByteArrayView fromTheBrace(QByteArrayView bytes)
{
    constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");
    if (bytes.startsWith(byteOrderMark))
        bytes = bytes.sliced(byteOrderMark.size());
    qsizetype start = 0;
    while (start < bytes.size() && QByteArrayView(" \t\r\n").contains(bytes[start]))
        ++start;
    return bytes.sliced(start);
}

} // namespace

bool isRtf(QByteArrayView bytes)
{
    return fromTheBrace(bytes).startsWith(beginning);
}

Result<AttributedText> readRtf(QByteArrayView rtf, const AttachmentSource &attachments)
{
    if (!isRtf(rtf))
        return Error{Error::Kind::Corrupt,
                     QCoreApplication::translate("richtext", "This is not rich text."),
                     QStringLiteral("no {\\rtf at the beginning of %1 bytes").arg(rtf.size())};
    return RtfParser(fromTheBrace(rtf), attachments).parse();
}

} // namespace tavrin::richtext
