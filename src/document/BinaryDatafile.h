// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"
#include "document/DatafileContents.h"

#include <optional>

namespace tavrin {

struct DatafileSnapshot;

/// Reads a binary datafile: checks every object that it needs and leaves the records where they are.
///
/// None when the bytes are something else, or so unusual a datafile that it has to be read value by value;
/// that then decides what is wrong with it, if anything is.
std::optional<Result<DatafileContents>> readBinaryDatafile(const SharedBytes &bytes, const QString &fileName);

/// Whether the bytes are a binary datafile with as many records as the snapshot has: Corrupt when
/// they are not.
Result<> checkBinaryDatafile(QByteArrayView bytes, const DatafileSnapshot &snapshot);

} // namespace tavrin
