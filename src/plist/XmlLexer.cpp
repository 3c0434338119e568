// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlLexer.h"

namespace tavrin::plist {

bool XmlLexer::fail(const char *reason)
{
    if (!g_reason)
        g_reason = reason;
    return false;
}

bool XmlLexer::skipPast(QByteArrayView token, const char *reason)
{
    const qsizetype found = rest().indexOf(token);
    if (found < 0)
        return fail(reason);
    g_at += found + token.size();
    return true;
}

bool XmlLexer::skipBetweenElements()
{
    for (;;) {
        g_at = std::find_if_not(g_at, g_end, isXmlBlank);
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

bool XmlLexer::skipProlog()
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

bool XmlLexer::readTag(XmlTag &tag)
{
    if (g_at == g_end || *g_at != '<')
        return fail(g_at == g_end ? "the file ends too early" : "text stands between elements");
    const char *name = g_at + 1;
    const char *nameEnd =
        std::find_if(name, g_end, [](char byte) { return byte == '>' || byte == '/' || isXmlBlank(byte); });
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
bool XmlLexer::skipAttributes()
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

bool XmlLexer::readClosingTag(QByteArrayView name)
{
    if (isAtClosingTag() && g_end - g_at > name.size() + 2
        && std::equal(name.begin(), name.end(), g_at + 2)) {
        const char *bracket = std::find_if_not(g_at + 2 + name.size(), g_end, isXmlBlank);
        if (bracket != g_end && *bracket == '>') {
            g_at = bracket + 1;
            return true;
        }
    }
    return fail(g_at == g_end ? "the file ends too early" : "an element is not closed by its own tag");
}

} // namespace tavrin::plist
