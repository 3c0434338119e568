// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"
#include "model/RecordSource.h"
#include "plist/XmlCursor.h"

#include <span>
#include <vector>

namespace tavrin {

class IdentifierTable;
class XmlRecordIndexer;

/// The records of an XML datafile, left where they stand in its bytes.
class XmlRecords : public RecordSource
{
public:
    /// What going over the records has found.
    enum class Outcome {
        Indexed,
        Refused, ///< The cursor has failed.
        Unusual, ///< One of them is no record, or an identifier came twice: to be judged value by value.
    };

    /// `text` lies in `bytes`.
    XmlRecords(const SharedBytes &bytes, QByteArrayView text) : g_bytes(bytes), g_text(text) {}

    /// Goes over the dictionary of records at which the cursor is, on several threads where it is large. The
    /// identifiers are added to the table, which is empty, so that a record's place is its number.
    Outcome index(plist::XmlCursor &cursor, IdentifierTable &identifiers);

    quint32 count() const override { return static_cast<quint32>(g_records.size()); }
    bool needsOpening(quint32 place) const override { return g_records[place].needsOpening; }
    plist::Dictionary dictionary(quint32 place) const override;
    plist::Value value(quint32 place, const QString &key) const override;
    TextView fieldValue(quint32 place, const FieldKey &field) const override;
    TextView textString(quint32 place) const override;
    bool visitFields(quint32 place, const FieldVisitor &visitor) const override;
    bool mayHold(quint32 place, const text::TextSieve &sieve) const override;
    void fetch(quint32 place) const override;
    QByteArrayView xml(quint32 place) const override;

private:
    friend class XmlRecordIndexer;

    struct Record
    {
        quint64 start = 0;      ///< Of the record's element, in g_text.
        quint32 size = 0;       ///< Of the element, in bytes.
        quint32 fields = 0;     ///< From the start of the element to the value under "Fields".
        quint32 fieldsSize = 0; ///< Of that value, in bytes.
        quint32 textString = 0; ///< The same for the plain text.
        quint32 textStringSize = 0;
        bool needsOpening = false;
        bool hasHiddenText = false; ///< A text is not in the bytes, or is not to be recognised there.
    };

    Outcome take(std::span<const XmlRecordIndexer> indexers, IdentifierTable &identifiers);
    void fetchAhead(quint32 place, quint32 Record::*distance) const;
    plist::XmlCursor cursorAt(quint32 place, quint32 distance) const;

    SharedBytes g_bytes;
    QByteArrayView g_text;
    std::vector<Record> g_records;
};

} // namespace tavrin
