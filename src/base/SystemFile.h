// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

// What the readers and writers of files share of the system's calls.

#include "base/Result.h"

#include <QByteArrayView>

#include <sys/types.h>
#include <unistd.h>

#include <utility>

namespace tavrin {

/// What errno says, about the file.
Error systemError(const QString &path);

/// A file descriptor that is closed when it goes.
class Descriptor
{
public:
    explicit Descriptor(int value) : g_value(value) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor(Descriptor &&other) noexcept : g_value(std::exchange(other.g_value, -1)) {}
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor &operator=(Descriptor &&) = delete;
    ~Descriptor() { close(); }

    int value() const { return g_value; }
    bool isOpen() const { return g_value >= 0; }

    /// False when the system reports a late failure to write.
    bool close()
    {
        if (g_value < 0)
            return true;
        const bool closed = ::close(g_value) == 0;
        g_value = -1;
        return closed;
    }

private:
    int g_value;
};

/// Not open, with errno, when the system refuses or the path is a folder.
Descriptor openToRead(const QString &path);

/// One read() that no signal interrupts; -1 with errno.
ssize_t readSome(const Descriptor &descriptor, char *destination, qsizetype size);
/// The same from a place in the file.
ssize_t readSomeAt(const Descriptor &descriptor, char *destination, qsizetype size, qint64 offset);

/// So many bytes from a place in the file; false with errno, also where the file ends before.
bool readAllAt(const Descriptor &descriptor, char *destination, qsizetype size, qint64 offset);
/// All the bytes to a place in the file; false with errno.
bool writeAllAt(const Descriptor &descriptor, QByteArrayView bytes, qint64 offset);

} // namespace tavrin
