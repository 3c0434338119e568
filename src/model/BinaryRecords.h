// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"
#include "model/RecordSource.h"
#include "plist/BinaryTable.h"

#include <utility>
#include <vector>

namespace tavrin {

class IdentifierTable;

/// The records of a binary datafile, left where they stand in its bytes.
class BinaryRecords : public RecordSource
{
public:
    /// The table is that of the bytes; plist::checkObjects() has accepted it.
    BinaryRecords(const SharedBytes &bytes, const plist::BinaryTable &table) : g_bytes(bytes), g_table(table)
    {}

    /// Goes over the dictionary of records, an object of the table. The identifiers are added to theirs,
    /// which is empty, so that a record's place is its number. False when one of them is no record, or an
    /// identifier came twice: to be judged value by value.
    bool index(quint64 records, IdentifierTable &identifiers);

    quint32 count() const override { return static_cast<quint32>(g_records.size()); }
    bool needsOpening(quint32 place) const override { return g_records[place].needsOpening; }
    plist::Dictionary dictionary(quint32 place) const override;
    plist::Value value(quint32 place, const QString &key) const override;
    TextView fieldValue(quint32 place, const FieldKey &field) const override;
    TextView textString(quint32 place) const override;

private:
    static constexpr quint32 none = 0xffffffff;

    /// Indices of objects, or none. There are less than 2^32, or the table would not have been accepted.
    struct Record
    {
        quint32 object = none;
        quint32 fields = none;
        quint32 textString = none;
        bool needsOpening = false;
    };

    bool indexRecord(quint64 index);
    size_t knownKey(quint64 key, size_t place);
    plist::BinaryTable::Object object(quint64 index) const;
    TextView textOf(quint64 index) const;

    SharedBytes g_bytes;
    plist::BinaryTable g_table;
    std::vector<Record> g_records;
    /// The keys of the record before, each with its place in RecordKey::all. Most records have the same.
    std::vector<std::pair<quint64, size_t>> g_lastKeys;
};

} // namespace tavrin
