// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

namespace tavrin::plist {

/// The elements of the XML form.
enum class Element { Plist, Dict, List, Key, String, Integer, Real, True, False, Date, Data, Unknown };

/// A short name as one number, so that a tag is told by one comparison; 0 for a long one, and for one that
/// begins with a zero byte, which would not show in the number.
constexpr quint64 packed(QByteArrayView name)
{
    quint64 number = 0;
    for (const char letter : name)
        number = number << 8 | static_cast<uchar>(letter);
    return name.size() <= 8 && !name.isEmpty() && name[0] != 0 ? number : 0;
}

/// The element of the name, Unknown when there is none.
inline Element elementNamed(QByteArrayView name)
{
    switch (packed(name)) {
    case packed("plist"):
        return Element::Plist;
    case packed("dict"):
        return Element::Dict;
    case packed("array"):
        return Element::List;
    case packed("key"):
        return Element::Key;
    case packed("string"):
        return Element::String;
    case packed("integer"):
        return Element::Integer;
    case packed("real"):
        return Element::Real;
    case packed("true"):
        return Element::True;
    case packed("false"):
        return Element::False;
    case packed("date"):
        return Element::Date;
    case packed("data"):
        return Element::Data;
    default:
        return Element::Unknown;
    }
}

/// The name of a known element.
constexpr QByteArrayView nameOf(Element element)
{
    constexpr const char *names[] = {
        "plist", "dict", "array", "key", "string", "integer", "real", "true", "false", "date", "data", ""};
    return names[static_cast<int>(element)];
}

} // namespace tavrin::plist
