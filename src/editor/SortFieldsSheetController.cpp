// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortFieldsSheetController.h"

#include "sorting/SortKind.h"

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

qsizetype indexOfIdentifier(const QList<CodedItem> &items, const QString &identifier)
{
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items.at(i).identifier == identifier)
            return i;
    }
    return 0;
}

} // namespace

SortFieldsSheetController::SortFieldsSheetController(const SubsetSortCriteriaData &criteria,
                                                     const QList<FieldDefinition> &fields,
                                                     const QString &textName)
    : SortSheetController(criteria)
    , g_treatAsItems{{tr("Text"), codeOf(SortKind::Text)},
                     {tr("Numbers"), codeOf(SortKind::Numbers)},
                     {tr("Standard Dates"), codeOf(SortKind::StandardDates)},
                     {tr("E-mail Dates"), codeOf(SortKind::EmailDates)}}
    , g_thenByItems{{tr("None"), 0}}
{
    for (const FieldDefinition &field : fields)
        g_sortByItems.append({field.name(), 0, field.identifier()});
    g_thenByItems += g_sortByItems;
    g_sortByItems.append({textName, 0, u"Text"_s});
    // Before the first sort the first field is likelier wanted than the text, which an absent key means.
    if (criteria.settingExistsForKey(u"SortPrimaryFieldIdentifier"_s))
        g_sortBy = indexOfIdentifier(g_sortByItems, criteria.primaryFieldIdentifier());
    g_thenBy = indexOfIdentifier(g_thenByItems, criteria.secondaryFieldIdentifier());
    g_treatAs = indexOfCode(g_treatAsItems, criteria.compareSelector());
}

void SortFieldsSheetController::handleSortByClick(qsizetype index)
{
    g_sortBy = index;
    tellChanged();
}

void SortFieldsSheetController::handleTreatAsClick(qsizetype index)
{
    g_treatAs = index;
    tellChanged();
}

void SortFieldsSheetController::handleThenByClick(qsizetype index)
{
    g_thenBy = index;
    tellChanged();
}

QString SortFieldsSheetController::note() const
{
    return g_thenBy > 0 ? tr("With a second field everything is compared as text.") : QString();
}

SubsetSortCriteriaData SortFieldsSheetController::criteria() const
{
    SubsetSortCriteriaData chosen = SortSheetController::criteria();
    chosen.setCompareSelector(g_treatAsItems.at(g_treatAs).code);
    chosen.setPrimaryFieldIdentifier(g_sortByItems.at(g_sortBy).identifier);
    chosen.setSecondaryFieldIdentifier(g_thenBy > 0 ? g_thenByItems.at(g_thenBy).identifier : QString());
    return chosen;
}

} // namespace tavrin
