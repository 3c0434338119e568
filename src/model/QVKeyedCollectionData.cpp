// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/QVKeyedCollectionData.h"

#include "base/InternalInconsistency.h"
#include "model/JoinedRecords.h"
#include "model/ValueRecords.h"

#include <algorithm>
#include <utility>

namespace tavrin {

QVKeyedCollectionData::QVKeyedCollectionData() : g_identifiers(std::make_shared<IdentifierTable>()) {}

QVKeyedCollectionData::QVKeyedCollectionData(const plist::Dictionary &dictionary,
                                             const Environment &environment)
    : g_environment(environment)
    , g_identifiers(std::make_shared<IdentifierTable>())
{
    std::vector<plist::Dictionary> records;
    records.reserve(static_cast<size_t>(dictionary.size()));
    dictionary.forEach([&](const QString &identifier, const plist::Value &value) {
        const plist::Dictionary *stored = value.dictionary();
        if (stored && !identifier.isEmpty()) {
            g_identifiers->add(identifier);
            records.push_back(*stored);
        } else {
            g_otherEntries.insert(identifier, value);
        }
    });
    g_source = std::make_shared<const ValueRecords>(std::move(records));
    takeSource();
}

QVKeyedCollectionData::QVKeyedCollectionData(std::shared_ptr<const RecordSource> source,
                                             std::shared_ptr<IdentifierTable> identifiers,
                                             const Environment &environment)
    : g_environment(environment)
    , g_source(std::move(source))
    , g_identifiers(std::move(identifiers))
{
    takeSource();
}

void QVKeyedCollectionData::takeSource()
{
    const quint32 count = g_source->count();
    // Some more, so that the first new record does not move them all.
    g_slots.reserve(count + count / 4);
    g_slotOfIdentifier.reserve(count + count / 4);
    g_slotOfIdentifier.resize(count);
    for (quint32 place = 0; place < count; ++place) {
        g_slots.push_back({place, place, nullptr});
        g_slotOfIdentifier[place] = place;
    }
    g_count = count;
    // Completed now, so that a missing date becomes that of loading.
    for (quint32 place = 0; place < count; ++place) {
        if (g_source->needsOpening(place))
            opened(g_slots[place]);
    }
}

QVKeyedCollectionData::Slot *QVKeyedCollectionData::slotOf(quint32 identifierNumber) const
{
    if (identifierNumber >= g_slotOfIdentifier.size() || g_slotOfIdentifier[identifierNumber] == noPlace)
        return nullptr;
    return &g_slots[g_slotOfIdentifier[identifierNumber]];
}

RecordData *QVKeyedCollectionData::opened(Slot &slot) const
{
    if (!slot.record)
        slot.record = std::make_unique<RecordData>(g_source->dictionary(slot.place), g_environment);
    return slot.record.get();
}

RecordData *QVKeyedCollectionData::recordForIdentifier(const QString &identifier) const
{
    Slot *slot = slotOf(identifier);
    return slot ? opened(*slot) : nullptr;
}

RecordData *QVKeyedCollectionData::recordForNumber(quint32 identifierNumber) const
{
    Slot *slot = slotOf(identifierNumber);
    return slot ? opened(*slot) : nullptr;
}

QString QVKeyedCollectionData::identifierForRecord(const RecordData *record) const
{
    if (!record)
        return {};
    const QString own = record->identifier();
    const Slot *slot = slotOf(own);
    if (slot && slot->record.get() == record)
        return own;
    const auto found =
        std::ranges::find(g_slots, record, [](const Slot &candidate) { return candidate.record.get(); });
    return found == g_slots.end() ? QString() : g_identifiers->text(found->identifier);
}

QList<RecordData *> QVKeyedCollectionData::recordsForIdentifiers(const QStringList &identifiers) const
{
    QList<RecordData *> records;
    records.reserve(identifiers.size());
    for (const QString &identifier : identifiers) {
        RecordData *record = recordForIdentifier(identifier);
        if (!record)
            throw InternalInconsistency("-recordsForIdentifiers: -- A record is missing.");
        records.append(record);
    }
    return records;
}

QStringList QVKeyedCollectionData::allIdentifiers() const
{
    QStringList identifiers;
    identifiers.reserve(count());
    forEach([&](quint32 number, const RecordView &) { identifiers.append(g_identifiers->text(number)); });
    return identifiers;
}

QList<RecordData *> QVKeyedCollectionData::allRecords() const
{
    QList<RecordData *> records;
    records.reserve(count());
    for (Slot &slot : g_slots) {
        if (slot.identifier != IdentifierTable::none)
            records.append(opened(slot));
    }
    return records;
}

std::optional<RecordView> QVKeyedCollectionData::view(const QString &identifier) const
{
    return view(g_identifiers->number(identifier));
}

std::optional<RecordView> QVKeyedCollectionData::view(quint32 identifierNumber) const
{
    const Slot *slot = slotOf(identifierNumber);
    if (!slot)
        return {};
    return viewOf(*slot);
}

void QVKeyedCollectionData::addSlot(Slot slot)
{
    if (slot.identifier >= g_slotOfIdentifier.size())
        g_slotOfIdentifier.resize(slot.identifier + size_t(1), noPlace);
    g_slotOfIdentifier[slot.identifier] = static_cast<quint32>(g_slots.size());
    g_slots.push_back(std::move(slot));
}

void QVKeyedCollectionData::setRecord(std::unique_ptr<RecordData> record, const QString &identifier)
{
    if (!record || identifier.isEmpty())
        return;
    // From now on its place in the source no longer stands for it.
    record->markChanged();
    const quint32 number = g_identifiers->add(identifier);
    if (Slot *present = slotOf(number)) {
        present->record = std::move(record);
        return;
    }
    addSlot({number, noPlace, std::move(record)});
    ++g_count;
}

void QVKeyedCollectionData::setContents(std::unique_ptr<RecordData> contents, quint32 identifierNumber)
{
    Slot *slot = slotOf(identifierNumber);
    if (!slot || !contents)
        return;
    contents->markChanged();
    if (slot->record)
        *slot->record = *contents;
    else
        slot->record = std::move(contents);
}

std::unique_ptr<RecordData> QVKeyedCollectionData::takeRecordForIdentifier(const QString &identifier)
{
    Slot *slot = slotOf(identifier);
    if (!slot)
        return nullptr;
    opened(*slot);
    std::optional<Taken> taken = take(slot->identifier);
    return std::move(taken->g_slot.record);
}

std::optional<QVKeyedCollectionData::Taken> QVKeyedCollectionData::take(quint32 identifierNumber)
{
    Slot *slot = slotOf(identifierNumber);
    if (!slot)
        return {};
    Taken taken(std::move(*slot));
    g_slotOfIdentifier[identifierNumber] = noPlace;
    slot->identifier = IdentifierTable::none;
    --g_count;
    constexpr size_t fewSlots = 64;
    if (g_slots.size() > 2 * static_cast<size_t>(g_count) + fewSlots)
        closeUp();
    return taken;
}

void QVKeyedCollectionData::putBack(Taken record)
{
    if (slotOf(record.g_slot.identifier))
        return;
    addSlot(std::move(record.g_slot));
    ++g_count;
}

// Walking over the slots stays proportional to the number of records.
void QVKeyedCollectionData::closeUp()
{
    std::erase_if(g_slots, [](const Slot &slot) { return slot.identifier == IdentifierTable::none; });
    for (size_t i = 0; i < g_slots.size(); ++i)
        g_slotOfIdentifier[g_slots[i].identifier] = static_cast<quint32>(i);
}

void QVKeyedCollectionData::addRecords(const std::shared_ptr<const RecordSource> &source,
                                       std::span<const quint32> numbers)
{
    const bool isFirst = !g_source || g_source->count() == 0;
    const quint32 start = isFirst ? 0 : g_source->count();
    g_source = isFirst ? source : JoinedRecords::join(g_source, source);
    g_slots.reserve(g_slots.size() + numbers.size());
    for (quint32 place = 0; place < numbers.size(); ++place) {
        addSlot({numbers[place], start + place, nullptr});
        if (source->needsOpening(place))
            opened(g_slots.back());
    }
    g_count += static_cast<qsizetype>(numbers.size());
}

RecordsSnapshot QVKeyedCollectionData::snapshot() const
{
    RecordsSnapshot snapshot = numberedSnapshot();
    snapshot.identifiers = std::make_shared<IdentifierTable>(*g_identifiers);
    return snapshot;
}

RecordsSnapshot QVKeyedCollectionData::numberedSnapshot() const
{
    RecordsSnapshot snapshot;
    snapshot.source = g_source;
    snapshot.sourceCount = g_source ? g_source->count() : 0;
    snapshot.otherEntries = g_otherEntries;
    snapshot.entries.reserve(static_cast<size_t>(g_count));
    for (const Slot &slot : g_slots) {
        if (slot.identifier == IdentifierTable::none)
            continue;
        if (slot.record && (slot.place == noPlace || slot.record->isChanged())) {
            const auto place = snapshot.sourceCount + static_cast<quint32>(snapshot.changed.size());
            snapshot.entries.push_back({slot.identifier, place});
            snapshot.changed.push_back(slot.record->dictionary());
        } else {
            snapshot.entries.push_back({slot.identifier, slot.place});
        }
    }
    return snapshot;
}

RecordsSnapshot RecordsSnapshot::ofSource(std::shared_ptr<const RecordSource> source,
                                          std::shared_ptr<IdentifierTable> identifiers)
{
    RecordsSnapshot snapshot;
    snapshot.sourceCount = source->count();
    for (quint32 place = 0; place < snapshot.sourceCount; ++place)
        snapshot.entries.push_back({place, place});
    snapshot.source = std::move(source);
    snapshot.identifiers = std::move(identifiers);
    return snapshot;
}

QByteArrayView RecordsSnapshot::xml(const Entry &entry) const
{
    return entry.record < sourceCount ? source->xml(entry.record) : QByteArrayView();
}

plist::Dictionary RecordsSnapshot::dictionary(const Entry &entry) const
{
    return entry.record < sourceCount ? source->dictionary(entry.record)
                                      : changed[entry.record - sourceCount];
}

plist::Dictionary RecordsSnapshot::dictionary() const
{
    plist::Dictionary all;
    all.reserve(static_cast<qsizetype>(entries.size()) + otherEntries.size());
    for (const Entry &entry : entries)
        all.insert(identifiers->text(entry.identifier), dictionary(entry));
    otherEntries.forEach([&all](const QString &key, const plist::Value &value) { all.insert(key, value); });
    return all;
}

} // namespace tavrin
