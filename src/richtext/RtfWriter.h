// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <QByteArray>

namespace tavrin::richtext {

/// RTF of the text: ASCII alone, the same bytes for the same text. What readRtf() makes of it is equal, if a
/// table has all its rows and no link a quotation mark (it becomes %22).
///
/// Attachments are named, their bytes are not there: see Rtfd.h.
QByteArray writeRtf(const AttributedText &text);

} // namespace tavrin::richtext
