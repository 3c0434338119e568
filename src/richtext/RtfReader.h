// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "richtext/AttributedText.h"

#include <QByteArrayView>

#include <functional>

namespace tavrin::richtext {

/// The bytes of an attachment by the name that the text has for it; null bytes when there is none.
using AttachmentSource = std::function<QByteArray(const QString &name)>;

/// Reads RTF of any version and program. What this model does not hold is left out, without the loss of any
/// text; RTF that is damaged or cut short gives what there is of it. Corrupt when it is no RTF at all.
///
/// Takes time in proportion to the size, and no more memory than a small multiple of it.
Result<AttributedText> readRtf(QByteArrayView rtf, const AttachmentSource &attachments = {});

/// Whether bytes claim to be RTF.
bool isRtf(QByteArrayView bytes);

} // namespace tavrin::richtext
