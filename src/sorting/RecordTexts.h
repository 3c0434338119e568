// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Date.h"

#include <QAnyStringView>
#include <QStringList>

#include <functional>

namespace tavrin {

/// Reads one text of any record. Null when the record has no such text. The view may stand in the buffer,
/// and is valid until the buffer or the record changes.
using RecordTextReader = std::function<QAnyStringView(quint32 record, QString &buffer)>;

/// What sorting and selecting read of the records of a datafile, wherever these are kept. Records go by
/// number; a number that stands for no record is never asked for.
class RecordTexts
{
public:
    static constexpr quint32 noRecord = 0xFFFFFFFF;

    RecordTexts() = default;
    RecordTexts(const RecordTexts &) = delete;
    RecordTexts &operator=(const RecordTexts &) = delete;
    virtual ~RecordTexts() = default;

    /// Looks the field up once for all records; an unknown one is null in each. The reader is outlived by
    /// this object.
    virtual RecordTextReader fieldReader(const QString &fieldIdentifier) const = 0;
    /// Reads the plain text of the Freeform Text Area.
    virtual RecordTextReader textReader() const = 0;
    virtual QString freeformAddressBlock(quint32 record) const = 0;
    virtual Date createdDate(quint32 record) const = 0;
    virtual Date modifiedDate(quint32 record) const = 0;

    /// The fields of the datafile, in its own order.
    virtual QStringList fieldIdentifiers() const = 0;
};

} // namespace tavrin
