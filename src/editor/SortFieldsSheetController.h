// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodedItem.h"
#include "editor/SortSheetController.h"
#include "model/FieldDefinition.h"

namespace tavrin {

/// How to sort by the content of a field, or of two.
class SortFieldsSheetController : public SortSheetController
{
    Q_OBJECT

public:
    /// `textName` is what the datafile calls its text, which may be sorted by as a field may.
    SortFieldsSheetController(const SubsetSortCriteriaData &criteria,
                              const QList<FieldDefinition> &fields,
                              const QString &textName);

    const QList<CodedItem> &sortByItems() const { return g_sortByItems; }
    const QList<CodedItem> &treatAsItems() const { return g_treatAsItems; }
    /// The first is none.
    const QList<CodedItem> &thenByItems() const { return g_thenByItems; }
    qsizetype sortBy() const { return g_sortBy; }
    qsizetype treatAs() const { return g_treatAs; }
    qsizetype thenBy() const { return g_thenBy; }

    void handleSortByClick(qsizetype index);
    void handleTreatAsClick(qsizetype index);
    void handleThenByClick(qsizetype index);

    /// What the person should know of the choices; empty when nothing.
    QString note() const;

    SubsetSortCriteriaData criteria() const override;

private:
    QList<CodedItem> g_sortByItems;
    QList<CodedItem> g_treatAsItems;
    QList<CodedItem> g_thenByItems;
    qsizetype g_sortBy = 0;
    qsizetype g_treatAs = 0;
    qsizetype g_thenBy = 0;
};

} // namespace tavrin
