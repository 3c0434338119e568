// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/QVKeyedAccessorData.h"

namespace tavrin {

/// How to sort anything: at this level, only in which direction.
class QVSortCriteriaData : public QVKeyedAccessorData
{
public:
    QVSortCriteriaData() = default;

    static QVSortCriteriaData criteria() { return {}; }
    /// None when the data is too new.
    static std::optional<QVSortCriteriaData> criteriaWithDictionary(const plist::Dictionary &dictionary)
    {
        return accessorWithDictionary<QVSortCriteriaData>(dictionary);
    }

    bool descending() const { return boolForKey(QStringLiteral("QVSortDescending"), false); }
    void setDescending(bool descending) { setBool(descending, QStringLiteral("QVSortDescending")); }
};

} // namespace tavrin
