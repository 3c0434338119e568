// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RecordView.h"

#include <optional>
#include <vector>

namespace tavrin {

/// Records one behind the other, for searches to go over. They are known by the numbers of their identifiers.
class RecordRow
{
public:
    RecordRow() = default;
    RecordRow(const RecordRow &) = delete;
    RecordRow &operator=(const RecordRow &) = delete;
    virtual ~RecordRow() = default;

    virtual qint64 count() const = 0;
    /// The numbers of `count` records from a place on; both are within the row.
    virtual std::vector<quint32> numbers(qint64 from, qint64 count) const = 0;
    /// None for an entry that names no record.
    virtual std::optional<RecordView> view(quint32 number) const = 0;
};

} // namespace tavrin
