// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QFile>

namespace tavrin::bench {

/// A file's bytes, mapped into memory; empty when the file cannot be read.
class MappedFile
{
public:
    explicit MappedFile(const QString &path);

    QByteArrayView bytes() const { return g_bytes; }

private:
    QFile g_file;
    QByteArrayView g_bytes;
};

/// The least that finding the markup can cost.
qsizetype countOfMarkup(QByteArrayView bytes);

} // namespace tavrin::bench
