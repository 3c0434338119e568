// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"
#include "document/DatafileContents.h"
#include "model/QVKeyedCollectionData.h"

#include <optional>
#include <span>

namespace tavrin {

struct DatafileSnapshot;

/// Reads an XML datafile in one pass that checks every byte and leaves the records where they are.
///
/// None when the bytes are something else, or so unusual a datafile that it has to be read value by value;
/// that then decides what is wrong with it, if anything is.
std::optional<Result<DatafileContents>> readXmlDatafile(const SharedBytes &bytes, const QString &fileName);

/// Whether the bytes hold what the snapshot does but for its records, and none of those; Corrupt when they do
/// not. They are followed by SharedBytes::padding zero bytes.
Result<> checkXmlDatafile(QByteArrayView bytes, const DatafileSnapshot &snapshot);

/// Whether the bytes, which are to stand in a dictionary of records, hold those records and nothing else;
/// Corrupt when they do not. Records that were copied are compared byte by byte, of those that were written
/// anew it is checked that they are there.
Result<> checkXmlRecords(QByteArrayView bytes,
                         const RecordsSnapshot &snapshot,
                         std::span<const RecordsSnapshot::Entry> records);

} // namespace tavrin
