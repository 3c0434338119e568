// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/XmlRecords.h"

#include "base/Parallel.h"
#include "model/IdentifierTable.h"
#include "model/PlainXml.h"
#include "model/RecordKey.h"
#include "model/XmlRecordIndexer.h"
#include "plist/XmlReader.h"
#include "text/TextSieve.h"

#include <hwy/cache_control.h>

#include <algorithm>

namespace tavrin {

namespace {

constexpr qsizetype parallelFrom = qsizetype(32) << 20;

/// Where a record seems to begin, at `from` or behind it: at the key, in the layout in which datafiles are
/// written. The end of the text when nothing looks like it.
///
/// It may be wrong. Then the indexer before does not stop there, and all that was found from there on is
/// thrown away.
const char *likelyRecord(QByteArrayView text, qsizetype from)
{
    constexpr QByteArrayView between("\n\t\t</dict>\n\t\t");
    constexpr QByteArrayView key("<key>");
    for (;;) {
        const qsizetype found = text.indexOf(between, from);
        if (found < 0)
            return text.end();
        const QByteArrayView rest = text.sliced(found + between.size());
        if (rest.startsWith(key))
            return rest.begin();
        from = found + 1;
    }
}

/// What the text has in the element that the cursor is at, as Value::toText() gives it.
TextView textOf(plist::XmlCursor &cursor)
{
    const bool isString =
        cursor.tag().element == plist::Element::String || cursor.tag().element == plist::Element::Key;
    if (isString) {
        QByteArrayView content;
        cursor.readString(content);
        return {content, cursor.isEncoded()};
    }
    const char *start = cursor.valueStart();
    cursor.skipValue();
    const Result<plist::Value> value = plist::readXml({start, cursor.at()});
    return TextView(value ? value->toText() : QString());
}

void fetchBytes(QByteArrayView bytes)
{
    constexpr qsizetype line = 64;
    // Of long texts the memory brings the rest by itself.
    constexpr qsizetype most = 2048;
    for (qsizetype at = 0; at < std::min(bytes.size(), most); at += line)
        hwy::Prefetch(bytes.data() + at);
}

/// Whether something passes that stands neither in a tag nor in a key.
bool passes(QByteArrayView element, const text::TextSieve &sieve)
{
    return sieve.passes(element, [element](qsizetype place) {
        const qsizetype tag = element.lastIndexOf('<', place);
        return element.indexOf('>', tag) < place && !element.sliced(tag).startsWith("<key>");
    });
}

} // namespace

XmlRecords::Outcome XmlRecords::index(plist::XmlCursor &cursor, IdentifierTable &identifiers)
{
    using plist::Element;
    if (cursor.tag().element != Element::Dict)
        return Outcome::Unusual;
    if (!cursor.enter())
        return cursor.hasFailed() ? Outcome::Refused : Outcome::Indexed;

    const qsizetype left = g_text.end() - cursor.at();
    const int parts = left < parallelFrom ? 1 : parallelParts();
    std::vector<XmlRecordIndexer> indexers;
    indexers.emplace_back(cursor);
    for (int part = 1; part < parts; ++part) {
        const char *start = likelyRecord(g_text, cursor.position() + left / parts * part);
        indexers.emplace_back(plist::XmlCursor(g_text, start, {Element::Dict, Element::Dict}));
    }
    std::vector<const char *> starts;
    for (const XmlRecordIndexer &indexer : indexers)
        starts.push_back(indexer.cursor().at());
    starts.push_back(g_text.end());
    inParallel(parts, [&](int part) {
        const auto index = static_cast<size_t>(part);
        indexers[index].run(starts[index + 1]);
    });

    // A part counts when the one before it stopped exactly where it began.
    size_t last = 0;
    while (indexers[last].outcome() == Outcome::Indexed && !indexers[last].isAtEnd()) {
        if (last + 1 < indexers.size() && indexers[last].cursor().at() == starts[last + 1])
            ++last;
        else
            indexers[last].run(g_text.end());
    }
    cursor.continueFrom(indexers[last].cursor());
    if (indexers[last].outcome() != Outcome::Indexed)
        return indexers[last].outcome();
    return take({indexers.data(), last + 1}, identifiers);
}

XmlRecords::Outcome XmlRecords::take(std::span<const XmlRecordIndexer> indexers, IdentifierTable &identifiers)
{
    size_t total = 0;
    for (const XmlRecordIndexer &indexer : indexers)
        total += indexer.records().size();
    g_records.reserve(total);
    identifiers.keep(g_bytes);
    identifiers.reserve(static_cast<quint32>(total));
    constexpr size_t ahead = 16;
    for (const XmlRecordIndexer &indexer : indexers) {
        for (size_t i = 0; i < indexer.records().size(); ++i) {
            if (i + ahead < indexer.records().size())
                identifiers.fetch(indexer.identifiers()[i + ahead]);
            if (identifiers.add(indexer.identifiers()[i]) != count())
                return Outcome::Unusual;
            g_records.push_back(indexer.records()[i]);
        }
    }
    return Outcome::Indexed;
}

QByteArrayView XmlRecords::xml(quint32 place) const
{
    const Record &record = g_records[place];
    return g_text.sliced(static_cast<qsizetype>(record.start), record.size);
}

plist::Dictionary XmlRecords::dictionary(quint32 place) const
{
    const Result<plist::Value> record = plist::readXml(xml(place));
    return record && record->isDictionary() ? *record->dictionary() : plist::Dictionary();
}

// At the value so far behind the start of the record.
plist::XmlCursor XmlRecords::cursorAt(quint32 place, quint32 distance) const
{
    plist::XmlCursor cursor(g_text, xml(place).data() + distance, {});
    cursor.nextValue();
    return cursor;
}

plist::Value XmlRecords::value(quint32 place, const QString &key) const
{
    const QByteArray wanted = key.toUtf8();
    plist::XmlCursor cursor = cursorAt(place, 0);
    if (!cursor.enter())
        return {};
    while (cursor.nextKey()) {
        const bool isWanted = cursor.key() == wanted;
        cursor.nextValue();
        const char *start = cursor.valueStart();
        cursor.skipValue();
        if (!isWanted)
            continue;
        const Result<plist::Value> value = plist::readXml({start, cursor.at()});
        return value ? *value : plist::Value();
    }
    return {};
}

// Who goes over all records mostly does so in their order; waiting for memory would take longer than all that
// is done with what comes from there.
void XmlRecords::fetchAhead(quint32 place, quint32 Record::*distance) const
{
    constexpr size_t ahead = 12;
    if (place + ahead >= g_records.size())
        return;
    const Record &record = g_records[place + ahead];
    constexpr qsizetype line = 64;
    const char *start = g_text.data() + record.start + record.*distance;
    hwy::Prefetch(start);
    hwy::Prefetch(start + line);
}

TextView XmlRecords::fieldValue(quint32 place, const FieldKey &field) const
{
    fetchAhead(place, &Record::fields);
    const quint32 fields = g_records[place].fields;
    if (const auto text = plainStringInDictionary(xml(place).sliced(fields), field.utf8))
        return *text;
    plist::XmlCursor cursor = cursorAt(place, fields);
    if (cursor.tag().element != plist::Element::Dict || !cursor.enter())
        return {};
    while (cursor.nextKey()) {
        const bool isWanted = cursor.key() == field.utf8;
        cursor.nextValue();
        if (isWanted) {
            const TextView text = textOf(cursor);
            return text.isAbsent() ? TextView(QStringLiteral("")) : text;
        }
        cursor.skipValue();
    }
    return {};
}

bool XmlRecords::visitFields(quint32 place, const FieldVisitor &visitor) const
{
    fetchAhead(place, &Record::fields);
    return visitPlainStrings(xml(place).sliced(g_records[place].fields), visitor);
}

bool XmlRecords::mayHold(quint32 place, const text::TextSieve &sieve) const
{
    const Record &record = g_records[place];
    if (record.hasHiddenText)
        return true;
    const QByteArrayView bytes = xml(place);
    return passes(bytes.sliced(record.textString, record.textStringSize), sieve)
           || passes(bytes.sliced(record.fields, record.fieldsSize), sieve);
}

void XmlRecords::fetch(quint32 place) const
{
    const Record &record = g_records[place];
    fetchBytes(xml(place).sliced(record.textString, record.textStringSize));
    fetchBytes(xml(place).sliced(record.fields, record.fieldsSize));
}

TextView XmlRecords::textString(quint32 place) const
{
    fetchAhead(place, &Record::textString);
    const quint32 textString = g_records[place].textString;
    if (const auto text = plainString(xml(place).sliced(textString)))
        return *text;
    plist::XmlCursor cursor = cursorAt(place, textString);
    return textOf(cursor);
}

} // namespace tavrin
