// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"
#include "plist/XmlCursor.h"
#include "sorting/CatalogEntry.h"

#include <memory>
#include <vector>

namespace tavrin {

namespace plist {
class XmlWriter;
}

/// How the entries of a catalog are stored: makes entries of what is stored, and gives it back.
///
/// A usual entry has its three keys, in any order. Any other (more keys, flags that are strings, no
/// dictionary at all) keeps the form that it was stored in and is written back in it; only a flag that
/// changes is stored anew.
class CatalogForms
{
public:
    /// The identifiers' numbers are those of the table, to which new ones are added.
    explicit CatalogForms(std::shared_ptr<IdentifierTable> identifiers)
        : g_identifiers(std::move(identifiers))
    {}

    IdentifierTable &identifiers() const { return *g_identifiers; }
    /// Takes a copy of the table in its place, which nobody changes.
    void setIdentifiers(std::shared_ptr<IdentifierTable> identifiers)
    {
        g_identifiers = std::move(identifiers);
    }

    CatalogEntry entryWithValue(const plist::Value &stored);
    plist::Value valueOf(const CatalogEntry &entry) const;
    /// The same value, as it stands in an array of so many containers.
    void write(const CatalogEntry &entry, plist::XmlWriter &writer, int level) const;

    /// The entries of the array at which the cursor is, all of them checked. False when the cursor failed.
    bool readEntries(plist::XmlCursor &cursor, std::vector<CatalogEntry> &entries);

    /// Nothing for an inert entry.
    void setCurrentlySelected(CatalogEntry &entry, bool selected);
    void setPreviouslySelected(CatalogEntry &entry, bool selected);

private:
    void store(const CatalogEntry &entry, bool flag, const QString &key);

    std::shared_ptr<IdentifierTable> g_identifiers;
    std::vector<plist::Value> g_forms; ///< Of the entries that are not usual.
    quint32 g_guess = 0; ///< The next entry's identifier, most likely: catalogs often follow the records.
};

} // namespace tavrin
