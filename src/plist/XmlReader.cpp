// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlReader.h"

#include "plist/Base64.h"
#include "plist/ReadError.h"
#include "plist/Reader.h"
#include "plist/ScalarText.h"
#include "plist/XmlLexer.h"
#include "plist/XmlText.h"

#include <array>
#include <limits>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

/// Builds the values of an XML property list in one pass over its bytes.
///
/// An operation that fails says so by a null value or false.
class XmlParser : private XmlLexer
{
public:
    using XmlLexer::XmlLexer;

    Result<Value> parse();

private:
    bool readSimpleText(const XmlTag &tag, QByteArrayView &text);

    Value readRoot();
    Value readElement(int depth);
    Value readElement(const XmlTag &tag, int depth);
    Value readDictionary(const XmlTag &tag, int depth);
    Value readArray(const XmlTag &tag, int depth);
    Value readBoolean(const XmlTag &tag);
    Value readScalar(const XmlTag &tag);
    bool readString(const XmlTag &tag, QString &text);
    bool readKey(const XmlTag &tag, QString &key);

    struct KnownKey
    {
        QByteArrayView bytes;
        QString text;
    };

    // Records repeat the same few keys: one shared string for each saves memory and time.
    std::array<KnownKey, 64> g_knownKeys;
};

Result<Value> XmlParser::parse()
{
    Value root = readRoot();
    if (hasFailed())
        return corruptAtLine(text(), position(), reason());
    return root;
}

// The text of an element that holds no markup at all.
bool XmlParser::readSimpleText(const XmlTag &tag, QByteArrayView &text)
{
    if (tag.isEmpty)
        return fail("an element that needs a value is empty");
    const qsizetype length = rest().indexOf('<');
    text = length < 0 ? rest() : rest().first(length);
    moveTo(text.end());
    return readClosingTag(tag.name);
}

Value XmlParser::readRoot()
{
    if (!skipProlog())
        return {};
    XmlTag tag;
    if (!readTag(tag))
        return {};
    if (tag.element != Element::Plist)
        return readElement(tag, 0);
    if (tag.isEmpty) {
        fail("the property list is empty");
        return {};
    }
    Value root = readElement(0);
    if (!hasFailed() && skipBetweenElements())
        readClosingTag(tag.name);
    return root;
}

Value XmlParser::readElement(int depth)
{
    XmlTag tag;
    if (!skipBetweenElements() || !readTag(tag))
        return {};
    return readElement(tag, depth);
}

Value XmlParser::readElement(const XmlTag &tag, int depth)
{
    switch (tag.element) {
    case Element::Dict:
    case Element::List:
        if (depth == maximumDepth) {
            fail("nested too deeply");
            return {};
        }
        return tag.element == Element::Dict ? readDictionary(tag, depth + 1) : readArray(tag, depth + 1);
    case Element::Key:
    case Element::String: {
        QString text;
        return readString(tag, text) ? Value(std::move(text)) : Value();
    }
    case Element::True:
    case Element::False:
        return readBoolean(tag);
    case Element::Plist:
    case Element::Unknown:
        fail("unknown element");
        return {};
    default:
        return readScalar(tag);
    }
}

// A reference of a keyed archive has no element of its own.
Value asUid(const Dictionary &dictionary)
{
    const Value *index = dictionary.find(u"CF$UID"_s);
    if (!index || !index->isInteger() || index->integerBits() > std::numeric_limits<quint32>::max())
        return dictionary;
    return Uid{static_cast<quint32>(index->integerBits())};
}

Value XmlParser::readDictionary(const XmlTag &tag, int depth)
{
    Dictionary dictionary;
    if (tag.isEmpty)
        return dictionary;
    while (skipBetweenElements() && !isAtClosingTag()) {
        XmlTag keyTag;
        QString key;
        if (!readTag(keyTag))
            return {};
        if (keyTag.element != Element::Key) {
            fail("a dictionary holds something that is not a key");
            return {};
        }
        if (!readKey(keyTag, key) || !skipBetweenElements())
            return {};
        if (isAtClosingTag()) {
            fail("a key has no value");
            return {};
        }
        Value value = readElement(depth);
        if (hasFailed())
            return {};
        dictionary.insert(key, std::move(value));
    }
    if (hasFailed() || !readClosingTag(tag.name))
        return {};
    return dictionary.size() == 1 ? asUid(dictionary) : Value(std::move(dictionary));
}

Value XmlParser::readArray(const XmlTag &tag, int depth)
{
    Array array;
    if (tag.isEmpty)
        return array;
    while (skipBetweenElements() && !isAtClosingTag()) {
        Value value = readElement(depth);
        if (hasFailed())
            return {};
        array.append(std::move(value));
    }
    if (hasFailed() || !readClosingTag(tag.name))
        return {};
    return Value(std::move(array));
}

Value XmlParser::readBoolean(const XmlTag &tag)
{
    if (!tag.isEmpty && !readClosingTag(tag.name))
        return {};
    return tag.element == Element::True;
}

Value XmlParser::readScalar(const XmlTag &tag)
{
    QByteArrayView text;
    if (!readSimpleText(tag, text))
        return {};
    if (tag.element == Element::Integer) {
        if (const auto number = parseInteger(text))
            return *number;
        fail("not an integer");
    } else if (tag.element == Element::Real) {
        if (const auto number = parseReal(text))
            return *number;
        fail("not a number");
    } else if (tag.element == Element::Date) {
        if (const auto date = parseDate(text))
            return *date;
        fail("not a date");
    } else {
        if (auto data = decodeBase64(text))
            return *std::move(data);
        fail("not base64 data");
    }
    return {};
}

bool XmlParser::readString(const XmlTag &tag, QString &text)
{
    if (tag.isEmpty) {
        text = u""_s;
        return true;
    }
    const XmlText content = readXmlText(rest());
    moveTo(at() + content.length);
    if (content.failure)
        return fail(content.failure);
    if (!readClosingTag(tag.name))
        return false;
    text = content.text;
    return true;
}

bool XmlParser::readKey(const XmlTag &tag, QString &key)
{
    const qsizetype length = tag.isEmpty ? 0 : rest().indexOf('<');
    // A key that goes on behind a CDATA section is not known by the bytes before it.
    if (length <= 0 || !rest().sliced(length).startsWith("</"))
        return readString(tag, key);
    const QByteArrayView bytes = rest().first(length);
    const auto mixed = static_cast<size_t>(length) * 31 + static_cast<uchar>(bytes.front()) * 7U
                       + static_cast<uchar>(bytes[length / 2]) * 5U + static_cast<uchar>(bytes.back());
    KnownKey &known = g_knownKeys[mixed % g_knownKeys.size()];
    if (known.bytes == bytes) {
        moveTo(at() + length);
        key = known.text;
        return readClosingTag(tag.name);
    }
    if (!readString(tag, key))
        return false;
    known = {bytes, key};
    return true;
}

} // namespace

Result<Value> readXml(QByteArrayView utf8)
{
    return XmlParser(utf8).parse();
}

} // namespace tavrin::plist
