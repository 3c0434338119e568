// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/BinaryTable.h"

namespace tavrin::plist {

/// Reads the binary form.
///
/// An object to which several containers refer is built once and shared. A list that would unfold to very
/// many times its size is refused, so that whoever walks the result can trust its extent.
Result<Value> readBinary(QByteArrayView bytes);

/// The value of one object of a list that checkObjects() has accepted; null for the null object.
Value readBinaryObject(const BinaryTable &table, quint64 index);

} // namespace tavrin::plist
