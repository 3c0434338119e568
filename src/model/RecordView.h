// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Date.h"
#include "model/RecordSource.h"

namespace tavrin {

class RecordData;

namespace text {
class TextSieve;
}

/// One record's parts, read without making the record an object: from its object where there is one, else
/// from where the datafile was read to.
///
/// Each answer costs about a microsecond; none is kept.
class RecordView
{
public:
    RecordView(const RecordData *record, const RecordSource *source, quint32 place)
        : g_record(record)
        , g_source(source)
        , g_place(place)
    {}

    TextView fieldValue(const FieldKey &field) const;
    /// The same of several different fields, in one pass where that is to be had; there is room for each.
    void fieldValues(std::span<const FieldKey> fields, std::span<TextView> values) const;
    TextView textString() const;
    /// See RecordSource::visitFields().
    bool visitFields(const FieldVisitor &visitor) const;
    /// Whether what the sieve looks for may be in a field or in the text: false only if it is not.
    bool mayHold(const text::TextSieve &sieve) const;
    /// Has the memory bring what mayHold() is about to read.
    void fetch() const;
    QByteArray textRTFD() const;
    QString name() const;
    QString createdBy() const;
    QString modifiedBy() const;
    QString viewedBy() const;
    Date createdDate() const;
    Date modifiedDate() const;
    Date viewedDate() const;
    bool isSum() const;
    bool needsSync() const;
    bool recordLocked() const;
    /// What is stored under any key of the record; null when nothing is.
    plist::Value value(const QString &key) const;
    /// What is stored, whole.
    plist::Dictionary dictionary() const;

private:
    const RecordData *g_record;
    const RecordSource *g_source;
    quint32 g_place;
};

} // namespace tavrin
