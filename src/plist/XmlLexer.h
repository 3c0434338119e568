// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/XmlElement.h"

#include <QByteArrayView>

#include <algorithm>

namespace tavrin::plist {

// A lambda, unlike a function, is compiled into the loops of the library's algorithms.
inline constexpr auto isXmlBlank = [](char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
};

struct XmlTag
{
    QByteArrayView name;
    Element element = Element::Unknown;
    bool isEmpty = false; ///< Closes itself: <name/>.
};

/// A place in the bytes of an XML property list, and what moves it over tags and what stands between them.
///
/// An operation that fails says so by false, and has then set reason(); at() is the place.
class XmlLexer
{
public:
    explicit XmlLexer(QByteArrayView utf8) : XmlLexer(utf8, utf8.begin()) {}
    XmlLexer(QByteArrayView utf8, const char *start) : g_text(utf8), g_at(start), g_end(utf8.end()) {}

    const char *at() const { return g_at; }
    const char *end() const { return g_end; }
    qsizetype position() const { return g_at - g_text.begin(); }
    QByteArrayView text() const { return g_text; }
    QByteArrayView rest() const { return {g_at, g_end}; }
    void moveTo(const char *place) { g_at = place; }

    /// Why it failed; null as long as it did not.
    const char *reason() const { return g_reason; }
    bool hasFailed() const { return g_reason != nullptr; }
    /// Keeps the first reason. Always false.
    bool fail(const char *reason);

    bool isAt(QByteArrayView token) const { return rest().startsWith(token); }
    bool isAtMarkup(char second) const { return g_end - g_at >= 2 && g_at[0] == '<' && g_at[1] == second; }
    bool isAtClosingTag() const { return isAtMarkup('/'); }

    /// Over blanks, comments and processing instructions.
    bool skipBetweenElements();
    /// To the first element.
    bool skipProlog();
    bool readTag(XmlTag &tag);
    bool readClosingTag(QByteArrayView name);

private:
    bool skipPast(QByteArrayView token, const char *reason);
    bool skipAttributes();

    QByteArrayView g_text;
    const char *g_at;
    const char *g_end;
    const char *g_reason = nullptr;
};

} // namespace tavrin::plist
