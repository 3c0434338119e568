// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QString>

namespace tavrin::plist {

/// The text content of an XML element, as far as its closing tag.
struct XmlText
{
    QString text;
    qsizetype length = 0;          ///< How many bytes it took; after a failure, the place of the fault.
    const char *failure = nullptr; ///< Why it cannot be read, null when it can.
};

/// Reads text, entities and CDATA sections from the start of valid UTF-8, up to "</".
XmlText readXmlText(QByteArrayView utf8);

/// How far an element's text goes, for who does not want it decoded.
struct XmlTextExtent
{
    qsizetype length = 0;
    const char *failure = nullptr;
};

/// As readXmlText(), without making the text.
XmlTextExtent checkXmlText(QByteArrayView utf8);

} // namespace tavrin::plist
