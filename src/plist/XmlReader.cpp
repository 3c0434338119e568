// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlReader.h"

#include "plist/Base64.h"
#include "plist/ReadError.h"
#include "plist/Reader.h"
#include "plist/ScalarText.h"
#include "plist/XmlElement.h"
#include "plist/XmlText.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

struct Tag
{
    QByteArrayView name;
    Element element = Element::Unknown;
    bool isEmpty = false; ///< Closes itself: <name/>.
};

// A lambda, unlike a function, is compiled into the loops of the library's algorithms.
constexpr auto isBlank = [](char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
};

/// One pass over the bytes of an XML property list.
///
/// An operation that fails says so by a null value or false, and has then set g_reason; g_at is the place.
class XmlParser
{
public:
    explicit XmlParser(QByteArrayView utf8) : g_text(utf8), g_at(utf8.begin()), g_end(utf8.end()) {}

    Result<Value> parse();

private:
    bool fail(const char *reason);
    QByteArrayView rest() const { return {g_at, g_end}; }
    bool isAt(QByteArrayView token) const { return rest().startsWith(token); }
    bool isAtMarkup(char second) const { return g_end - g_at >= 2 && g_at[0] == '<' && g_at[1] == second; }
    bool isAtClosingTag() const { return isAtMarkup('/'); }

    bool skipBetweenElements();
    bool skipProlog();
    bool skipPast(QByteArrayView token, const char *reason);
    bool readTag(Tag &tag);
    bool skipAttributes();
    bool readClosingTag(QByteArrayView name);
    bool readSimpleText(const Tag &tag, QByteArrayView &text);

    Value readRoot();
    Value readElement(int depth);
    Value readElement(const Tag &tag, int depth);
    Value readDictionary(const Tag &tag, int depth);
    Value readArray(const Tag &tag, int depth);
    Value readBoolean(const Tag &tag);
    Value readScalar(const Tag &tag);
    bool readString(const Tag &tag, QString &text);
    bool readKey(const Tag &tag, QString &key);

    struct KnownKey
    {
        QByteArrayView bytes;
        QString text;
    };

    const QByteArrayView g_text;
    const char *g_at;
    const char *const g_end;
    const char *g_reason = nullptr;
    // Records repeat the same few keys: one shared string for each saves memory and time.
    std::array<KnownKey, 256> g_knownKeys;
};

bool XmlParser::fail(const char *reason)
{
    if (!g_reason)
        g_reason = reason;
    return false;
}

Result<Value> XmlParser::parse()
{
    Value root = readRoot();
    if (g_reason)
        return corruptAtLine(g_text, g_at - g_text.begin(), g_reason);
    return root;
}

bool XmlParser::skipPast(QByteArrayView token, const char *reason)
{
    const qsizetype found = rest().indexOf(token);
    if (found < 0)
        return fail(reason);
    g_at += found + token.size();
    return true;
}

bool XmlParser::skipBetweenElements()
{
    for (;;) {
        g_at = std::find_if_not(g_at, g_end, isBlank);
        if (isAtMarkup('!') && isAt("<!--")) {
            g_at += 4;
            if (!skipPast("-->", "a comment does not end"))
                return false;
        } else if (isAtMarkup('?')) {
            g_at += 2;
            if (!skipPast("?>", "a processing instruction does not end"))
                return false;
        } else {
            return true;
        }
    }
}

bool XmlParser::skipProlog()
{
    constexpr QByteArrayView doctype("<!DOCTYPE");
    while (skipBetweenElements()) {
        if (!isAt(doctype))
            return true;
        g_at = std::find_if(g_at, g_end, [](char byte) { return byte == '>' || byte == '['; });
        if (isAt("["))
            return fail("the document type declares entities or elements of its own");
        if (!skipPast(">", "the document type does not end"))
            return false;
    }
    return false;
}

bool XmlParser::readTag(Tag &tag)
{
    if (g_at == g_end || *g_at != '<')
        return fail(g_at == g_end ? "the file ends too early" : "text stands between elements");
    const char *name = g_at + 1;
    const char *nameEnd =
        std::find_if(name, g_end, [](char byte) { return byte == '>' || byte == '/' || isBlank(byte); });
    tag.name = {name, nameEnd};
    tag.element = elementNamed(tag.name);
    if (tag.element == Element::Unknown)
        return fail("unknown element");
    g_at = nameEnd;
    if (!skipAttributes())
        return false;
    tag.isEmpty = g_at[-1] == '/';
    ++g_at;
    return true;
}

