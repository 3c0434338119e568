// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace tavrin::plist {

/// The bytes that base64 text stands for, by the format's own forgiving rules.
///
/// Characters below 0x80 that are no symbols are skipped. Four symbols make a group; "=" is a symbol of
/// value 0, and a run of them at the end of a group drops its last one or two bytes. An incomplete last
/// group is dropped. Nothing when there is a byte of 0x80 or above.
std::optional<QByteArray> decodeBase64(QByteArrayView text);

/// Writes the symbols for `bytes` to `out`, which has room for 4 for each 3 bytes begun; gives the end.
char *encodeBase64(QByteArrayView bytes, char *out);

} // namespace tavrin::plist
