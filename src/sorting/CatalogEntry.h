// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/IdentifierTable.h"

namespace tavrin {

/// One place of the catalog: a record's identifier, as a number of the records' table, and whether the record
/// is, and was, selected.
///
/// Small, because there may be a million. Without an identifier it is inert: never selected, only kept.
class CatalogEntry
{
public:
    /// A new record's entry: selected, now and before.
    explicit CatalogEntry(quint32 identifier) : CatalogEntry(identifier, true, true, 0) {}
    CatalogEntry(quint32 identifier, bool current, bool previous, quint32 form)
        : g_identifier(identifier)
        , g_form(form & 0x3fffffffU)
        , g_current(current)
        , g_previous(previous)
    {}

    quint32 identifier() const { return g_identifier; }
    bool isInert() const { return g_identifier == IdentifierTable::none; }
    bool currentlySelected() const { return g_current; }
    bool previouslySelected() const { return g_previous; }
    /// How it is stored: a number that CatalogForms gives; that of new entries is 0.
    quint32 form() const { return g_form; }

    void setCurrentlySelected(bool selected) { g_current = selected; }
    void setPreviouslySelected(bool selected) { g_previous = selected; }

    friend bool operator==(const CatalogEntry &, const CatalogEntry &) = default;

private:
    quint32 g_identifier;
    quint32 g_form : 30;
    bool g_current : 1;
    bool g_previous : 1;
};

} // namespace tavrin
