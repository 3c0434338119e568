// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/FileParts.h"
#include "base/Result.h"

#include <QByteArrayView>

#include <functional>

namespace tavrin {

/// Where a durable write puts its bytes: call it as often as needed, in order. False means that the
/// system refused; stop then.
using ByteSink = std::function<bool(QByteArrayView)>;

/// The same for a stretch that is made in parts.
using PartsSink = std::function<bool(const FileParts &)>;

/// Looks at what was written, but for what was made in parts, before the file takes its place; behind the
/// bytes stand as many zero bytes as SharedBytes has.
using FileCheck = std::function<Result<>(QByteArrayView written)>;

/// Writes a file so that at every moment `path` holds the old bytes or the new ones, whole.
///
/// The bytes go to a temporary file in the same folder, are flushed to the disk, take the old file's
/// permissions and (where the system allows) owner, and are renamed over it; then the folder is flushed.
/// A symbolic link stays: the file it names is replaced. On any failure the old file is untouched, the
/// temporary file is gone, and the error's kind is Io, or NotFound when the folder does not exist.
///
/// `produce` writes the content; the Result it returns decides whether the file takes its place.
Result<> writeDurably(const QString &path, const std::function<Result<>(const ByteSink &)> &produce);

/// The same, and the file is read again before it takes its place. The parts are judged one by one, and all
/// else, joined, by `check`, if there is one.
Result<>
writeCheckedDurably(const QString &path,
                    const std::function<Result<>(const ByteSink &sink, const PartsSink &parts)> &produce,
                    const FileCheck &check);

/// The same for bytes that are at hand.
Result<> writeDurably(const QString &path, QByteArrayView bytes);

/// Reads a whole file. NotFound, or Io.
Result<QByteArray> readWhole(const QString &path);

} // namespace tavrin
