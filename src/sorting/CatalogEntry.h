// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <memory>

namespace tavrin {

/// One place of the catalog: a record's identifier and whether it is, and was, selected.
///
/// Small, because there may be a million. An entry whose stored form is other than the usual one (more
/// keys, flags that are strings, no dictionary at all) keeps that form and is written back in it; only a
/// flag that changes is stored anew. Without an identifier it is inert: never selected, only kept.
class CatalogEntry
{
public:
    /// A new record's entry: selected, now and before.
    explicit CatalogEntry(const QString &identifier);
    static CatalogEntry entryWithValue(const plist::Value &stored);

    const QString &identifier() const { return g_identifier; }
    bool isInert() const { return g_identifier.isNull(); }
    bool currentlySelected() const { return g_currentlySelected; }
    bool previouslySelected() const { return g_previouslySelected; }
    /// What is stored.
    plist::Value value() const;

    void setCurrentlySelected(bool selected);
    void setPreviouslySelected(bool selected);

private:
    CatalogEntry() = default;
    void store(bool flag, const QString &key);

    QString g_identifier;
    std::shared_ptr<const plist::Value>
        g_unusualForm; ///< Shared by copies of the catalog; null for the usual.
    bool g_currentlySelected = false;
    bool g_previouslySelected = false;
};

} // namespace tavrin
