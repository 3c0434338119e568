// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "richtext/AttributedText.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace tavrin::richtext {

// A text with its attachments, in two forms: one flat stream of bytes, which is what a record keeps, or a
// folder whose name ends with ".rtfd". In both, RTF names the attachments, and their bytes are files beside
// it.

/// Reads the flat form, or RTF alone. Corrupt when the bytes are neither, or the stream does not add up.
Result<AttributedText> readRichText(QByteArrayView stored);

/// The RTF alone; none when the bytes are neither, or the stream does not add up.
std::optional<QByteArray> rtfOfRichText(QByteArrayView stored);

/// The flat form. readRichText() gives an equal text back, as far as writeRtf() says, and as far as the names
/// of the attachments can be names of files.
QByteArray writeRichText(const AttributedText &text);

/// Reads the folder. What its RTF names is looked for in the folder itself, nowhere else, and links there are
/// not followed. NotFound or Io when there is no readable RTF in it, Corrupt when that is no RTF.
Result<AttributedText> readRtfdFolder(const QString &path);

/// Writes the folder beside its place and then puts it there, for what was there before. On a failure that is
/// still there, or comes back.
Result<> writeRtfdFolder(const QString &path, const AttributedText &text);

} // namespace tavrin::richtext
