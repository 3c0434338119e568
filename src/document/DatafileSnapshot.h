// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "model/QVKeyedCollectionData.h"
#include "plist/Reader.h"
#include "sorting/SubsetSortedData.h"

namespace tavrin {

/// What a datafile holds at one moment, to be written while the document goes on changing.
struct DatafileSnapshot
{
    plist::Dictionary rootEntries; ///< The root's keys in their order; the values of those that are no parts.
    plist::Dictionary settings;
    RecordsSnapshot records;
    CatalogSnapshot catalog;
};

/// Writes the datafile durably, on whatever thread, and checks it before it takes the old file's place.
///
/// A record that nobody changed is copied from the datafile's bytes as it stands there. Unsupported for the
/// ASCII form; Corrupt when the new file is not what it should be; else as writeDurably().
Result<> writeDatafile(const DatafileSnapshot &snapshot, const QString &path, plist::Format format);

/// The refusal of a file that is not what was to be written.
Error notAsWritten(const QString &detail);

} // namespace tavrin
