// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QByteArrayView>

namespace tavrin::plist {

inline constexpr QByteArrayView binaryMagic("bplist0");

/// Reads the binary form.
///
/// An object to which several containers refer is built once and shared. A list that would unfold to very
/// many times its size is refused, so that whoever walks the result can trust its extent.
Result<Value> readBinary(QByteArrayView bytes);

} // namespace tavrin::plist
