// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

namespace tavrin::plist {

// Looking at every byte of a large text, with the widest vectors that the processor at hand has.

/// Where bytes of three kinds stand in a run of 64-byte blocks: one bit a byte, lowest bit first.
struct ByteMasks
{
    quint64 markup;      ///< '<'
    quint64 ampersand;   ///< '&'
    quint64 beyondAscii; ///< 0x80 and above
};

/// Classifies `count` whole blocks of 64 bytes from `bytes` on. The bytes may stand at any address; nothing
/// behind the blocks is read. A few hundred blocks a call keep the masks in the processor's nearest cache.
void classify(const char *bytes, qsizetype count, ByteMasks *masks);

/// The same, one byte after another: what classify() is tested against.
void classifyPlainly(const char *bytes, qsizetype count, ByteMasks *masks);

/// Whether the bytes are valid UTF-8: no surrogates, no overlong forms, nothing beyond U+10FFFF, nothing cut
/// short at the end. Nothing outside of the bytes is read.
bool isValidUtf8(QByteArrayView bytes);

} // namespace tavrin::plist
