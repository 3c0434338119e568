// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/RecordSearch.h"

#include "model/DatafileSettingsData.h"

#include <algorithm>

namespace tavrin {

using text::Match;

namespace {

std::optional<RecordHit> hitAt(qint64 field, const Match &match)
{
    return match ? std::optional(RecordHit{field, match}) : std::nullopt;
}

} // namespace

RecordSearch::RecordSearch(const DatafileSettingsData &settings,
                           qint64 fieldsToSearchIn,
                           HiddenFields hiddenFields)
    : g_fieldsToSearchIn(fieldsToSearchIn)
{
    for (const FieldDefinition &field : settings.fields()) {
        g_identifiers.append(field.identifier());
        const auto index = static_cast<qint64>(g_isSearched.size());
        const bool isWanted = fieldsToSearchIn == FieldsToSearchIn::everything || fieldsToSearchIn == index;
        g_isSearched.push_back(isWanted && (field.show() || hiddenFields == HiddenFields::Searched));
    }
}

bool RecordSearch::searchesField(qint64 field) const
{
    return field >= 0 && field < fieldCount() && g_isSearched[static_cast<size_t>(field)];
}

/// The last hit was in a field, which the datafile still has.
bool RecordSearch::isFieldPlace(const RecordPlace &place) const
{
    return place.lastHitField >= 0 && place.lastHitField < fieldCount();
}

bool RecordSearch::searchesFreeform() const
{
    return g_fieldsToSearchIn == FieldsToSearchIn::everything
           || g_fieldsToSearchIn == FieldsToSearchIn::freeformText;
}

std::optional<RecordHit>
RecordSearch::hitInField(const RecordView &record, qint64 field, const SearchKey &key, bool backwards) const
{
    const TextView view = record.fieldValue(g_identifiers[field]);
    if (!key.mayBeIn(view))
        return {};
    const QString value = view.toString();
    return hitAt(field, backwards ? key.lastIn(value, value.size()) : key.firstIn(value));
}

/// What is left of the field in which the last search ended, if it is to go on there.
std::optional<RecordHit> RecordSearch::hitInRestOfField(const RecordView &record,
                                                        const SearchKey &key,
                                                        const RecordPlace &place,
                                                        bool backwards) const
{
    const qint64 field = place.lastHitField;
    if (!place.inField || !searchesField(field))
        return {};
    const QString value = record.fieldValue(g_identifiers[field]).toString();
    return hitAt(field, backwards ? key.lastIn(value, *place.inField) : key.firstIn(value, *place.inField));
}

std::optional<RecordHit> RecordSearch::forwardSearchInRecord(const RecordView &record,
                                                             const SearchKey &key,
                                                             const RecordPlace &place) const
{
    if (!key.mayBeIn(record))
        return {};
    const auto hit = forwardSearchInFieldsOfRecord(record, key, place);
    return hit ? hit : forwardSearchInFreeformOfRecord(record, key, place);
}

std::optional<RecordHit> RecordSearch::forwardSearchInFieldsOfRecord(const RecordView &record,
                                                                     const SearchKey &key,
                                                                     const RecordPlace &place) const
{
    if (const auto hit = hitInRestOfField(record, key, place, false))
        return hit;
    // The fields lie before the text.
    const qint64 first =
        place.lastHitField == LastHitField::freeformText ? fieldCount() : place.lastHitField + 1;
    for (qint64 field = first; field < fieldCount(); ++field) {
        if (const auto hit = searchesField(field) ? hitInField(record, field, key, false) : std::nullopt)
            return hit;
    }
    return {};
}

std::optional<RecordHit> RecordSearch::forwardSearchInFreeformOfRecord(const RecordView &record,
                                                                       const SearchKey &key,
                                                                       const RecordPlace &place) const
{
    const TextView text = record.textString();
    if (!searchesFreeform() || !key.mayBeIn(text))
        return {};
    const Match selection = place.selection.value_or(Match{0, 0});
    return hitAt(HitField::freeformText, key.firstIn(text.toString(), selection.start + selection.length));
}

std::optional<RecordHit> RecordSearch::reverseSearchInRecord(const RecordView &record,
                                                             const SearchKey &key,
                                                             const RecordPlace &place) const
{
    if (!key.mayBeIn(record))
        return {};
    // Once it has come to the fields, the text lies behind.
    const auto hit = isFieldPlace(place) ? std::nullopt : reverseSearchInFreeformOfRecord(record, key, place);
    return hit ? hit : reverseSearchInFieldsOfRecord(record, key, place);
}

std::optional<RecordHit> RecordSearch::reverseSearchInFieldsOfRecord(const RecordView &record,
                                                                     const SearchKey &key,
                                                                     const RecordPlace &place) const
{
    if (place.lastHitField >= fieldCount())
        return {};
    if (const auto hit = hitInRestOfField(record, key, place, true))
        return hit;
    const qint64 behind = isFieldPlace(place) ? place.lastHitField : fieldCount();
    for (qint64 field = behind - 1; field >= 0; --field) {
        if (const auto hit = searchesField(field) ? hitInField(record, field, key, true) : std::nullopt)
            return hit;
    }
    return {};
}

std::optional<RecordHit> RecordSearch::reverseSearchInFreeformOfRecord(const RecordView &record,
                                                                       const SearchKey &key,
                                                                       const RecordPlace &place) const
{
    const TextView text = record.textString();
    if (!searchesFreeform() || !key.mayBeIn(text))
        return {};
    const QString content = text.toString();
    const qsizetype before = place.selection ? place.selection->start : content.size();
    return hitAt(HitField::freeformText, key.lastIn(content, before));
}

QList<RecordHit> RecordSearch::hitsInRecord(const RecordView &record, const SearchKey &key) const
{
    QList<RecordHit> hits;
    RecordPlace place;
    while (const auto hit = forwardSearchInFieldsOfRecord(record, key, place)) {
        hits.append(*hit);
        place.lastHitField = hit->field;
    }
    const TextView text = record.textString();
    if (searchesFreeform() && key.mayBeIn(text)) {
        for (const Match &match : key.allIn(text.toString()))
            hits.append({HitField::freeformText, match});
    }
    return hits;
}

bool RecordSearch::holds(const RecordView &record, const std::vector<SearchKey> &keys) const
{
    const auto mayHold = [&](const SearchKey &key) { return key.mayBeIn(record); };
    const auto isHeld = [&](const SearchKey &key) {
        return forwardSearchInFieldsOfRecord(record, key) || forwardSearchInFreeformOfRecord(record, key);
    };
    return !keys.empty() && std::ranges::all_of(keys, mayHold) && std::ranges::all_of(keys, isHeld);
}

} // namespace tavrin
