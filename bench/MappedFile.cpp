// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "MappedFile.h"

#include <cstring>

namespace tavrin::bench {

MappedFile::MappedFile(const QString &path) : g_file(path)
{
    if (!g_file.open(QIODevice::ReadOnly))
        return;
    const uchar *mapped = g_file.map(0, g_file.size());
    if (mapped != nullptr)
        g_bytes = QByteArrayView(mapped, g_file.size());
}

qsizetype countOfMarkup(QByteArrayView bytes)
{
    qsizetype count = 0;
    const char *place = bytes.begin();
    const auto left = [&] { return static_cast<std::size_t>(bytes.end() - place); };
    while ((place = static_cast<const char *>(std::memchr(place, '<', left()))) != nullptr) {
        ++count;
        ++place;
    }
    return count;
}

} // namespace tavrin::bench
