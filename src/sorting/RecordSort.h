// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "sorting/RecordTerms.h"

#include <QList>

#include <span>
#include <vector>

namespace tavrin {

/// Why records were not sorted: the person stopped it, or the record at a place has a date that cannot be
/// read.
struct SortFailure
{
    Error error;
    quint32 place = RecordTexts::noRecord;
};

/// The places of the records in their new order. Records with equal terms keep their order; descending, the
/// whole ascending order is reversed. `records` has the records in their present order.
tl::expected<std::vector<quint32>, SortFailure> sortedRecords(std::span<const quint32> records,
                                                              const SortCriteriaData &criteria,
                                                              const RecordTexts &texts,
                                                              const SortSettings &settings,
                                                              Progress &progress);

/// "The records were not sorted.", the message of every failure.
QString notSortedText();
/// The sentence that names the record to a person.
QString unreadableDateText(qint64 recordNumber);

} // namespace tavrin
