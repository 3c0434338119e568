// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"
#include "plist/Value.h"

#include <QStringList>

#include <utility>

namespace tavrin {

/// One field of a datafile: a view of its stored dictionary.
///
/// Records keep their contents under the identifier, so the name may change freely. Keys that are not
/// known here stay in the dictionary.
class FieldDefinition
{
public:
    FieldDefinition() = default;
    explicit FieldDefinition(plist::Dictionary dictionary) : g_dictionary(std::move(dictionary)) {}
    FieldDefinition(const QString &identifier, const QString &name, double width = newWidth);

    QString identifier() const;
    QString name() const;
    /// The width of the field's column, in points; that of a new field when none is stored.
    double width() const;
    /// Whether the field has a column; so it does unless it was hidden.
    bool show() const;
    const plist::Dictionary &dictionary() const { return g_dictionary; }

    void setName(const QString &name);
    void setWidth(double width);
    void setShow(bool show);

    static constexpr double newWidth = 150;

    friend bool operator==(const FieldDefinition &, const FieldDefinition &) = default;

private:
    plist::Dictionary g_dictionary;
};

/// A definition with a fresh identifier for each name.
QList<FieldDefinition> arrayForFieldNames(const QStringList &names, const Environment &environment);

} // namespace tavrin
