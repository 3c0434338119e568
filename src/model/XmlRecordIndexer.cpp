// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/XmlRecordIndexer.h"

#include "plist/Utf8.h"

#include <limits>

namespace tavrin {

namespace {

// A dictionary with nothing but this key is a reference, no dictionary.
constexpr QByteArrayView referenceKey("CF$UID");

constexpr quint32 bitOf(size_t knownKey)
{
    return quint32(1) << knownKey;
}

/// Whether characters of a text stand there as numbers, or in a CDATA section. Single bytes are looked for,
/// as that is much quicker than looking for "&#".
bool hidesText(QByteArrayView content)
{
    for (qsizetype at = content.indexOf('&'); at >= 0; at = content.indexOf('&', at + 1)) {
        if (content.sliced(at + 1).startsWith('#'))
            return true;
    }
    return content.contains('<');
}

} // namespace

void XmlRecordIndexer::run(const char *stop)
{
    const auto goesOn = [this, stop] { return g_cursor.at() < stop || stop == g_cursor.end(); };
    while (g_outcome == Outcome::Indexed && g_cursor.skipToEntry() && goesOn()) {
        if (!indexEntry())
            break;
    }
    if (g_cursor.hasFailed())
        g_outcome = Outcome::Refused;
}

bool XmlRecordIndexer::isUnusual()
{
    g_outcome = Outcome::Unusual;
    return false;
}

// A decoded key is the cursor's own, and does not stay.
QByteArrayView XmlRecordIndexer::identifier()
{
    if (!g_cursor.isEncoded())
        return g_cursor.key();
    g_decodedIdentifiers.push_back(g_cursor.key().toByteArray());
    return g_decodedIdentifiers.back();
}

bool XmlRecordIndexer::indexEntry()
{
    if (!g_cursor.nextKey()) {
        g_isAtEnd = !g_cursor.hasFailed();
        return false;
    }
    if (g_cursor.key().isEmpty())
        return isUnusual();
    g_identifiers.emplace_back(identifier());
    if (!g_cursor.nextValue())
        return false;
    if (g_cursor.tag().element != plist::Element::Dict)
        return isUnusual();
    return indexRecord();
}

bool XmlRecordIndexer::indexRecord()
{
    const char *start = g_cursor.valueStart();
    g_record = {};
    g_record.start = static_cast<quint64>(start - g_cursor.text().begin());
    g_recordKeys.begin();
    quint32 met = 0;
    bool isReference = false;
    if (g_cursor.enter()) {
        while (g_recordKeys.next(g_cursor)) {
            isReference = (met == 0 || isReference) && g_cursor.key() == referenceKey;
            const size_t number = g_recordKeys.number();
            if (number == g_knownKeys.size())
                g_knownKeys.push_back(RecordKey::indexOf(plist::fromUtf8(g_cursor.key())));
            const size_t known = g_knownKeys[number];
            const auto distance = static_cast<quint32>(g_cursor.valueStart() - start);
            met |= bitOf(known);
            if (known == RecordKey::textStringPlace)
                g_record.textString = distance;
            if (known == RecordKey::fieldsPlace)
                g_record.fields = distance;
            if (!indexValue(known))
                return false;
            const auto size = static_cast<quint32>(g_cursor.at() - start) - distance;
            if (known == RecordKey::textStringPlace)
                g_record.textStringSize = size;
            if (known == RecordKey::fieldsPlace)
                g_record.fieldsSize = size;
        }
    }
    if (g_cursor.hasFailed())
        return false;
    const auto size = g_cursor.at() - start;
    if (isReference || size > std::numeric_limits<quint32>::max())
        return isUnusual();
    g_record.size = static_cast<quint32>(size);
    constexpr quint32 allKeys = bitOf(RecordKey::count) - 1;
    if ((met & allKeys) != allKeys || g_recordKeys.hasRepeated())
        g_record.needsOpening = true;
    g_records.push_back(g_record);
    return true;
}

bool XmlRecordIndexer::indexValue(size_t knownKey)
{
    switch (knownKey) {
    case RecordKey::fieldsPlace:
        return indexFields();
    case RecordKey::textStringPlace:
        return indexText();
    default:
        return g_cursor.skipValue();
    }
}

// The value of a field, or the plain text. What is no string has a text that the bytes need not show.
bool XmlRecordIndexer::indexText()
{
    if (g_cursor.tag().element != plist::Element::String) {
        g_record.hasHiddenText = true;
        return g_cursor.skipValue();
    }
    QByteArrayView content;
    if (!g_cursor.readString(content))
        return false;
    if (g_cursor.isEncoded() && hidesText(content))
        g_record.hasHiddenText = true;
    return true;
}

bool XmlRecordIndexer::indexFields()
{
    if (g_cursor.tag().element != plist::Element::Dict)
        return g_cursor.skipValue();
    if (!g_cursor.enter())
        return !g_cursor.hasFailed();
    g_fieldKeys.begin();
    bool isReference = false;
    for (bool isFirst = true; g_fieldKeys.next(g_cursor); isFirst = false) {
        isReference = (isFirst || isReference) && g_cursor.key() == referenceKey;
        if (!indexText())
            return false;
    }
    g_record.needsOpening = g_record.needsOpening || isReference || g_fieldKeys.hasRepeated();
    return !g_cursor.hasFailed();
}

} // namespace tavrin
