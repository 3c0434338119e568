// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/BinaryRecords.h"

#include "model/IdentifierTable.h"
#include "model/RecordKey.h"
#include "plist/BinaryReader.h"

#include <cstring>

namespace tavrin {

namespace {

using Object = plist::BinaryTable::Object;

bool isAscii(QByteArrayView bytes)
{
    quint64 seen = 0;
    while (bytes.size() >= qsizetype(sizeof(quint64))) {
        quint64 word = 0;
        std::memcpy(&word, bytes.data(), sizeof(word));
        seen |= word;
        bytes = bytes.sliced(sizeof(word));
    }
    for (const char byte : bytes)
        seen |= static_cast<uchar>(byte);
    return (seen & 0x8080808080808080U) == 0;
}

} // namespace

bool BinaryRecords::index(quint64 records, IdentifierTable &identifiers)
{
    const Object dictionary = object(records);
    if (!dictionary.isDictionary())
        return false;
    const qsizetype count = g_table.memberCount(dictionary);
    // Different identifiers are different objects.
    if (static_cast<quint64>(count) > g_table.count())
        return false;
    g_records.reserve(static_cast<size_t>(count));
    identifiers.keep(g_bytes);
    identifiers.reserve(static_cast<quint32>(count));
    for (qsizetype place = 0; place < count; ++place) {
        const TextView identifier = textOf(g_table.member(dictionary, place));
        if (identifier.isEmpty())
            return false;
        const quint32 number = identifier.form() == TextView::Form::Utf8
                                   ? identifiers.add(identifier.bytes())
                                   : identifiers.add(identifier.string());
        if (number != this->count() || !indexRecord(g_table.valueMember(dictionary, place)))
            return false;
    }
    g_lastKeys = {};
    return true;
}

bool BinaryRecords::indexRecord(quint64 index)
{
    const Object dictionary = object(index);
    if (!dictionary.isDictionary())
        return false;
    Record record;
    record.object = static_cast<quint32>(index);
    quint32 met = 0;
    const qsizetype count = g_table.memberCount(dictionary);
    for (qsizetype place = 0; place < count; ++place) {
        const size_t known = knownKey(g_table.member(dictionary, place), static_cast<size_t>(place));
        const quint64 value = g_table.valueMember(dictionary, place);
        const quint32 bit = quint32(1) << known;
        if ((met & bit) != 0 || g_table.isNull(value))
            continue;
        met |= bit;
        if (known == RecordKey::fieldsPlace)
            record.fields = static_cast<quint32>(value);
        if (known == RecordKey::textStringPlace)
            record.textString = static_cast<quint32>(value);
    }
    constexpr quint32 allKeys = (quint32(1) << RecordKey::count) - 1;
    record.needsOpening = (met & allKeys) != allKeys;
    g_records.push_back(record);
    return true;
}

size_t BinaryRecords::knownKey(quint64 key, size_t place)
{
    if (place >= RecordKey::count * 2)
        return RecordKey::indexOf(textOf(key).toString());
    if (place >= g_lastKeys.size())
        g_lastKeys.resize(place + 1, {none, RecordKey::count});
    auto &[lastKey, known] = g_lastKeys[place];
    if (lastKey != key) {
        lastKey = key;
        known = RecordKey::indexOf(textOf(key).toString());
    }
    return known;
}

plist::Dictionary BinaryRecords::dictionary(quint32 place) const
{
    const plist::Value record = plist::readBinaryObject(g_table, g_records[place].object);
    return record.isDictionary() ? *record.dictionary() : plist::Dictionary();
}

plist::Value BinaryRecords::value(quint32 place, const QString &key) const
{
    const std::optional<quint64> found = g_table.find(object(g_records[place].object), key);
    return found ? plist::readBinaryObject(g_table, *found) : plist::Value();
}

TextView BinaryRecords::fieldValue(quint32 place, const FieldKey &field) const
{
    if (g_records[place].fields == none)
        return {};
    const Object fields = object(g_records[place].fields);
    const std::optional<quint64> found =
        fields.isDictionary() ? g_table.find(fields, field.text) : std::nullopt;
    if (!found)
        return {};
    const TextView text = textOf(*found);
    return text.isAbsent() ? TextView(QStringLiteral("")) : text;
}

TextView BinaryRecords::textString(quint32 place) const
{
    const quint32 found = g_records[place].textString;
    return found == none ? TextView() : textOf(found);
}

Object BinaryRecords::object(quint64 index) const
{
    return g_table.object(index).value_or(Object{});
}

// As Value::toText() gives it.
TextView BinaryRecords::textOf(quint64 index) const
{
    const Object object = this->object(index);
    if (object.isLatin1() && isAscii(object.content))
        return {object.content, false};
    return TextView(plist::BinaryTable::simpleValue(object).value_or(plist::Value()).toText());
}

} // namespace tavrin
