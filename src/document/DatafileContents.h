// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "document/FileStamp.h"
#include "plist/Reader.h"

namespace tavrin {

/// The keys of a datafile's root that we know.
namespace RootKey {
inline const QString settings = QStringLiteral("Settings");
inline const QString records = QStringLiteral("Records");
inline const QString catalog = QStringLiteral("Catalog");
} // namespace RootKey

/// A datafile's file as read: each part is of its right type, and the settings are of a format that we know.
struct DatafileContents
{
    QString path;
    FileStamp stamp; ///< Of the file as it was just before it was read.
    plist::Format format = plist::Format::Xml;
    plist::Dictionary rootEntries; ///< The root's keys in their order; the values of unknown ones.
    plist::Dictionary settings;
    plist::Dictionary records;
    plist::Array catalog; ///< Empty when the file has none.
};

/// Reads a datafile, on whatever thread. NotFound, Io, Corrupt (not a property list, or a part is missing),
/// TooNew, or Cancelled by the progress.
Result<DatafileContents> readDatafile(const QString &path, Progress &progress);

} // namespace tavrin
