// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RecordSource.h"

#include <vector>

namespace tavrin {

/// Records that were read as values: those of a datafile in a form too unusual to be left in its bytes.
class ValueRecords : public RecordSource
{
public:
    explicit ValueRecords(std::vector<plist::Dictionary> records) : g_records(std::move(records)) {}

    quint32 count() const override { return static_cast<quint32>(g_records.size()); }
    bool needsOpening(quint32 place) const override;
    plist::Dictionary dictionary(quint32 place) const override { return g_records[place]; }
    plist::Value value(quint32 place, const QString &key) const override;
    TextView fieldValue(quint32 place, const FieldKey &field) const override;
    TextView textString(quint32 place) const override;

private:
    std::vector<plist::Dictionary> g_records;
};

/// The content of a field as RecordData::fieldValue() gives it, from the value under "Fields"; that may be
/// null.
QString fieldValueIn(const plist::Value *fields, const QString &fieldIdentifier);

} // namespace tavrin
