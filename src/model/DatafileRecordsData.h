// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/QVKeyedCollectionData.h"
#include "model/RecordData.h"

namespace tavrin {

class DatafileSettingsData;

/// All records of one datafile, by record identifier.
class DatafileRecordsData : public QVKeyedCollectionData
{
public:
    using QVKeyedCollectionData::QVKeyedCollectionData;

    static DatafileRecordsData collectionWithDictionary(const plist::Dictionary &dictionary,
                                                        const Environment &environment)
    {
        return {dictionary, environment};
    }

    QString description() const
    {
        return QStringLiteral("DatafileRecordsData: contains %1 records").arg(count());
    }
};

/// What the record holds in the first field of that name; null when there is no such field, or nothing in it.
QString contentOfField(const QString &name, const RecordData &record, const DatafileSettingsData &settings);

} // namespace tavrin
