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
    if (text.form() == TextView::Form::Utf8)
        return qHash(text.bytes(), place + 1);
    const QByteArray utf8 = text.toString().toUtf8();
    return utf8.isEmpty() ? 0 : qHash(QByteArrayView(utf8), place + 1);
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

size_t RecordHash::placeOf(QByteArrayView identifier, size_t next) const
{
    if (next < g_fields.size() && g_fields[next].utf8 == identifier)
        return next;
    size_t place = 0;
    while (place < g_fields.size() && g_fields[place].utf8 != identifier)
        ++place;
    return place;
}

std::optional<size_t> RecordHash::inOnePass(const RecordView &record) const
{
    size_t hash = 0;
    size_t next = 0;
    const bool isWhole = record.visitFields([&](QByteArrayView identifier, const TextView &content) {
        const size_t place = placeOf(identifier, next);
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
