// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QByteArrayView>

namespace tavrin::plist {

/// Reads the old text form, of braces and semicolons, from valid UTF-8 without byte-order mark.
///
/// Every scalar is a string. The braces round the outermost pairs may be missing; blanks alone are an empty
/// dictionary.
Result<Value> readAscii(QByteArrayView utf8);

} // namespace tavrin::plist
