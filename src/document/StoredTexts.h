// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/AddressPlace.h"
#include "document/StoredRecords.h"
#include "sorting/RecordTerms.h"

namespace tavrin {

class DatafileRecordsData;
class DatafileSettingsData;
class Preferences;

/// What sorting and selecting read of a datafile, as it is when this is made: it can be read on another
/// thread while the datafile changes. Texts are read where they stand; no record is opened.
class StoredTexts : public RecordTexts
{
public:
    StoredTexts(const DatafileRecordsData &records, const DatafileSettingsData &settings);

    RecordTextReader fieldReader(const QString &fieldIdentifier) const override;
    RecordTextReader textReader() const override;
    QString freeformAddressBlock(quint32 record) const override;
    Date createdDate(quint32 record) const override;
    Date modifiedDate(quint32 record) const override;
    QStringList fieldIdentifiers() const override { return g_fieldIdentifiers; }

    /// Whether there is a record of that number.
    bool contains(quint32 record) const { return g_records.view(record).has_value(); }
    /// Of a record that is there; outlived by this.
    RecordView view(quint32 record) const { return *g_records.view(record); }

private:
    StoredRecords g_records;
    AddressPlace g_addressPlace;
    QStringList g_fieldIdentifiers;
};

/// What sorting needs besides the records; without preferences, the usual titles.
SortSettings sortSettings(const Preferences *preferences);

} // namespace tavrin
