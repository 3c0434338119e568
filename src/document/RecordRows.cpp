// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordRows.h"

#include "document/XmlDatafile.h"
#include "model/ElementSource.h"
#include "plist/XmlWriter.h"

#include <algorithm>

namespace tavrin {

namespace {

// A row is as large as is made, written and read again within the processor's cache; copies are not made.
constexpr qsizetype sizeOfRow = 1 << 17;
constexpr qsizetype sizeOfCopy = 1 << 22;
constexpr size_t mostWritten = 256;
// Shorter ones are written with what stands around them.
constexpr qsizetype leastCopied = 1 << 16;
// Of a record that stands in another form.
constexpr qsizetype unknownSize = 16 * 1024;

/// Of a record that is no bytes yet, about: the text and the data that it may be full of.
qsizetype sizeOfRecord(const plist::Dictionary &record)
{
    qsizetype size = 1000;
    record.forEach([&size](const QString &, const plist::Value &value) {
        if (const QByteArray *data = value.data())
            size += data->size() * 4 / 3;
        else if (const QString *string = value.string())
            size += string->size();
    });
    return size;
}

} // namespace

RecordRows::RecordRows(const RecordsSnapshot &records) : g_records(records)
{
    for (size_t place = 0; place < records.entries.size();) {
        const size_t end = endOfCopies(place);
        const qsizetype size = end == place ? 0 : copied(place, end).size();
        if (size >= leastCopied)
            g_rows.push_back({place, end, size, true});
        else
            addWritten(place, std::max(end, place + 1));
        place = g_rows.back().end;
    }
}

/// Whether the record behind that one stands right behind it, with nothing between them but what would be
/// written there.
bool RecordRows::follows(size_t place) const
{
    constexpr QByteArrayView before("\n\t\t<key>");
    constexpr QByteArrayView behind("</key>\n\t\t");
    const RecordsSnapshot::Entry &next = g_records.entries[place + 1];
    const QByteArrayView record = g_records.xml(g_records.entries[place]);
    const QByteArrayView stored = g_records.xml(next);
    const QByteArrayView identifier = g_records.identifiers->bytes(next.identifier);
    const qsizetype distance = before.size() + identifier.size() + behind.size();
    if (record.isEmpty() || stored.isEmpty() || stored.begin() - record.end() != distance)
        return false;
    const QByteArrayView between(record.end(), stored.begin());
    // A plain '>' would be written as an entity.
    return between.startsWith(before) && between.endsWith(behind)
           && between.sliced(before.size(), identifier.size()) == identifier && !identifier.contains('>');
}

/// Behind the records from there on that can be copied as one row: their lines are whole, as others that are
/// as they would be written stand on both sides.
size_t RecordRows::endOfCopies(size_t place) const
{
    if (place == 0 || !follows(place - 1))
        return place;
    size_t end = place;
    qsizetype size = 0;
    while (size < sizeOfCopy && end + 1 < g_records.entries.size() && follows(end)) {
        size += g_records.xml(g_records.entries[end]).size();
        ++end;
    }
    return end;
}

/// The lines of those records.
QByteArrayView RecordRows::copied(size_t first, size_t end) const
{
    const auto endOfLine = [this](size_t place) { return g_records.xml(g_records.entries[place]).end() + 1; };
    return {endOfLine(first - 1), endOfLine(end - 1)};
}

void RecordRows::addWritten(size_t first, size_t end)
{
    for (size_t place = first; place < end; ++place) {
        const bool isFull = g_rows.empty() || g_rows.back().isCopied || g_rows.back().size >= sizeOfRow
                            || place - g_rows.back().first >= mostWritten;
        if (isFull)
            g_rows.push_back({place, place, 0, false});
        g_rows.back().end = place + 1;
        g_rows.back().size += sizeOf(place);
    }
}

qsizetype RecordRows::sizeOf(size_t place) const
{
    const RecordsSnapshot::Entry &entry = g_records.entries[place];
    if (entry.record >= g_records.sourceCount)
        return sizeOfRecord(g_records.changed[entry.record - g_records.sourceCount]);
    const QByteArrayView stored = g_records.xml(entry);
    return stored.isEmpty() ? unknownSize : stored.size();
}

QByteArrayView RecordRows::bytes(size_t part, QByteArray &room) const
{
    const Row &row = g_rows[part];
    if (row.isCopied)
        return copied(row.first, row.end);
    room.resize(0);
    const plist::Sink sink = [&room](QByteArrayView piece) {
        room.append(piece);
        return true;
    };
    plist::XmlWriter writer(sink);
    for (size_t place = row.first; place < row.end; ++place) {
        const RecordsSnapshot::Entry &entry = g_records.entries[place];
        writer.writeKey(g_records.identifiers->text(entry.identifier), elementLevel);
        if (const QByteArrayView stored = g_records.xml(entry); !stored.isEmpty())
            writer.writeElement(stored, elementLevel);
        else if (entry.record < g_records.sourceCount)
            writeRecordElement(*g_records.source, entry.record, writer);
        else
            writer.writeValue(g_records.dictionary(entry), elementLevel);
    }
    writer.flush();
    return room;
}

Result<> RecordRows::check(size_t part, QByteArrayView bytes) const
{
    const Row &row = g_rows[part];
    if (row.isCopied)
        return {};
    return checkXmlRecords(
        bytes, g_records, std::span(g_records.entries).subspan(row.first, row.end - row.first));
}

} // namespace tavrin
