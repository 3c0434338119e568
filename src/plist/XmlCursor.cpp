// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlCursor.h"

#include "plist/ReadError.h"
#include "plist/Reader.h"
#include "plist/ScalarText.h"
#include "plist/XmlText.h"

#include <array>
#include <bit>
#include <cstring>

namespace tavrin::plist {

namespace {

/// Whether the literal stands at the place. It may be near the end: the text is followed by zero bytes.
template <size_t size>
bool stands(const char *place, const char (&literal)[size])
{
    return std::memcmp(place, literal, size - 1) == 0;
}

struct PlainTag
{
    QByteArrayView name;
    Element element = Element::Unknown;
    int size = 0; ///< In bytes, with its brackets; 0 when the tag is in an unusual form.
    bool isEmpty = false;
};

/// The tag in the form in which writers write it; anything else is left to the lexer.
PlainTag plainTag(const char *place)
{
    const auto found = [](QByteArrayView name, Element element, bool isEmpty = false) {
        return PlainTag{name, element, static_cast<int>(name.size()) + (isEmpty ? 3 : 2), isEmpty};
    };
    switch (place[1]) {
    case 'k':
        return stands(place, "<key>") ? found("key", Element::Key) : PlainTag();
    case 's':
        return stands(place, "<string>") ? found("string", Element::String) : PlainTag();
    case 'd':
        if (stands(place, "<dict>"))
            return found("dict", Element::Dict);
        if (stands(place, "<data>"))
            return found("data", Element::Data);
        return stands(place, "<date>") ? found("date", Element::Date) : PlainTag();
    case 'a':
        return stands(place, "<array>") ? found("array", Element::List) : PlainTag();
    case 'i':
        return stands(place, "<integer>") ? found("integer", Element::Integer) : PlainTag();
    case 't':
        return stands(place, "<true/>") ? found("true", Element::True, true) : PlainTag();
    case 'f':
        return stands(place, "<false/>") ? found("false", Element::False, true) : PlainTag();
    default:
        return {};
    }
}

/// How many bytes the closing tag takes in its plain form; 0 when another form stands there, or none.
int plainClosingTag(const char *place, Element element)
{
    switch (element) {
    case Element::Key:
        return stands(place, "</key>") ? 6 : 0;
    case Element::String:
        return stands(place, "</string>") ? 9 : 0;
    case Element::Dict:
        return stands(place, "</dict>") ? 7 : 0;
    case Element::List:
        return stands(place, "</array>") ? 8 : 0;
    case Element::Data:
        return stands(place, "</data>") ? 7 : 0;
    case Element::Date:
        return stands(place, "</date>") ? 7 : 0;
    case Element::Integer:
        return stands(place, "</integer>") ? 10 : 0;
    default:
        return 0;
    }
}

// A date in the form in which writers write it; a 0 stands for any digit.
constexpr char plainDate[] = "0000-00-00T00:00:00Z";
constexpr qsizetype plainDateSize = sizeof plainDate - 1;

/// Whether eight bytes of such a date, from the offset on, stand at the place. The highest bit of a byte
/// tells: it is set by a difference that is larger than the digits' or, elsewhere, by any.
template <size_t offset>
bool isPartOfDate(const char *place)
{
    constexpr auto wordOf = [](auto byteOf) {
        std::array<quint8, 8> bytes{};
        for (size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<quint8>(byteOf(plainDate[offset + i]));
        return std::bit_cast<quint64>(bytes);
    };
    constexpr quint64 wanted = wordOf([](char byte) { return byte; });
    constexpr quint64 allowance = wordOf([](char byte) { return byte == '0' ? 0x7F - 9 : 0x7F; });
    quint64 found = 0;
    std::memcpy(&found, place + offset, sizeof found);
    const quint64 difference = found ^ wanted;
    return ((difference | (difference + allowance)) & 0x8080'8080'8080'8080) == 0;
}

bool isPlainDate(const char *place)
{
    return isPartOfDate<0>(place) && isPartOfDate<8>(place) && isPartOfDate<plainDateSize - 8>(place);
}

} // namespace

Error XmlCursor::error() const
{
    return corruptAtLine(text(), position(), reason());
}

void XmlCursor::continueFrom(const XmlCursor &other)
{
    moveTo(other.at());
    g_containers = other.g_containers;
    if (other.hasFailed())
        fail(other.reason());
}

// Like skipBetweenElements(), which takes over where more than blanks stand.
bool XmlCursor::skipBlanks()
{
    const char *place = at();
    while (isXmlBlank(*place))
        ++place;
    moveTo(place);
    return place[0] != '<' || (place[1] != '!' && place[1] != '?') || skipBetweenElements();
}

inline bool XmlCursor::readTag()
{
    g_valueStart = at();
    if (const PlainTag plain = plainTag(at()); plain.size != 0) {
        g_tag = {plain.name, plain.element, plain.isEmpty};
        moveTo(at() + plain.size);
        return true;
    }
    return XmlLexer::readTag(g_tag);
}

inline bool XmlCursor::closeElement(Element element)
{
    if (const int size = plainClosingTag(at(), element); size != 0) {
        moveTo(at() + size);
        return true;
    }
    return readClosingTag(nameOf(element));
}

bool XmlCursor::enterRoot()
{
    if (!skipProlog() || !readTag())
        return false;
    if (g_tag.element != Element::Plist)
        return true;
    g_hasPlistTag = true;
    if (g_tag.isEmpty)
        return fail("the property list is empty");
    return nextValue();
}

bool XmlCursor::leaveRoot()
{
    return !g_hasPlistTag || (skipBlanks() && readClosingTag("plist"));
}

bool XmlCursor::nextValue()
{
    return skipBlanks() && readTag();
}

bool XmlCursor::enter()
{
    if (g_containers.size() == static_cast<size_t>(maximumDepth))
        return fail("nested too deeply");
    if (g_tag.isEmpty)
        return false;
    g_containers.push_back(g_tag.element);
    return true;
}

// Over the closing tag of the innermost container. Always false: there is no next entry.
bool XmlCursor::leave()
{
    if (closeElement(g_containers.back()))
        g_containers.pop_back();
    return false;
}

// To the text of the next key of a dictionary.
bool XmlCursor::beginNextKey()
{
    if (!skipBlanks())
        return false;
    if (isAtClosingTag())
        return leave();
    if (!readTag())
        return false;
    return g_tag.element == Element::Key || fail("a dictionary holds something that is not a key");
}

bool XmlCursor::nextKey()
{
    g_entryStart = at();
    if (!beginNextKey() || !readString(g_key))
        return false;
    if (isEncoded()) {
        g_decodedKey = readXmlText({g_key.data(), end()}).text.toUtf8();
        g_key = g_decodedKey;
    }
    if (!skipBlanks())
        return false;
    return !isAtClosingTag() || fail("a key has no value");
}

EntryForm XmlCursor::entryForm() const
{
    if (g_isEncoded)
        return {};
    return {{g_entryStart, g_valueStart + 1}, g_key};
}

bool XmlCursor::nextValueLike(const EntryForm &form)
{
    const qsizetype size = form.bytes.size();
    if (size == 0 || end() - at() < size
        || std::memcmp(at(), form.bytes.data(), static_cast<size_t>(size)) != 0)
        return false;
    const char *value = at() + size - 1;
    const PlainTag plain = plainTag(value);
    if (plain.size == 0)
        return false;
    g_key = form.key;
    g_isEncoded = false;
    g_valueStart = value;
    g_tag = {plain.name, plain.element, plain.isEmpty};
    moveTo(value + plain.size);
    return true;
}

bool XmlCursor::nextElement()
{
    if (!skipBlanks())
        return false;
    return isAtClosingTag() ? leave() : readTag();
}

// The text of an element whose tag was read, up to "</".
bool XmlCursor::readText(QByteArrayView &content)
{
    const char *start = at();
    const char *markup = g_scanner.next(start);
    g_isEncoded = g_scanner.passedAmpersand() || markup == end() || markup[1] != '/';
    if (g_isEncoded) {
        const XmlTextExtent extent = checkXmlText(rest());
        moveTo(start + extent.length);
        content = {start, at()};
        return !extent.failure || fail(extent.failure);
    }
    moveTo(markup);
    content = {start, markup};
    return true;
}

bool XmlCursor::readString(QByteArrayView &content)
{
    const Element element = g_tag.element;
    if (g_tag.isEmpty) {
        g_isEncoded = false;
        content = {at(), qsizetype(0)};
        return true;
    }
    return readText(content) && closeElement(element);
}

// Without looking for its end: dates are many, and all of one length.
bool XmlCursor::skipPlainDate()
{
    const char *behind = at() + plainDateSize;
    if (!isPlainDate(at()) || !stands(behind, "</date>"))
        return false;
    moveTo(behind + 7);
    return true;
}

bool XmlCursor::skipScalar()
{
    const Element element = g_tag.element;
    if (g_tag.isEmpty)
        return fail("an element that needs a value is empty");
    if (element == Element::Date && skipPlainDate())
        return true;
    const char *start = at();
    moveTo(g_scanner.next(start));
    const QByteArrayView content(start, at());
    const bool isAscii = !g_scanner.passedBeyondAscii();
    if (!closeElement(element))
        return false;
    switch (element) {
    case Element::Data:
        return isAscii || fail("not base64 data");
    case Element::Date:
        return parseDate(content).has_value() || fail("not a date");
    case Element::Integer:
        return parseInteger(content).has_value() || fail("not an integer");
    default:
        return parseReal(content).has_value() || fail("not a number");
    }
}

bool XmlCursor::skipValue()
{
    const size_t outside = g_containers.size();
    for (;;) {
        QByteArrayView ignored;
        switch (g_tag.element) {
        case Element::Dict:
        case Element::List:
            if (!enter() && hasFailed())
                return false;
            break;
        case Element::Key:
        case Element::String:
            if (!readString(ignored))
                return false;
            break;
        case Element::True:
        case Element::False:
            if (!g_tag.isEmpty && !closeElement(g_tag.element))
                return false;
            break;
        case Element::Plist:
        case Element::Unknown:
            return fail("unknown element");
        default:
            if (!skipScalar())
                return false;
        }
        // On to the next value, out of the containers that are over.
        for (;;) {
            if (g_containers.size() == outside)
                return true;
            const bool goesOn =
                g_containers.back() == Element::Dict ? nextKey() && nextValue() : nextElement();
            if (goesOn)
                break;
            if (hasFailed())
                return false;
        }
    }
}

} // namespace tavrin::plist
