// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "search/DatafileRows.h"
#include "search/RecordSearch.h"

namespace tavrin {

class DatafileDocument;

/// Leaving of the selected records of a document those selected that hold every key as it is written, in the
/// text or a field, hidden ones too. In three steps: it is made and applied on the document's thread, and
/// runs in between on any.
class FindSelection
{
public:
    FindSelection(const DatafileDocument &document,
                  const QStringList &keys,
                  KeyOptions options,
                  qint64 fieldsToSearchIn);

    /// Once.
    void run(Progress &progress);

    /// Announces the new selection. False, and no change, when no record holds the keys. Cancelled; Refused
    /// when the selection or the order changed meanwhile.
    Result<bool> apply(DatafileDocument &document) const;

private:
    RecordRowSnapshot g_row;
    RecordSearch g_search;
    std::vector<SearchKey> g_keys;
    std::optional<std::vector<qint64>> g_found; ///< Places in the row; none when it was cancelled.
};

} // namespace tavrin
