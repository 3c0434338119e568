// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/TextView.h"

#include <functional>
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

/// Calls the visitor for each entry of the dictionary of strings at the start of the bytes. False, perhaps
/// after some of them, where it stands in another form.
bool visitPlainStrings(QByteArrayView xml,
                       const std::function<void(QByteArrayView key, const TextView &text)> &visitor);

} // namespace tavrin
