// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QByteArrayView>

namespace tavrin::plist {

/// The text of a property list as valid UTF-8 without byte-order mark.
///
/// The encoding is told by a byte-order mark, else by an XML declaration, else it is UTF-8. The result may
/// share the bytes without copying them: it is valid as long as they are.
Result<QByteArray> toUtf8(QByteArrayView bytes);

/// Whether the text is in the XML form, as far as one can tell by how it begins.
bool beginsLikeXml(QByteArrayView utf8);

} // namespace tavrin::plist
