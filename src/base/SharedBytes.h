// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"

#include <QByteArrayView>

#include <functional>
#include <memory>

namespace tavrin {

class Descriptor;

/// Bytes that never change. Copies share them; they go with the last copy.
///
/// They are in memory of our own, not mapped from a file: another program that cuts a mapped file short
/// crashes whoever looks at it, and one that writes into it changes what was checked already. Behind them
/// stand `padding` zero bytes, so that they can be looked at in blocks.
class SharedBytes
{
public:
    static constexpr qsizetype padding = 64;

    SharedBytes() = default;
    /// Io when there is not so much memory.
    static Result<SharedBytes> copyOf(QByteArrayView bytes);
    /// Bytes that somebody else keeps for as long as they are used; they have the padding.
    static SharedBytes unowned(QByteArrayView bytes);

    /// Reads a whole file. NotFound, Io (too little memory, too), or Cancelled.
    static Result<SharedBytes> readFile(const QString &path, Progress &progress);

    /// The same of a file that is open already; the path is for the error.
    static Result<SharedBytes> readOpened(const Descriptor &file, const QString &path, Progress &progress);

    /// So many bytes, which `fill` puts there. Io when it gives false, with errno, or when there is not so
    /// much memory; the path is for the error.
    static Result<SharedBytes>
    filled(qsizetype size, const QString &path, const std::function<bool(char *destination)> &fill);

    QByteArrayView view() const { return {g_start.get(), g_size}; }
    qsizetype size() const { return g_size; }

private:
    static std::shared_ptr<char> allocated(qsizetype size); ///< Null when there is not so much memory.
    SharedBytes(std::shared_ptr<const char> start, qsizetype size) : g_start(std::move(start)), g_size(size)
    {}

    std::shared_ptr<const char> g_start;
    qsizetype g_size = 0;
};

} // namespace tavrin
