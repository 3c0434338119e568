// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace tavrin {

/// The RTF inside a record's stored rich text: a flat stream of named files, of which "TXT.rtf" is the text,
/// or plain RTF. Nothing when the bytes are neither, or the stream does not add up.
std::optional<QByteArray> rtfOfRichText(QByteArrayView stored);

} // namespace tavrin
