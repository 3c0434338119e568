// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RecordSource.h"
#include "model/RecordView.h"

#include <memory>
#include <optional>
#include <vector>

namespace tavrin {

class DatafileRecordsData;

/// The records of a datafile as they are when this is made, by the numbers of their identifiers. They can be
/// read on another thread while the datafile changes; no record is opened.
class StoredRecords
{
public:
    explicit StoredRecords(const DatafileRecordsData &records);
    ~StoredRecords();

    /// None for a number that is not a record's.
    std::optional<RecordView> view(quint32 number) const;

private:
    std::shared_ptr<const RecordSource> g_source; ///< The records as they stand in the file,
    std::unique_ptr<RecordSource> g_changed;      ///< and those that were changed or added since.
    quint32 g_sourceCount;
    std::vector<quint32> g_places; ///< By number: a place in the source; behind those, in the changed.
};

} // namespace tavrin
