// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RecordView.h"
#include "search/SearchCodes.h"
#include "search/SearchKey.h"

#include <QStringList>

#include <optional>

namespace tavrin {

class DatafileSettingsData;

/// What was found in a record, and where.
struct RecordHit
{
    qint64 field = HitField::freeformText; ///< A field's index, or HitField::freeformText.
    text::Match range;                     ///< In 16-bit units of that field's or text's content.

    friend bool operator==(const RecordHit &, const RecordHit &) = default;
};

/// How far a search has come in a record. As it stands it is at neither end: the whole record is ahead,
/// whatever the direction.
struct RecordPlace
{
    /// A LastHitField; the number of fields + 1 when several keys were hit.
    qint64 lastHitField = LastHitField::none;
    /// Going on in the field of the last hit: from here, or before here. Else that field is passed over.
    std::optional<qsizetype> inField;
    /// The selection in the text. Searches leave out what it ends with or begins with; none leaves out
    /// nothing.
    std::optional<text::Match> selection;
};

enum class HiddenFields { PassedOver, Searched };

/// Searches inside one record, any record of the datafile. Fields come first, in the datafile's order, then
/// the Freeform Text Area; going backwards it is the other way round.
class RecordSearch
{
public:
    RecordSearch(const DatafileSettingsData &settings,
                 qint64 fieldsToSearchIn,
                 HiddenFields hiddenFields = HiddenFields::PassedOver);

    std::optional<RecordHit> forwardSearchInRecord(const RecordView &record,
                                                   const SearchKey &key,
                                                   const RecordPlace &place = {}) const;
    std::optional<RecordHit> forwardSearchInFieldsOfRecord(const RecordView &record,
                                                           const SearchKey &key,
                                                           const RecordPlace &place = {}) const;
    std::optional<RecordHit> forwardSearchInFreeformOfRecord(const RecordView &record,
                                                             const SearchKey &key,
                                                             const RecordPlace &place = {}) const;

    std::optional<RecordHit> reverseSearchInRecord(const RecordView &record,
                                                   const SearchKey &key,
                                                   const RecordPlace &place = {}) const;
    std::optional<RecordHit> reverseSearchInFieldsOfRecord(const RecordView &record,
                                                           const SearchKey &key,
                                                           const RecordPlace &place = {}) const;
    std::optional<RecordHit> reverseSearchInFreeformOfRecord(const RecordView &record,
                                                             const SearchKey &key,
                                                             const RecordPlace &place = {}) const;

    /// The hits that stepping forwards through the record comes by: the first of each field, all in the text.
    QList<RecordHit> hitsInRecord(const RecordView &record, const SearchKey &key) const;

    /// Whether every key is somewhere in the record.
    bool holds(const RecordView &record, const std::vector<SearchKey> &keys) const;

    qint64 fieldCount() const { return g_identifiers.size(); }

private:
    std::optional<RecordHit>
    hitInField(const RecordView &record, qint64 field, const SearchKey &key, bool backwards) const;
    std::optional<RecordHit> hitInRestOfField(const RecordView &record,
                                              const SearchKey &key,
                                              const RecordPlace &place,
                                              bool backwards) const;
    bool searchesField(qint64 field) const;
    bool searchesFreeform() const;
    bool isFieldPlace(const RecordPlace &place) const;

    QStringList g_identifiers;
    std::vector<bool> g_isSearched;
    qint64 g_fieldsToSearchIn;
};

} // namespace tavrin
