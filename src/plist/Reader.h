// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QByteArrayView>

namespace tavrin::plist {

/// The three forms in which a property list is stored.
enum class Format { Xml, Binary, Ascii };

/// A property list as read: its root value and the form it was in.
struct PropertyList
{
    Value root;
    Format format = Format::Xml;
};

/// The deepest nesting of containers that is read.
inline constexpr int maximumDepth = 512;

/// Reads a property list in any of its forms, recognised by its content.
///
/// Strict: a malformed list is refused as Corrupt, the detail giving the line (XML, ASCII) or byte offset
/// (binary) and the reason. Bounded: it never takes more memory than a small multiple of the input.
Result<PropertyList> read(QByteArrayView bytes);

/// As read(), and refuses a list whose root is not a dictionary.
Result<Dictionary> readDictionary(QByteArrayView bytes);

} // namespace tavrin::plist
