// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "model/DatafileSettingsData.h"
#include "plist/Reader.h"

namespace tavrin {

/// The keys of a datafile's root that we know.
namespace RootKey {
inline const QString settings = QStringLiteral("Settings");
inline const QString records = QStringLiteral("Records");
inline const QString catalog = QStringLiteral("Catalog");
} // namespace RootKey

/// A datafile's file taken apart: each part is of its right type, and the settings are of a format that we
/// know.
struct DatafileContents
{
    plist::Format format = plist::Format::Xml;
    plist::Dictionary root;
    DatafileSettingsData settings;
    plist::Dictionary records;
    plist::Array catalog; ///< Empty when the file has none.
};

/// NotFound, Io, Corrupt, TooNew. The preferences outlive the settings.
Result<DatafileContents> readDatafileContents(const QString &path, const Preferences *preferences);

} // namespace tavrin
