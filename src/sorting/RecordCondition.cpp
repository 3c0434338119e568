// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordCondition.h"

#include "text/Utf16Text.h"

#include <algorithm>

namespace tavrin {

using text::Utf16Text;
using Operator = SelectionOperator;
using Basis = SelectionBasis;

RecordCondition::RecordCondition(const Terms &terms,
                                 const RecordTexts &texts,
                                 const SelectionSettings &settings)
    : g_terms(terms)
    , g_texts(&texts)
    , g_matcher(terms.whereField, {.caseInsensitive = terms.treatAsPopup != TreatAs::CaseSensitiveText})
    , g_numberReader(settings.locale)
    , g_dateReader(settings.zone)
    , g_number(g_numberReader.readLeniently(terms.whereField))
    , g_date(g_dateReader.read(terms.whereField))
    , g_text(texts.textReader())
    , g_field(texts.fieldReader(terms.fieldIdentifier))
{
    if (terms.basedOnPopup != Basis::AnyField)
        return;
    for (const QString &identifier : texts.fieldIdentifiers())
        g_anyField.push_back(texts.fieldReader(identifier));
}

bool RecordCondition::isMetBy(quint32 record, QString &buffer) const
{
    switch (g_terms.wherePopup) {
    case Operator::Contains:
        return contains(record, buffer);
    case Operator::DoesNotContain:
        return !contains(record, buffer);
    case Operator::TextEquals:
        return textEquals(record, buffer);
    case Operator::TextDoesNotEqual:
        return !textEquals(record, buffer);
    case Operator::BeginsWith:
        return beginsWith(record, buffer);
    case Operator::DoesNotBeginWith:
        return !beginsWith(record, buffer);
    case Operator::IsEmpty:
        return isEmpty(record, buffer);
    case Operator::IsNotEmpty:
        return !isEmpty(record, buffer);
    case Operator::DateEquals:
    case Operator::DateDoesNotEqual:
    case Operator::IsLaterThan:
    case Operator::IsEarlierThan:
        return dateMatches(record, buffer);
    case Operator::IsLessThan:
    case Operator::IsGreaterThan:
    case Operator::NumberEquals:
    case Operator::NumberDoesNotEqual:
        return numberMatches(record, buffer);
    }
    return false;
}

QAnyStringView RecordCondition::read(const RecordTextReader &reader, quint32 record, QString &buffer) const
{
    return record == RecordTexts::noRecord ? QAnyStringView() : reader(record, buffer);
}

bool RecordCondition::contains(quint32 record, QString &buffer) const
{
    const auto isInText = [&](const RecordTextReader &reader) {
        return g_matcher.isIn(read(reader, record, buffer));
    };
    switch (g_terms.basedOnPopup) {
    case Basis::FreeformText:
        return isInText(g_text);
    case Basis::AnyField:
        return isInText(g_text) || std::ranges::any_of(g_anyField, isInText);
    default:
        return isInText(g_field);
    }
}

bool RecordCondition::textEquals(quint32 record, QString &buffer) const
{
    const Basis basis = g_terms.basedOnPopup;
    if (basis != Basis::AnyField && basis != Basis::FreeformText)
        return g_matcher.equals(Utf16Text(read(g_field, record, buffer)).view());
    const Utf16Text text(read(g_text, record, buffer));
    if (g_matcher.equals(text.view()))
        return true;
    // A field has to match at its start, as far as the freeform text is long: selections were made so.
    const qsizetype length = text.view().size();
    return std::ranges::any_of(g_anyField, [&](const RecordTextReader &reader) {
        QString fieldBuffer;
        const Utf16Text field(read(reader, record, fieldBuffer));
        const text::Match match = g_matcher.atStartOf(field.view());
        return match && match.length == length;
    });
}

bool RecordCondition::beginsWith(quint32 record, QString &buffer) const
{
    const Basis basis = g_terms.basedOnPopup;
    const bool isOfText = basis == Basis::AnyField || basis == Basis::FreeformText;
    const Utf16Text text(read(isOfText ? g_text : g_field, record, buffer));
    return static_cast<bool>(g_matcher.atStartOf(text.view()));
}

bool RecordCondition::isEmpty(quint32 record, QString &buffer) const
{
    return read(g_terms.basedOnPopup == Basis::FreeformText ? g_text : g_field, record, buffer).empty();
}

/// Whether a value that stands to that of the person as the order says meets the condition.
bool RecordCondition::isWanted(std::partial_ordering order) const
{
    switch (g_terms.wherePopup) {
    case Operator::DateDoesNotEqual:
    case Operator::NumberDoesNotEqual:
        return order != 0;
    case Operator::IsLaterThan:
    case Operator::IsGreaterThan:
        return order > 0;
    case Operator::IsEarlierThan:
    case Operator::IsLessThan:
        return order < 0;
    default:
        return order == 0;
    }
}

/// What is no date never matches, not even something else than a date. Of any fields, those that are dates
/// count; none of them may be the one that is not to be equalled.
bool RecordCondition::dateMatches(quint32 record, QString &buffer) const
{
    if (record == RecordTexts::noRecord)
        return false;
    // A record's own date differs from whatever the person typed, if that is no date.
    const bool isOfRecord =
        g_terms.basedOnPopup == Basis::CreatedDate || g_terms.basedOnPopup == Basis::ModifiedDate;
    if (!g_date)
        return isOfRecord && g_terms.wherePopup == Operator::DateDoesNotEqual;
    const auto isDateWanted = [&](const RecordTextReader &reader) -> std::optional<bool> {
        const auto date = g_dateReader.read(Utf16Text(read(reader, record, buffer)).view());
        return date ? std::optional(isWanted(*date <=> *g_date)) : std::nullopt;
    };
    switch (g_terms.basedOnPopup) {
    case Basis::CreatedDate:
        return isWanted(g_texts->createdDate(record) <=> *g_date);
    case Basis::ModifiedDate:
        return isWanted(g_texts->modifiedDate(record) <=> *g_date);
    case Basis::FreeformText:
        return isDateWanted(g_text).value_or(false);
    case Basis::AnyField:
        break;
    default:
        return isDateWanted(g_field).value_or(false);
    }
    std::vector<bool> dates;
    if (const auto wanted = isDateWanted(g_text))
        dates.push_back(*wanted);
    for (const RecordTextReader &field : g_anyField) {
        if (const auto wanted = isDateWanted(field))
            dates.push_back(*wanted);
    }
    const auto isTrue = [](bool wanted) { return wanted; };
    return g_terms.wherePopup == Operator::DateDoesNotEqual
               ? !dates.empty() && std::ranges::all_of(dates, isTrue)
               : std::ranges::any_of(dates, isTrue);
}

/// An empty field never matches.
bool RecordCondition::numberMatches(quint32 record, QString &buffer) const
{
    const QAnyStringView value = read(g_field, record, buffer);
    return !value.empty() && isWanted(g_numberReader.readLeniently(Utf16Text(value).view()) <=> g_number);
}

} // namespace tavrin
