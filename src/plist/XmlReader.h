// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QByteArrayView>

namespace tavrin::plist {

/// Reads the XML form from valid UTF-8 without byte-order mark. What follows the root is ignored.
Result<Value> readXml(QByteArrayView utf8);

} // namespace tavrin::plist
