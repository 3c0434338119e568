// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortDescription.h"

#include "sorting/SortKind.h"

#include <QCoreApplication>

namespace tavrin {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SortDescription", text);
}

QString fieldName(const QString &identifier, const DatafileSettingsData &settings)
{
    if (identifier.isEmpty() || identifier == QLatin1StringView("Text"))
        return settings.textName();
    const FieldDefinition *field = settings.fieldWithIdentifier(identifier);
    return field ? field->name() : translated("a deleted field");
}

bool sortsByField(const SortCriteriaData &criteria)
{
    const auto kind = static_cast<SortKind>(criteria.compareSelector());
    return kind < SortKind::AllFields || kind > SortKind::FreeformText;
}

QString subject(const SortCriteriaData &criteria, const DatafileSettingsData &settings)
{
    const QString field = fieldName(criteria.primaryFieldIdentifier(), settings);
    switch (static_cast<SortKind>(criteria.compareSelector())) {
    case SortKind::Numbers:
        return translated("%1 as numbers").arg(field);
    case SortKind::StandardDates:
        return translated("%1 as dates").arg(field);
    case SortKind::EmailDates:
        return translated("%1 as e-mail dates").arg(field);
    case SortKind::AllFields:
        return translated("whole record");
    case SortKind::FreeformName:
        return translated("name in %1").arg(settings.textName());
    case SortKind::FreeformWord:
        return translated("word in %1").arg(settings.textName());
    case SortKind::PostalCode:
        return translated("postal code");
    case SortKind::CreatedDate:
        return translated("created date");
    case SortKind::ModifiedDate:
        return translated("modified date");
    case SortKind::FreeformText:
        return settings.textName();
    case SortKind::Text:
        break;
    }
    return field;
}

} // namespace

QString sortDescription(const SortCriteriaData &criteria, const DatafileSettingsData &settings)
{
    QStringList parts{subject(criteria, settings)};
    const QString second = criteria.secondaryFieldIdentifier();
    if (sortsByField(criteria) && !second.isEmpty())
        parts = {
            translated("%1, then %2")
                .arg(fieldName(criteria.primaryFieldIdentifier(), settings), fieldName(second, settings))};
    if (criteria.descending())
        parts.append(translated("descending"));
    if (criteria.caseSensitive())
        parts.append(translated("case-sensitive"));
    return parts.join(QLatin1StringView(", "));
}

bool sortsByLostField(const SortCriteriaData &criteria, const DatafileSettingsData &settings)
{
    if (!sortsByField(criteria))
        return false;
    const auto isLost = [&settings](const QString &identifier) {
        return !identifier.isEmpty() && identifier != QLatin1StringView("Text")
               && !settings.fieldWithIdentifier(identifier);
    };
    return isLost(criteria.primaryFieldIdentifier()) || isLost(criteria.secondaryFieldIdentifier());
}

} // namespace tavrin
