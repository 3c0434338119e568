// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

namespace tavrin {

/// The value that a text stands for, to be stored under a setting's key.
///
/// Its type is that of the known setting, else that of the value stored now. Refused for a key that holds
/// more than a single value, for one that is neither known nor stored, for the stamp of the format, and for
/// a text that does not read as the type.
Result<plist::Value> settingOfText(const QString &text, const QString &key, const plist::Value &stored);

} // namespace tavrin
