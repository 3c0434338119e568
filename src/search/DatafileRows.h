// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/StoredRecords.h"
#include "search/RecordRow.h"

namespace tavrin {

class DatafileDocument;

/// The selected records of a document as they are at any time, on the document's thread.
class SelectedRecords : public RecordRow
{
public:
    /// The document outlives it.
    explicit SelectedRecords(const DatafileDocument &document) : g_document(document) {}

    qint64 count() const override;
    std::vector<quint32> numbers(qint64 from, qint64 count) const override;
    std::optional<RecordView> view(quint32 number) const override;

private:
    const DatafileDocument &g_document;
};

/// The records of a document as they are when this is made, for a search on another thread.
class RecordRowSnapshot : public RecordRow
{
public:
    enum class Which { Selected, All };

    RecordRowSnapshot(const DatafileDocument &document, Which which);

    qint64 count() const override { return static_cast<qint64>(g_numbers.size()); }
    std::vector<quint32> numbers(qint64 from, qint64 count) const override;
    std::optional<RecordView> view(quint32 number) const override { return g_records.view(number); }
    quint32 number(qint64 record) const { return g_numbers[static_cast<size_t>(record)]; }

private:
    std::vector<quint32> g_numbers; ///< In the order of the catalog.
    StoredRecords g_records;
};

} // namespace tavrin
