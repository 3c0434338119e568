// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/PlainXml.h"

#include <cstring>

namespace tavrin {

namespace {

/// What is left of some bytes.
class PlainReader
{
public:
    explicit PlainReader(QByteArrayView bytes) : g_at(bytes.begin()), g_end(bytes.end()) {}

    /// Passes the literal, if it is what comes next.
    template <size_t size>
    bool pass(const char (&literal)[size])
    {
        constexpr auto length = static_cast<qsizetype>(size - 1);
        if (g_end - g_at < length || std::memcmp(g_at, literal, size - 1) != 0)
            return false;
        g_at += length;
        return true;
    }
    /// The same for bytes that stood somewhere before; not for none at all.
    bool passAgain(QByteArrayView bytes)
    {
        if (bytes.isEmpty() || g_end - g_at < bytes.size()
            || std::memcmp(g_at, bytes.data(), static_cast<size_t>(bytes.size())) != 0) {
            return false;
        }
        g_at += bytes.size();
        return true;
    }
    void passBlanks()
    {
        while (g_at < g_end && (*g_at == ' ' || *g_at == '\t' || *g_at == '\n' || *g_at == '\r'))
            ++g_at;
    }
    /// Passes everything before the next tag.
    QByteArrayView passText()
    {
        const char *start = g_at;
        const void *markup = std::memchr(g_at, '<', static_cast<size_t>(g_end - g_at));
        g_at = markup ? static_cast<const char *>(markup) : g_end;
        return {start, g_at};
    }
    const char *at() const { return g_at; }

private:
    const char *g_at;
    const char *g_end;
};

bool hasEntity(QByteArrayView bytes)
{
    return !bytes.isEmpty() && std::memchr(bytes.data(), '&', static_cast<size_t>(bytes.size())) != nullptr;
}

/// Behind the start of its element.
std::optional<TextView> restOfString(PlainReader &reader)
{
    const QByteArrayView content = reader.passText();
    if (!reader.pass("</string>"))
        return std::nullopt;
    return TextView(content, hasEntity(content));
}

std::optional<TextView> stringAt(PlainReader &reader)
{
    if (!reader.pass("<string>"))
        return std::nullopt;
    return restOfString(reader);
}

} // namespace

std::optional<TextView> plainString(QByteArrayView xml)
{
    PlainReader reader(xml);
    return stringAt(reader);
}

std::optional<TextView> plainStringInDictionary(QByteArrayView xml, QByteArrayView key)
{
    PlainReader reader(xml);
    if (!reader.pass("<dict>"))
        return std::nullopt;
    for (;;) {
        reader.passBlanks();
        if (reader.pass("</dict>"))
            return TextView();
        if (!reader.pass("<key>"))
            return std::nullopt;
        const QByteArrayView name = reader.passText();
        if (!reader.pass("</key>") || hasEntity(name))
            return std::nullopt;
        reader.passBlanks();
        if (name == key)
            return stringAt(reader);
        if (!reader.pass("<string>"))
            return std::nullopt;
        reader.passText();
        if (!reader.pass("</string>"))
            return std::nullopt;
    }
}

bool visitPlainStrings(QByteArrayView xml,
                       const std::function<void(QByteArrayView key, const TextView &text)> &visitor)
{
    PlainReader reader(xml);
    if (!reader.pass("<dict>"))
        return false;
    // What stands around the keys is the same in all entries, as writers write them.
    QByteArrayView beforeKey;
    QByteArrayView behindKey;
    for (;;) {
        if (!reader.passAgain(beforeKey)) {
            const char *start = reader.at();
            reader.passBlanks();
            if (reader.pass("</dict>"))
                return true;
            if (!reader.pass("<key>"))
                return false;
            beforeKey = {start, reader.at()};
        }
        const QByteArrayView key = reader.passText();
        if (!reader.passAgain(behindKey)) {
            const char *start = reader.at();
            if (!reader.pass("</key>"))
                return false;
            reader.passBlanks();
            if (!reader.pass("<string>"))
                return false;
            behindKey = {start, reader.at()};
        }
        const std::optional<TextView> text = restOfString(reader);
        if (!text || hasEntity(key))
            return false;
        visitor(key, *text);
    }
}

} // namespace tavrin
