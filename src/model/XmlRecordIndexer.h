// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/IdentifierTable.h"
#include "model/RecordKey.h"
#include "model/XmlRecords.h"
#include "plist/KeyRow.h"

namespace tavrin {

/// Goes over a run of records with a cursor of its own and notes where they are.
class XmlRecordIndexer
{
public:
    using Outcome = XmlRecords::Outcome;

    /// The cursor is in the dictionary of records.
    explicit XmlRecordIndexer(const plist::XmlCursor &cursor) : g_cursor(cursor) {}

    /// Up to the first record that begins at `stop` or behind it, or to the end of the records.
    void run(const char *stop);

    const plist::XmlCursor &cursor() const { return g_cursor; }
    Outcome outcome() const { return g_outcome; }
    /// The dictionary of records is over.
    bool isAtEnd() const { return g_isAtEnd; }

    const std::vector<XmlRecords::Record> &records() const { return g_records; }
    const std::vector<IdentifierTable::Hashed> &identifiers() const { return g_identifiers; }

private:
    bool indexEntry();
    bool indexRecord();
    bool indexValue(size_t knownKey);
    bool indexFields();
    bool indexText();
    QByteArrayView identifier();
    bool isUnusual();

    plist::XmlCursor g_cursor;
    plist::KeyRow g_recordKeys;
    plist::KeyRow g_fieldKeys;
    std::vector<size_t> g_knownKeys; ///< By number in g_recordKeys: which of the known keys it is.
    XmlRecords::Record g_record;
    std::vector<XmlRecords::Record> g_records;
    std::vector<IdentifierTable::Hashed> g_identifiers;
    std::vector<QByteArray> g_decodedIdentifiers;
    Outcome g_outcome = Outcome::Indexed;
    bool g_isAtEnd = false;
};

} // namespace tavrin
