// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"
#include "base/InternalInconsistency.h"
#include "base/OrderedMap.h"
#include "plist/Value.h"

#include <QStringList>

#include <memory>
#include <utility>

namespace tavrin {

/// Objects by identifier, in the order of the file, new ones at the end.
///
/// It owns the objects; each keeps its address until it is removed or replaced. Identifiers are never
/// empty, objects never null. Object is made by Object(dictionary, environment) and gives its
/// dictionary() back. Entries of a file that are no dictionaries are no objects; they are only kept.
template <typename Object>
class QVKeyedCollectionData
{
public:
    QVKeyedCollectionData() = default;

    /// The outer key is the identifier, whatever the object itself says.
    QVKeyedCollectionData(const plist::Dictionary &dictionary, const Environment &environment)
    {
        g_collection.reserve(dictionary.size());
        dictionary.forEach([&](const QString &identifier, const plist::Value &value) {
            const plist::Dictionary *stored = value.dictionary();
            if (stored && !identifier.isEmpty())
                g_collection.insert(identifier, std::make_unique<Object>(*stored, environment));
            else
                g_otherEntries.insert(identifier, value);
        });
    }

    qsizetype count() const { return g_collection.size(); }

    /// Null for an unknown identifier.
    Object *recordForIdentifier(const QString &identifier) const
    {
        const auto *record = g_collection.find(identifier);
        return record ? record->get() : nullptr;
    }

    /// The key under which the object stands; null when it is not here.
    QString identifierForRecord(const Object *record) const
    {
        if (!record || recordForIdentifier(record->identifier()) == record)
            return record ? record->identifier() : QString();
        QString identifier;
        g_collection.forEach([&](const QString &key, const std::unique_ptr<Object> &candidate) {
            if (identifier.isNull() && candidate.get() == record)
                identifier = key;
        });
        return identifier;
    }

    /// What the objects themselves say, not the keys under which they stand.
    template <typename Records>
    static QStringList identifiersForRecords(const Records &records)
    {
        QStringList identifiers;
        for (const Object *record : records)
            identifiers.append(record->identifier());
        return identifiers;
    }

    /// Throws InternalInconsistency when one is unknown.
    QList<Object *> recordsForIdentifiers(const QStringList &identifiers) const
    {
        QList<Object *> records;
        records.reserve(identifiers.size());
        for (const QString &identifier : identifiers) {
            Object *record = recordForIdentifier(identifier);
            if (!record)
                throw InternalInconsistency("-recordsForIdentifiers: -- A record is missing.");
            records.append(record);
        }
        return records;
    }

    QStringList allIdentifiers() const
    {
        QStringList identifiers;
        identifiers.reserve(count());
        forEach(
            [&identifiers](const QString &identifier, const Object &) { identifiers.append(identifier); });
        return identifiers;
    }

    QList<Object *> allRecords() const
    {
        QList<Object *> records;
        records.reserve(count());
        forEach([&records](const QString &, Object &record) { records.append(&record); });
        return records;
    }

    /// What to walk while the collection changes; forEach() is cheaper while it does not.
    QStringList identifierEnumerator() const { return allIdentifiers(); }
    QList<Object *> recordEnumerator() const { return allRecords(); }

    /// Calls visitor(const QString &identifier, Object &) in order; it must not add or remove.
    template <typename Visitor>
    void forEach(Visitor &&visitor) const
    {
        g_collection.forEach(
            [&visitor](const QString &key, const std::unique_ptr<Object> &record) { visitor(key, *record); });
    }

    /// Does nothing for a null object or an empty identifier.
    void setRecord(std::unique_ptr<Object> record, const QString &identifier)
    {
        if (record && !identifier.isEmpty())
            g_collection.insert(identifier, std::move(record));
    }

    void removeRecordForIdentifier(const QString &identifier) { takeRecordForIdentifier(identifier); }
    void removeRecord(const Object *record) { removeRecordForIdentifier(identifierForRecord(record)); }

    /// Removes the object and hands it over; null when there is none.
    std::unique_ptr<Object> takeRecordForIdentifier(const QString &identifier)
    {
        return g_collection.take(identifier);
    }

    plist::Dictionary dictionary() const
    {
        plist::Dictionary dictionary;
        dictionary.reserve(count() + g_otherEntries.size());
        forEach([&dictionary](const QString &identifier, const Object &record) {
            dictionary.insert(identifier, record.dictionary());
        });
        g_otherEntries.forEach(
            [&dictionary](const QString &key, const plist::Value &value) { dictionary.insert(key, value); });
        return dictionary;
    }

private:
    OrderedMap<QString, std::unique_ptr<Object>> g_collection;
    plist::Dictionary g_otherEntries;
};

} // namespace tavrin
