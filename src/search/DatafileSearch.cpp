// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/DatafileSearch.h"

#include "document/DatafileDocument.h"
#include "search/DatafileRows.h"
#include "search/RecordWalk.h"
#include "search/RecordsHolding.h"

#include <algorithm>

namespace tavrin {

DatafileSearch::DatafileSearch(const DatafileDocument &document, KeyOptions options, qint64 fieldsToSearchIn)
    : g_row(std::make_shared<SelectedRecords>(document))
    , g_recordSearch(document.datafileSettings(), fieldsToSearchIn)
    , g_options(options)
{}

std::vector<SearchKey> DatafileSearch::prepared(const QStringList &keys) const
{
    std::vector<SearchKey> prepared;
    for (const QString &key : keys)
        prepared.emplace_back(key, g_options);
    return prepared;
}

/// What find(record, place) finds first: from the start on, and then, if it wraps, from the other end up to
/// the start, which is then gone over whole.
template <typename Found, typename Find>
std::optional<Found> DatafileSearch::firstFound(Direction direction,
                                                const SearchStart &start,
                                                bool wraps,
                                                SearchExtent extent,
                                                Progress &progress,
                                                Find find) const
{
    const qint64 count = g_row->count();
    if (start.record < 0 || start.record >= count)
        return {};
    const bool isForward = direction == Direction::Forward;
    const qint64 last = extent.limitToCurrentRecord ? start.record : isForward ? count - 1 : 0;
    std::optional<Found> found;
    RecordWalk walk(*g_row, count, progress);
    RecordPlace place = start.place;
    const auto look = [&](qint64 record, const RecordView &view) {
        found = find(view, record == start.record ? place : RecordPlace());
        if (found) {
            found->record = record;
            found->number = g_row->numbers(record, 1).front();
        }
        return !found;
    };
    if (walk.visit(start.record, last, look) && wraps && extent.okayToWrap && !extent.limitToCurrentRecord) {
        place = {};
        walk.visit(isForward ? 0 : count - 1, start.record, look);
    }
    return found;
}

std::optional<DatafileHit> DatafileSearch::searchForString(const QString &key,
                                                           Direction direction,
                                                           const SearchStart &start,
                                                           SearchExtent extent,
                                                           Progress &progress) const
{
    const SearchKey prepared(key, g_options);
    const bool isForward = direction == Direction::Forward;
    // Whoever begins with the text of the first record has nothing before the start.
    const bool wraps =
        !isForward || g_recordSearch.fieldCount() == 0 || start.currentField || start.record > 0;
    return firstFound<DatafileHit>(
        direction, start, wraps, extent, progress, [&](const RecordView &view, const RecordPlace &place) {
            const auto hit = isForward ? g_recordSearch.forwardSearchInRecord(view, prepared, place)
                                       : g_recordSearch.reverseSearchInRecord(view, prepared, place);
            return hit ? std::optional(DatafileHit{.hit = *hit}) : std::nullopt;
        });
}

std::optional<DatafileHit> DatafileSearch::forwardSearchForString(const QString &key,
                                                                  const SearchStart &start,
                                                                  SearchExtent extent,
                                                                  Progress &progress) const
{
    return searchForString(key, Direction::Forward, start, extent, progress);
}

std::optional<DatafileHit> DatafileSearch::reverseSearchForString(const QString &key,
                                                                  const SearchStart &start,
                                                                  SearchExtent extent,
                                                                  Progress &progress) const
{
    return searchForString(key, Direction::Reverse, start, extent, progress);
}

std::optional<DatafileHits> DatafileSearch::hitsOfAll(const std::vector<SearchKey> &keys,
                                                      Direction direction,
                                                      const RecordView &view,
                                                      const RecordPlace &place) const
{
    const bool isForward = direction == Direction::Forward;
    DatafileHits hits;
    for (const SearchKey &key : keys) {
        if (!key.mayBeIn(view))
            return {};
    }
    for (const SearchKey &key : keys) {
        const auto inFields = isForward ? g_recordSearch.forwardSearchInFieldsOfRecord(view, key, place)
                                        : g_recordSearch.reverseSearchInFieldsOfRecord(view, key, place);
        const auto inFreeform = isForward ? g_recordSearch.forwardSearchInFreeformOfRecord(view, key, place)
                                          : g_recordSearch.reverseSearchInFreeformOfRecord(view, key, place);
        if (!inFields && !inFreeform)
            return {};
        if (inFields) {
            hits.fieldHits.append(*inFields);
            hits.hitField = inFields->field;
        }
        if (inFreeform)
            hits.freeformHits.append(inFreeform->range);
    }
    hits.lastHitField = g_recordSearch.fieldCount() + 1;
    return hits;
}

std::optional<DatafileHits> DatafileSearch::searchForArrayOfStrings(const QStringList &keys,
                                                                    Direction direction,
                                                                    const SearchStart &start,
                                                                    SearchExtent extent,
                                                                    Progress &progress) const
{
    if (keys.isEmpty())
        return {};
    const std::vector<SearchKey> prepared = this->prepared(keys);
    const bool wraps = direction == Direction::Reverse || g_recordSearch.fieldCount() == 0
                       || start.currentField != 0 || start.record > 0;
    return firstFound<DatafileHits>(
        direction, start, wraps, extent, progress, [&](const RecordView &view, const RecordPlace &place) {
            return hitsOfAll(prepared, direction, view, place);
        });
}

std::optional<DatafileHits> DatafileSearch::forwardSearchForArrayOfStrings(const QStringList &keys,
                                                                           const SearchStart &start,
                                                                           SearchExtent extent,
                                                                           Progress &progress) const
{
    return searchForArrayOfStrings(keys, Direction::Forward, start, extent, progress);
}

std::optional<DatafileHits> DatafileSearch::reverseSearchForArrayOfStrings(const QStringList &keys,
                                                                           const SearchStart &start,
                                                                           SearchExtent extent,
                                                                           Progress &progress) const
{
    return searchForArrayOfStrings(keys, Direction::Reverse, start, extent, progress);
}

bool DatafileSearch::forEachRecordHolding(
    const QStringList &keys,
    Progress &progress,
    const std::function<void(qint64 record, const RecordView &view)> &visitor) const
{
    const auto found = recordsHolding(*g_row, g_recordSearch, prepared(keys), progress);
    if (!found)
        return false;
    for (const qint64 record : *found)
        visitor(record, *g_row->view(g_row->numbers(record, 1).front()));
    return true;
}

QList<RecordHit> DatafileSearch::hitsInRecord(const RecordView &record, const QStringList &keys) const
{
    QList<RecordHit> hits;
    for (const SearchKey &key : prepared(keys))
        hits += g_recordSearch.hitsInRecord(record, key);
    std::ranges::stable_sort(
        hits, {}, [](const RecordHit &hit) { return std::pair(hit.field, hit.range.start); });
    return hits;
}

} // namespace tavrin
