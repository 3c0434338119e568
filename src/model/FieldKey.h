// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <span>

namespace tavrin {

/// A field's identifier, encoded once for whoever looks it up in many records.
struct FieldKey
{
    QString text;
    QByteArray utf8;

    // NOLINTNEXTLINE(google-explicit-constructor): so that who looks into one record gives the identifier.
    FieldKey(const QString &identifier) : text(identifier), utf8(identifier.toUtf8()) {}
};

/// The place of a field that is probably the next one; behind the last one that of none. Records have their
/// fields in the same order.
inline size_t placeOf(std::span<const FieldKey> fields, QByteArrayView identifier, size_t next)
{
    if (next < fields.size() && fields[next].utf8 == identifier)
        return next;
    size_t place = 0;
    while (place < fields.size() && fields[place].utf8 != identifier)
        ++place;
    return place;
}

} // namespace tavrin
