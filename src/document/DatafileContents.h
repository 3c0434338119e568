// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "document/FileStamp.h"
#include "model/RecordSource.h"
#include "plist/Reader.h"
#include "sorting/CatalogForms.h"

#include <memory>
#include <vector>

namespace tavrin {

/// The keys of a datafile's root that we know.
namespace RootKey {
inline const QString settings = QStringLiteral("Settings");
inline const QString records = QStringLiteral("Records");
inline const QString catalog = QStringLiteral("Catalog");

inline bool isPart(const QString &key)
{
    return key == settings || key == records || key == catalog;
}
} // namespace RootKey

/// A datafile's file as read: each part is of its right type, and the settings are of a format that we know.
struct DatafileContents
{
    QString path;
    FileStamp stamp; ///< Of the file as it was just before it was read.
    plist::Format format = plist::Format::Xml;
    plist::Dictionary rootEntries; ///< The root's keys in their order; the values of unknown ones.
    plist::Dictionary settings;
    std::shared_ptr<const RecordSource> records;
    /// Begins with the records' identifiers, in their order.
    std::shared_ptr<IdentifierTable> identifiers = std::make_shared<IdentifierTable>();
    CatalogForms catalogForms{identifiers};
    std::vector<CatalogEntry> catalog; ///< Empty when the file has none.
};

/// TooNew when the settings are of a format that this version does not know.
Result<> checkFormat(const plist::Dictionary &settings, const QString &fileName);

/// Reads a datafile, on whatever thread. NotFound, Io, Corrupt (not a property list, or a part is missing),
/// TooNew, or Cancelled by the progress.
Result<DatafileContents> readDatafile(const QString &path, Progress &progress);

} // namespace tavrin
