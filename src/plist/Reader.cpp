// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/Reader.h"

#include "plist/AsciiReader.h"
#include "plist/BinaryReader.h"
#include "plist/ReadError.h"
#include "plist/TextEncoding.h"
#include "plist/XmlReader.h"

namespace tavrin::plist {

using namespace Qt::StringLiterals;

Result<PropertyList> read(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        return corrupt(u"the file is empty"_s);
    if (bytes.startsWith(binaryMagic)) {
        Result<Value> root = readBinary(bytes);
        if (!root)
            return root.error();
        return PropertyList{*std::move(root), Format::Binary};
    }
    const Result<QByteArray> text = toUtf8(bytes);
    if (!text)
        return text.error();
    const bool isXml = beginsLikeXml(*text);
    if (isXml) {
        Result<Value> root = readXml(*text);
        if (root)
            return PropertyList{*std::move(root), Format::Xml};
        // The old text form can begin so too, with data between angle brackets.
        Result<Value> data = readAscii(*text);
        if (data)
            return PropertyList{*std::move(data), Format::Ascii};
        return root.error();
    }
    Result<Value> root = readAscii(*text);
    if (!root)
        return root.error();
    return PropertyList{*std::move(root), Format::Ascii};
}

Result<Dictionary> readDictionary(QByteArrayView bytes)
{
    const Result<PropertyList> list = read(bytes);
    if (!list)
        return list.error();
    if (const Dictionary *dictionary = list->root.dictionary())
        return *dictionary;
    return corrupt(u"the root is not a dictionary"_s);
}

} // namespace tavrin::plist
