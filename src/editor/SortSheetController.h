// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "sorting/SubsetSortCriteriaData.h"

#include <QStringList>

namespace tavrin {

/// What the sheets that ask how to sort have in common: the direction, the case, and the first records as
/// they would come.
class SortSheetController : public QVSheetController
{
    Q_OBJECT

public:
    bool descending() const { return g_criteria.descending(); }
    void setDescending(bool descending);
    bool caseSensitive() const { return g_criteria.caseSensitive(); }
    void setCaseSensitive(bool caseSensitive);

    /// The choices as criteria; what the given criteria hold besides is kept.
    virtual SubsetSortCriteriaData criteria() const { return g_criteria; }

    /// What is no part of a name; none where the sheet does not ask.
    virtual QStringList titles() const { return {}; }

    /// How the first records would come, a line each; a null list while that is being found out.
    const QStringList &firstResults() const { return g_firstResults; }
    /// Told by whoever sorts for a look, after criteriaChanged().
    void setFirstResults(const QStringList &results);

Q_SIGNALS:
    /// The records would come in another order now.
    void criteriaChanged();
    void firstResultsChanged();

protected:
    explicit SortSheetController(const SubsetSortCriteriaData &criteria) : g_criteria(criteria) {}

    void tellChanged();

private:
    SubsetSortCriteriaData g_criteria;
    QStringList g_firstResults;
};

} // namespace tavrin
