// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"

#include <vector>

namespace tavrin {

class Descriptor;

/// What was copied into a file, and where.
struct CopiedPiece
{
    qint64 offset;
    QByteArrayView bytes;
};

/// Reads a file that was just written. The pieces that were copied, in the order of their places, are
/// compared with what they were copied from; the rest comes back, joined. Io, also where a piece is not the
/// same.
///
/// A copy takes no memory, so comparing it costs little more than reading it.
Result<SharedBytes>
readBack(const Descriptor &file, const QString &path, const std::vector<CopiedPiece> &copied);

} // namespace tavrin
