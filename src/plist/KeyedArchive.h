// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <QByteArray>

#include <optional>

namespace tavrin::plist {

/// The object table of a keyed archive: a property list whose objects refer to each other by index.
///
/// Objects stay as they are stored and are looked up one reference at a time, so that cycles and shared
/// objects cost nothing. Whoever follows references more than a fixed number of levels keeps count himself.
class KeyedArchive
{
public:
    /// Nothing when the bytes are no keyed archive.
    static std::optional<KeyedArchive> open(const QByteArray &bytes);

    /// The object archived under "root".
    Value root() const { return resolved(g_root); }

    /// The object that a reference stands for, any other value as it is. Null for the archive's nil, for a
    /// reference out of range, and for one that leads to another reference.
    Value resolved(const Value &value) const;

    /// The resolved value under the key of an object.
    Value member(const Dictionary &object, const QString &key) const { return resolved(object.value(key)); }

    /// Whether the object is of the class or of one derived from it.
    bool isKindOf(const Dictionary &object, const QString &className) const;

private:
    KeyedArchive(Array objects, const Value &root) : g_objects(std::move(objects)), g_root(root) {}

    Array g_objects;
    Value g_root;
};

/// A colour as an archive stores it, each part 0 to 1.
struct ArchivedColor
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    friend bool operator==(const ArchivedColor &, const ArchivedColor &) = default;
};

/// The archived colour; nothing when the data is anything else, damaged, or a pattern.
std::optional<ArchivedColor> unarchiveColor(const QByteArray &data);

/// The archive of a colour, in its smallest form: the same bytes for the same colour.
QByteArray archiveColor(const ArchivedColor &color);

} // namespace tavrin::plist
