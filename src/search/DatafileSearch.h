// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "search/RecordRow.h"
#include "search/RecordSearch.h"

#include <functional>
#include <memory>

namespace tavrin {

class DatafileDocument;

/// Where a search across records begins.
struct SearchStart
{
    qint64 record = 0; ///< The current record: its place among the selected ones, from 0 on.
    RecordPlace place; ///< How far the last search has come in it.
    /// The field on which the table stands; none when it stands on no field.
    std::optional<qint64> currentField;
};

/// How far a search across records goes.
struct SearchExtent
{
    bool okayToWrap = false;
    bool limitToCurrentRecord = false; ///< Then it does not wrap either.
};

/// A record that was found, and what in it.
struct DatafileHit
{
    qint64 record = 0;  ///< Its place among the selected records.
    quint32 number = 0; ///< Of its identifier.
    RecordHit hit;
};

/// A record that holds several keys. Hits are in the order of the keys.
struct DatafileHits
{
    qint64 record = 0;
    quint32 number = 0;
    QList<RecordHit> fieldHits;
    QList<text::Match> freeformHits;
    /// To be remembered: the field of the last key that is in a field, or HitField::freeformText.
    qint64 hitField = HitField::freeformText;
    /// To be remembered as the last hit field of the window: the number of fields + 1.
    qint64 lastHitField = 0;
};

/// Searches the records of a row, such as the selected ones of a datafile, in their order.
///
/// It reads the records as they are stored: whoever edits one stores the edits first. Nothing is moved,
/// changed or opened. A search that is cancelled finds nothing. After one that finds nothing, the window
/// forgets its last hit field.
class DatafileSearch
{
public:
    /// The selected records of a document, which outlives it and whose fields stay as they are.
    DatafileSearch(const DatafileDocument &document, KeyOptions options, qint64 fieldsToSearchIn);
    /// On whatever thread the row may be used on.
    DatafileSearch(std::shared_ptr<const RecordRow> row, const RecordSearch &recordSearch, KeyOptions options)
        : g_row(std::move(row))
        , g_recordSearch(recordSearch)
        , g_options(options)
    {}

    std::optional<DatafileHit> forwardSearchForString(const QString &key,
                                                      const SearchStart &start,
                                                      SearchExtent extent,
                                                      Progress &progress) const;
    std::optional<DatafileHit> reverseSearchForString(const QString &key,
                                                      const SearchStart &start,
                                                      SearchExtent extent,
                                                      Progress &progress) const;

    /// The first record that holds every key, in fields or text, none of them before the start.
    std::optional<DatafileHits> forwardSearchForArrayOfStrings(const QStringList &keys,
                                                               const SearchStart &start,
                                                               SearchExtent extent,
                                                               Progress &progress) const;
    std::optional<DatafileHits> reverseSearchForArrayOfStrings(const QStringList &keys,
                                                               const SearchStart &start,
                                                               SearchExtent extent,
                                                               Progress &progress) const;

    /// Calls visitor(place in the row, record) for each record that holds every key, in order. False
    /// when it was cancelled; see recordsHolding() for the threads.
    bool
    forEachRecordHolding(const QStringList &keys,
                         Progress &progress,
                         const std::function<void(qint64 record, const RecordView &view)> &visitor) const;

    /// Of a record that holds every key: the hits of all keys in the order in which they stand there.
    QList<RecordHit> hitsInRecord(const RecordView &record, const QStringList &keys) const;

private:
    enum class Direction { Forward, Reverse };

    std::vector<SearchKey> prepared(const QStringList &keys) const;
    std::optional<DatafileHit> searchForString(const QString &key,
                                               Direction direction,
                                               const SearchStart &start,
                                               SearchExtent extent,
                                               Progress &progress) const;
    std::optional<DatafileHits> searchForArrayOfStrings(const QStringList &keys,
                                                        Direction direction,
                                                        const SearchStart &start,
                                                        SearchExtent extent,
                                                        Progress &progress) const;
    std::optional<DatafileHits> hitsOfAll(const std::vector<SearchKey> &keys,
                                          Direction direction,
                                          const RecordView &view,
                                          const RecordPlace &place) const;
    template <typename Found, typename Find>
    std::optional<Found> firstFound(Direction direction,
                                    const SearchStart &start,
                                    bool wraps,
                                    SearchExtent extent,
                                    Progress &progress,
                                    Find find) const;

    std::shared_ptr<const RecordRow> g_row;
    RecordSearch g_recordSearch;
    KeyOptions g_options;
};

} // namespace tavrin
