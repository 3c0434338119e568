// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "search/DatafileSearch.h"
#include "search/TextChanges.h"

namespace tavrin {

/// What to put in whose place.
struct Replacement
{
    QString findWhat;
    QString replaceWith;
    KeyOptions options;
};

/// Where all occurrences are replaced.
struct ReplaceExtent
{
    qint64 fieldsToSearchIn = FieldsToSearchIn::everything;
    /// Of all selected records only this one, by its place among them.
    std::optional<qint64> onlyRecord;
};

/// What to do with texts whose formatting cannot be kept.
enum class UnkeptFormatting {
    Leave, ///< Such a text stays as it is.
    Drop,  ///< It becomes plain text.
};

struct ReplaceAllOutcome
{
    qint64 replacements = 0;
    qint64 records = 0;      ///< Those that were changed.
    QStringList leftRecords; ///< Identifiers of those whose formatted text has occurrences and was left.
    TextChanges undo;        ///< Exchanges what was replaced back.
};

/// Replaces every occurrence in the selected records, hidden fields too, and counts. Locked records stay as
/// they are. Marks the changed records as modified and the document as changed; nothing of that happens when
/// there is no occurrence. When it is cancelled, nothing is changed.
ReplaceAllOutcome replaceAll(DatafileDocument &document,
                             const Replacement &replacement,
                             const ReplaceExtent &extent,
                             UnkeptFormatting formatting,
                             Progress &progress);

/// Replaces one hit, and says where in the record the search goes on: behind what was put in. None, and no
/// change, when the record is locked or gone, the hit does not stand there any more, or the text's formatting
/// cannot be kept.
std::optional<RecordPlace>
replaceString(DatafileDocument &document, const DatafileHit &hit, const Replacement &replacement);

} // namespace tavrin
