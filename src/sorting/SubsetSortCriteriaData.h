// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/SortCriteriaData.h"

namespace tavrin {

/// Which records to select: all, or those that meet one condition or two.
///
/// Popup codes are stored as the select sheet's choices count them. Of AND and OR, AND wins.
class SubsetSortCriteriaData : public SortCriteriaData
{
public:
    SubsetSortCriteriaData() = default;

    static SubsetSortCriteriaData criteria() { return {}; }
    static std::optional<SubsetSortCriteriaData> criteriaWithDictionary(const plist::Dictionary &dictionary)
    {
        return accessorWithDictionary<SubsetSortCriteriaData>(dictionary);
    }

    qint64 basedOnPopup1() const;
    void setBasedOnPopup1(qint64 code);
    qint64 basedOnPopup2() const;
    void setBasedOnPopup2(qint64 code);
    QString basedOnIdentifier1() const;
    void setBasedOnIdentifier1(const QString &identifier);
    QString basedOnIdentifier2() const;
    void setBasedOnIdentifier2(const QString &identifier);
    qint64 treatAsPopup1() const;
    void setTreatAsPopup1(qint64 code);
    qint64 treatAsPopup2() const;
    void setTreatAsPopup2(qint64 code);
    QString whereField1() const;
    void setWhereField1(const QString &value);
    QString whereField2() const;
    void setWhereField2(const QString &value);
    qint64 wherePopup1() const;
    void setWherePopup1(qint64 code);
    qint64 wherePopup2() const;
    void setWherePopup2(qint64 code);
    bool andSelect() const;
    void setAndSelect(bool andSelect);
    bool orSelect() const;
    void setOrSelect(bool orSelect);
    bool selectAllRecords() const;
    void setSelectAllRecords(bool selectAll);

    void resetSubsetCriteria() { setSelectAllRecords(true); }
    /// Says that all are selected, by no condition.
    void selectEverything();
    /// Says the same about selecting as the other criteria, and leaves the rest as it is.
    void setSelectionCriteria(const SubsetSortCriteriaData &criteria);
    void removeAllObjects() { setDictionary(plist::Dictionary()); }
};

} // namespace tavrin
