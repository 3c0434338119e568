// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/FileParts.h"
#include "model/QVKeyedCollectionData.h"

#include <vector>

namespace tavrin {

/// The entries of a datafile's dictionary of records as they are written in XML, some records at a time.
///
/// Records that nobody changed, and that stand one behind the other as they would be written, are copied as
/// they are. A row of whole entries that were checked when they were read, put between two entries of a
/// datafile, gives a datafile; so it is enough to compare the copy. What is written anew is read as records
/// again.
class RecordRows : public FileParts
{
public:
    /// The snapshot outlives the rows.
    explicit RecordRows(const RecordsSnapshot &records);

    size_t count() const override { return g_rows.size(); }
    QByteArrayView bytes(size_t part, QByteArray &room) const override;
    Result<> check(size_t part, QByteArrayView bytes) const override;

private:
    struct Row
    {
        size_t first;
        size_t end;
        qsizetype size; ///< In bytes, about; what a row may have is bounded by it.
        bool isCopied;
    };

    bool follows(size_t place) const;
    size_t endOfCopies(size_t place) const;
    QByteArrayView copied(size_t first, size_t end) const;
    void addWritten(size_t first, size_t end);
    qsizetype sizeOf(size_t place) const;

    const RecordsSnapshot &g_records;
    std::vector<Row> g_rows;
};

} // namespace tavrin
