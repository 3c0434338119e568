// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/TextView.h"

#include "plist/Utf8.h"
#include "plist/XmlText.h"

namespace tavrin {

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

} // namespace tavrin