// Stops at the closing bracket of the tag. Quoted values may hold brackets.
bool XmlParser::skipAttributes()
{
    for (; g_at != g_end && *g_at != '>'; ++g_at) {
        if (*g_at != '"' && *g_at != '\'')
            continue;
        g_at = std::find(g_at + 1, g_end, *g_at);
        if (g_at == g_end)
            break;
    }
    return g_at != g_end || fail("a tag does not end");
}

bool XmlParser::readClosingTag(QByteArrayView name)
{
    if (isAtClosingTag() && g_end - g_at > name.size() + 2
        && std::equal(name.begin(), name.end(), g_at + 2)) {
        const char *bracket = std::find_if_not(g_at + 2 + name.size(), g_end, isBlank);
        if (bracket != g_end && *bracket == '>') {
            g_at = bracket + 1;
            return true;
        }
    }
    return fail(g_at == g_end ? "the file ends too early" : "an element is not closed by its own tag");
}

// The text of an element that holds no markup at all.
bool XmlParser::readSimpleText(const Tag &tag, QByteArrayView &text)
{
    if (tag.isEmpty)
        return fail("an element that needs a value is empty");
    const char *start = g_at;
    const qsizetype length = rest().indexOf('<');
    g_at = length < 0 ? g_end : g_at + length;
    text = {start, g_at};
    return readClosingTag(tag.name);
}

Value XmlParser::readRoot()
{
    if (!skipProlog())
        return {};
    Tag tag;
    if (!readTag(tag))
        return {};
    if (tag.element != Element::Plist)
        return readElement(tag, 0);
    if (tag.isEmpty) {
        fail("the property list is empty");
        return {};
    }
    Value root = readElement(0);
    if (!g_reason && skipBetweenElements())
        readClosingTag(tag.name);
    return root;
}

Value XmlParser::readElement(int depth)
{
    Tag tag;
    if (!skipBetweenElements() || !readTag(tag))
        return {};
    return readElement(tag, depth);
}

Value XmlParser::readElement(const Tag &tag, int depth)
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

Value XmlParser::readDictionary(const Tag &tag, int depth)
{
    Dictionary dictionary;
    if (tag.isEmpty)
        return dictionary;
    while (skipBetweenElements() && !isAtClosingTag()) {
        Tag keyTag;
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
        if (g_reason)
            return {};
        dictionary.insert(key, std::move(value));
    }
    if (g_reason || !readClosingTag(tag.name))
        return {};
    return dictionary.size() == 1 ? asUid(dictionary) : Value(std::move(dictionary));
}

Value XmlParser::readArray(const Tag &tag, int depth)
{
    Array array;
    if (tag.isEmpty)
        return array;
    while (skipBetweenElements() && !isAtClosingTag()) {
        Value value = readElement(depth);
        if (g_reason)
            return {};
        array.append(std::move(value));
    }
    if (g_reason || !readClosingTag(tag.name))
        return {};
    return Value(std::move(array));
}

Value XmlParser::readBoolean(const Tag &tag)
{
    if (!tag.isEmpty && !readClosingTag(tag.name))
        return {};
    return tag.element == Element::True;
}

Value XmlParser::readScalar(const Tag &tag)
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

bool XmlParser::readString(const Tag &tag, QString &text)
{
    if (tag.isEmpty) {
        text = u""_s;
        return true;
    }
    const XmlText content = readXmlText(rest());
    g_at += content.length;
    if (content.failure)
        return fail(content.failure);
    if (!readClosingTag(tag.name))
        return false;
    text = content.text;
    return true;
}

bool XmlParser::readKey(const Tag &tag, QString &key)
{
    const qsizetype length = tag.isEmpty ? 0 : rest().indexOf('<');
    // A key that goes on behind a CDATA section is not known by the bytes before it.
    if (length <= 0 || !rest().sliced(length).startsWith("</"))
        return readString(tag, key);
    const QByteArrayView bytes(g_at, length);
    const auto mixed = static_cast<size_t>(length) * 31 + static_cast<uchar>(bytes.front()) * 7U
                       + static_cast<uchar>(bytes[length / 2]) * 5U + static_cast<uchar>(bytes.back());
    KnownKey &known = g_knownKeys[mixed % g_knownKeys.size()];
    if (known.bytes == bytes) {
        g_at += length;
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
