// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Reader.h"

namespace tavrin {

/// What a datafile holds at one moment, to be written while the document goes on changing.
struct DatafileSnapshot
{
    plist::Dictionary root;
};

/// Writes the datafile durably, on whatever thread. Unsupported for the ASCII form; else as writeDurably().
Result<> writeDatafile(const DatafileSnapshot &snapshot, const QString &path, plist::Format format);

} // namespace tavrin
