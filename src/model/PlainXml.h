// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/TextView.h"

#include <optional>

namespace tavrin {

/// Looks into the bytes of checked XML where they stand in the form in which writers write them. None means
/// that they stand in another form, and that the cursor has to say what is there.
///
/// Sorting and selecting ask for a text of each record; the cursor would take longer than all the rest.

/// The content of the string element at the start of the bytes.
std::optional<TextView> plainString(QByteArrayView xml);

/// What the dictionary of strings at the start of the bytes has under the key; an absent text for nothing.
std::optional<TextView> plainStringInDictionary(QByteArrayView xml, QByteArrayView key);

} // namespace tavrin
