// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/MarkupScanner.h"
#include "plist/XmlLexer.h"

#include <QByteArray>

#include <initializer_list>
#include <vector>

namespace tavrin::plist {

/// How an entry of a dictionary was written, from the end of what stood before it into its value's tag. It
/// lies in the text.
struct EntryForm
{
    QByteArrayView bytes; ///< Empty when the entry cannot be known again by its bytes.
    QByteArrayView key;
};

/// Goes over an XML property list and checks every byte of it, without making values.
///
/// What it accepts and refuses, and why, is what readXml() accepts and refuses; only, it is many times as
/// fast. The caller enters the containers that it wants to look into, and skips all other values, which are
/// checked all the same. An operation that fails says so by false, and has then set reason(); at() is the
/// place.
class XmlCursor : private XmlLexer
{
public:
    /// `utf8` is valid UTF-8 without byte-order mark, followed by at least MarkupScanner::blockSize zero
    /// bytes.
    explicit XmlCursor(QByteArrayView utf8) : XmlLexer(utf8), g_scanner(utf8) {}
    /// Begins inside those containers, between two entries of the innermost.
    XmlCursor(QByteArrayView utf8, const char *start, std::initializer_list<Element> containers)
        : XmlLexer(utf8, start)
        , g_scanner(utf8)
        , g_containers(containers)
    {}

    using XmlLexer::at;
    using XmlLexer::end;
    using XmlLexer::hasFailed;
    using XmlLexer::position;
    using XmlLexer::reason;
    using XmlLexer::text;

    /// Why the bytes are refused, once an operation has failed.
    Error error() const;

    /// To the root's value.
    bool enterRoot();
    /// Behind the root's value: what closes the list.
    bool leaveRoot();

    /// The tag of the value that the cursor is at, and where it begins.
    const XmlTag &tag() const { return g_tag; }
    const char *valueStart() const { return g_valueStart; }

    /// To the next key of the dictionary that the cursor is in. False behind the last one, the dictionary
    /// being closed then, or after a failure.
    bool nextKey();
    /// The key, decoded; valid until the next one.
    QByteArrayView key() const { return g_key; }
    /// To the value of the key.
    bool nextValue();
    /// Both in one comparison, where the next entry is written as that one was and its tag is a plain one.
    /// False where it is not; nothing has happened then.
    bool nextValueLike(const EntryForm &form);
    /// How the entry was written whose value nextKey() and nextValue() have come to.
    EntryForm entryForm() const;
    /// To the next value of the array that the cursor is in. False behind the last one, as nextKey().
    bool nextElement();

    /// To what comes next in the container that the cursor is in: a key, a value, or the closing tag.
    bool skipToEntry() { return skipBlanks(); }
    /// Goes on where another cursor, which is over the same text and was started behind this one, has
    /// stopped.
    void continueFrom(const XmlCursor &other);

    /// Into the container at which the cursor is. False when it is empty, and so over already, or nested too
    /// deeply.
    bool enter();
    /// Over the value at which the cursor is.
    bool skipValue();
    /// Reads the text of the string at which the cursor is: still encoded when isEncoded() says so.
    bool readString(QByteArrayView &content);
    /// Whether the string that was read last holds entities or CDATA sections.
    bool isEncoded() const { return g_isEncoded; }

private:
    bool skipBlanks();
    bool readTag();
    bool closeElement(Element element);
    bool leave();
    bool beginNextKey();
    bool readText(QByteArrayView &content);
    bool skipScalar();
    bool skipPlainDate();

    MarkupScanner g_scanner;
    XmlTag g_tag;
    const char *g_valueStart = nullptr;
    const char *g_entryStart = nullptr;
    QByteArrayView g_key;
    QByteArray g_decodedKey;
    std::vector<Element> g_containers; ///< Those that the cursor is in, outermost first.
    bool g_hasPlistTag = false;
    bool g_isEncoded = false;
};

} // namespace tavrin::plist
