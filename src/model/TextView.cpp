// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/TextView.h"

#include "plist/Utf8.h"
#include "plist/XmlText.h"

#include <algorithm>
#include <array>

namespace tavrin {

namespace {

struct Entity
{
    QByteArrayView name;
    char character;
};

/// Those that writers of XML make.
constexpr std::array entities{Entity{"&amp;", '&'}, Entity{"&lt;", '<'}, Entity{"&gt;", '>'}};

/// False, perhaps after some of it, when there is something rarer in the content.
bool decodeInto(QByteArray &utf8, QByteArrayView content)
{
    if (content.contains('<'))
        return false;
    utf8.resize(0);
    for (qsizetype place = content.indexOf('&'); place >= 0; place = content.indexOf('&')) {
        utf8.append(content.first(place));
        content = content.sliced(place);
        const auto entity = std::ranges::find_if(
            entities, [content](const Entity &known) { return content.startsWith(known.name); });
        if (entity == entities.end())
            return false;
        utf8.append(entity->character);
        content = content.sliced(entity->name.size());
    }
    utf8.append(content);
    return true;
}

} // namespace

QString TextView::toString() const
{
    switch (g_form) {
    case Form::Absent:
        return {};
    case Form::Utf8:
        return g_bytes.isEmpty() ? QStringLiteral("") : plist::fromUtf8(g_bytes);
    case Form::Encoded: {
        // Its element's closing tag stands behind it, and the decoder wants to see that.
        constexpr qsizetype closing = 2;
        return plist::readXmlText({g_bytes.data(), g_bytes.size() + closing}).text;
    }
    case Form::Decoded:
        break;
    }
    return g_string;
}

// Decoding a text as a whole takes far longer than all the rest.
QByteArrayView TextView::decodedInto(QByteArray &buffer) const
{
    if (g_form != Form::Encoded || !decodeInto(buffer, g_bytes))
        buffer = toString().toUtf8();
    return buffer;
}

} // namespace tavrin
