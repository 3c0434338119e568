// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/QVKeyedRecordData.h"

#include <QByteArray>

namespace tavrin {

/// A record of a datafile: its bookkeeping, the contents of its fields and its Freeform Text Area.
///
/// A value; copies are cheap and independent. The rich text is authoritative where there is one, the plain
/// text is its shadow.
class RecordData : public QVKeyedRecordData
{
public:
    /// A new record, without contents.
    explicit RecordData(const Environment &environment);
    /// A stored record; a key that it lacks takes the value of a new record.
    RecordData(const plist::Dictionary &dictionary, const Environment &environment);

    /// Field identifier to content. Contents of foreign files may be other than strings.
    plist::Dictionary fields() const;
    /// The content of a field as text; null when the record has no entry for it.
    QString fieldValue(const QString &identifier) const;
    QString textString() const;
    /// Rich text with its attachments, as stored; empty when there is none.
    QByteArray textRTFD() const;
    QString description() const { return descriptionWithClassName(QLatin1StringView("RecordData")); }

    void setFields(const plist::Dictionary &fields);
    /// A null value removes the entry.
    void setFieldValue(const QString &value, const QString &identifier);
    void setTextString(const QString &text);
    void setTextRTFD(const QByteArray &data);

private:
    void fillIn();
};

} // namespace tavrin
