// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordHash.h"

#include <QHash>

namespace tavrin {

namespace {

/// A content counts by its place. Nothing there is as good as an empty content, and counts nothing.
size_t hashOf(const TextView &text, size_t place)
{
    if (text.isEmpty())
        return 0;
    QByteArray buffer;
    const QByteArrayView utf8 = text.utf8(buffer);
    return utf8.isEmpty() ? 0 : qHash(utf8, place + 1);
}

} // namespace

size_t RecordHash::operator()(const RecordView &record) const
{
    size_t hash = hashOf(record.textString(), g_fields.size());
    if (const std::optional<size_t> fields = inOnePass(record))
        return hash + *fields;
    for (size_t place = 0; place < g_fields.size(); ++place)
        hash += hashOf(record.fieldValue(g_fields[place]), place);
    return hash;
}

std::optional<size_t> RecordHash::inOnePass(const RecordView &record) const
{
    size_t hash = 0;
    size_t next = 0;
    const bool isWhole = record.visitFields([&](QByteArrayView identifier, const TextView &content) {
        const size_t place = placeOf(g_fields, identifier, next);
        if (place == g_fields.size())
            return;
        next = place + 1;
        hash += hashOf(content, place);
    });
    if (!isWhole)
        return {};
    return hash;
}

} // namespace tavrin
