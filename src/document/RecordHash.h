// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RecordView.h"

#include <vector>

namespace tavrin {

/// A number for what a record says in its fields and its text: records that say the same have the same, in
/// whatever form they are stored.
class RecordHash
{
public:
    /// The fields, which outlive it, are all different.
    explicit RecordHash(const std::vector<FieldKey> &fields) : g_fields(fields) {}

    size_t operator()(const RecordView &record) const;

private:
    /// In one pass over the record's fields; none when that is not to be had.
    std::optional<size_t> inOnePass(const RecordView &record) const;

    const std::vector<FieldKey> &g_fields;
};

} // namespace tavrin
