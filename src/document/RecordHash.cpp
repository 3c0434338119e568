// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordHash.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace tavrin {

namespace {

struct Entity
{
    QByteArrayView name;
    char character;
};

/// Those that writers of XML make.
constexpr std::array entities{Entity{"&amp;", '&'}, Entity{"&lt;", '<'}, Entity{"&gt;", '>'}};

/// The UTF-8 of a text. Decoding it as a whole takes far longer than all the rest, and is left for those that
/// have something rare in them.
QByteArray utf8Of(const TextView &text)
{
    if (text.form() != TextView::Form::Encoded || text.bytes().contains('<'))
        return text.toString().toUtf8();
    QByteArray utf8;
    utf8.reserve(text.bytes().size());
    QByteArrayView rest = text.bytes();
    for (qsizetype place = rest.indexOf('&'); place >= 0; place = rest.indexOf('&')) {
        utf8.append(rest.first(place));
        rest = rest.sliced(place);
        const auto entity = std::ranges::find_if(
            entities, [rest](const Entity &known) { return rest.startsWith(known.name); });
        if (entity == entities.end())
            return text.toString().toUtf8();
        utf8.append(entity->character);
        rest = rest.sliced(entity->name.size());
    }
    return utf8.append(rest);
}

/// A content counts by its place. Nothing there is as good as an empty content, and counts nothing.
size_t hashOf(const TextView &text, size_t place)
{
    if (text.isEmpty())
        return 0;
    if (text.form() == TextView::Form::Utf8)
        return qHash(text.bytes(), place + 1);
    const QByteArray utf8 = utf8Of(text);
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
