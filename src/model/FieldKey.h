// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace tavrin {

/// A field's identifier, encoded once for whoever looks it up in many records.
struct FieldKey
{
    QString text;
    QByteArray utf8;

    // NOLINTNEXTLINE(google-explicit-constructor): so that who looks into one record gives the identifier.
    FieldKey(const QString &identifier) : text(identifier), utf8(identifier.toUtf8()) {}
};

} // namespace tavrin
