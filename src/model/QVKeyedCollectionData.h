// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"
#include "base/LargeMemory.h"
#include "model/IdentifierTable.h"
#include "model/RecordData.h"
#include "model/RecordSource.h"
#include "model/RecordView.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tavrin {

/// What a collection holds at one moment. It can be read on another thread while the collection changes.
struct RecordsSnapshot
{
    struct Entry
    {
        quint32 identifier; ///< Its number in the table.
        quint32 record;     ///< A place in the source, or behind those, one in the changed records.
    };

    std::shared_ptr<const RecordSource> source; ///< May be null when all records are changed ones.
    quint32 sourceCount = 0;
    std::shared_ptr<IdentifierTable> identifiers; ///< A copy of its own; null when none was asked for.
    std::vector<Entry> entries;
    std::vector<plist::Dictionary> changed;
    plist::Dictionary otherEntries;

    /// The records of a source as they are stored, each under the identifier of its number.
    static RecordsSnapshot ofSource(std::shared_ptr<const RecordSource> source,
                                    std::shared_ptr<IdentifierTable> identifiers);

    /// The element of a record that is as it stands in an XML datafile; empty for another one.
    QByteArrayView xml(const Entry &entry) const;
    plist::Dictionary dictionary(const Entry &entry) const;
    plist::Dictionary dictionary() const; ///< Of all records.
};

/// Records by identifier, in the order of the file, new ones at the end.
///
/// A record stays where the datafile was read to until somebody asks for the object; from then on it keeps
/// its address until it is removed or replaced. view() reads a record without making it an object, and is
/// what to use for going over all of them. Identifiers are never empty, objects never null. Entries of a
/// file that are no dictionaries are no records; they are only kept.
class QVKeyedCollectionData
{
    static constexpr quint32 noPlace = 0xffffffff;

    struct Slot
    {
        quint32 identifier;                 ///< None in a slot that was given up.
        quint32 place;                      ///< In the source.
        std::unique_ptr<RecordData> record; ///< Null as long as nobody has asked for it.
    };

public:
    /// A record that was taken out as it stood, opened or not. Only its own collection takes it back.
    class Taken
    {
        friend class QVKeyedCollectionData;
        explicit Taken(Slot slot) : g_slot(std::move(slot)) {}
        Slot g_slot;
    };

    QVKeyedCollectionData();
    /// The outer key is the identifier, whatever the record itself says.
    QVKeyedCollectionData(const plist::Dictionary &dictionary, const Environment &environment);
    /// The records of a source, each under the identifier that has its place for number in the table.
    QVKeyedCollectionData(std::shared_ptr<const RecordSource> source,
                          std::shared_ptr<IdentifierTable> identifiers,
                          const Environment &environment);

    qsizetype count() const { return g_count; }
    bool contains(const QString &identifier) const { return slotOf(identifier) != nullptr; }

    /// Null for an unknown identifier.
    RecordData *recordForIdentifier(const QString &identifier) const;
    RecordData *recordForNumber(quint32 identifierNumber) const;
    /// The key under which the object stands; null when it is not here.
    QString identifierForRecord(const RecordData *record) const;

    /// What the objects themselves say, not the keys under which they stand.
    template <typename Records>
    static QStringList identifiersForRecords(const Records &records)
    {
        QStringList identifiers;
        for (const RecordData *record : records)
            identifiers.append(record->identifier());
        return identifiers;
    }

    /// Throws InternalInconsistency when one is unknown.
    QList<RecordData *> recordsForIdentifiers(const QStringList &identifiers) const;

    QStringList allIdentifiers() const;
    /// Opens every record.
    QList<RecordData *> allRecords() const;
    /// What to walk while the collection changes.
    QStringList identifierEnumerator() const { return allIdentifiers(); }
    QList<RecordData *> recordEnumerator() const { return allRecords(); }

    /// Reads a record without opening it; none for an unknown identifier. Valid until the record is changed
    /// or removed.
    std::optional<RecordView> view(const QString &identifier) const;
    std::optional<RecordView> view(quint32 identifierNumber) const;

    /// Calls visitor(quint32 identifierNumber, const RecordView &) in order; it must not add or remove.
    template <typename Visitor>
    void forEach(Visitor &&visitor) const
    {
        for (const Slot &slot : g_slots) {
            if (slot.identifier != IdentifierTable::none)
                visitor(slot.identifier, viewOf(slot));
        }
    }

    /// The identifiers of the records, and of whatever else wants numbers for them.
    IdentifierTable &identifiers() const { return *g_identifiers; }
    std::shared_ptr<IdentifierTable> sharedIdentifiers() const { return g_identifiers; }

    /// Does nothing for a null object or an empty identifier.
    void setRecord(std::unique_ptr<RecordData> record, const QString &identifier);
    void removeRecordForIdentifier(const QString &identifier) { takeRecordForIdentifier(identifier); }
    void removeRecord(const RecordData *record) { removeRecordForIdentifier(identifierForRecord(record)); }
    /// Removes the record and hands it over; null when there is none.
    std::unique_ptr<RecordData> takeRecordForIdentifier(const QString &identifier);
    /// Takes a record out without opening it; none for an unknown number.
    std::optional<Taken> take(quint32 identifierNumber);
    /// As it stood, at the end. Nothing when another record has its identifier by now.
    void putBack(Taken record);

    /// Adds the records of a source behind the others, each under the identifier of the number at its place.
    /// None of the numbers is that of a record here.
    void addRecords(const std::shared_ptr<const RecordSource> &source, std::span<const quint32> numbers);

    RecordsSnapshot snapshot() const;
    /// The same without the table of identifiers, for those who know the records by number.
    RecordsSnapshot numberedSnapshot() const;
    plist::Dictionary dictionary() const { return snapshot().dictionary(); }

private:
    Slot *slotOf(quint32 identifierNumber) const;
    Slot *slotOf(const QString &identifier) const { return slotOf(g_identifiers->number(identifier)); }
    void addSlot(Slot slot);
    void closeUp();
    void takeSource();
    RecordData *opened(Slot &slot) const;
    RecordView viewOf(const Slot &slot) const { return {slot.record.get(), g_source.get(), slot.place}; }

    Environment g_environment;
    std::shared_ptr<const RecordSource> g_source;
    std::shared_ptr<IdentifierTable> g_identifiers;
    mutable LargeVector<Slot> g_slots;
    LargeVector<quint32> g_slotOfIdentifier; ///< By number; may be shorter than the table.
    qsizetype g_count = 0;
    plist::Dictionary g_otherEntries;
};

} // namespace tavrin
