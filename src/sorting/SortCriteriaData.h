// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/QVSortCriteriaData.h"

namespace tavrin {

/// How to sort the records of a datafile: by what, compared how.
///
/// Lines and words are counted from 1; negative numbers are the codes of the sort sheet's choices.
class SortCriteriaData : public QVSortCriteriaData
{
public:
    SortCriteriaData() = default;

    static SortCriteriaData criteria() { return {}; }
    static std::optional<SortCriteriaData> criteriaWithDictionary(const plist::Dictionary &dictionary)
    {
        return accessorWithDictionary<SortCriteriaData>(dictionary);
    }

    QString primaryFieldIdentifier() const;
    void setPrimaryFieldIdentifier(const QString &identifier);
    /// Null when nothing breaks ties.
    QString secondaryFieldIdentifier() const;
    void setSecondaryFieldIdentifier(const QString &identifier);
    /// The kind of sort, by its stored number.
    qint64 compareSelector() const;
    void setCompareSelector(qint64 selector);
    bool caseSensitive() const;
    void setCaseSensitive(bool caseSensitive);
    qint64 nameLineNumber() const;
    void setNameLineNumber(qint64 number);
    qint64 wordLineNumber() const;
    void setWordLineNumber(qint64 number);
    qint64 wordLineOffset() const;
    void setWordLineOffset(qint64 offset);
    qint64 wordNumber() const;
    void setWordNumber(qint64 number);

    /// What is said about sorting, and nothing else that may stand beside it.
    SortCriteriaData sortCriteria() const;
    /// Says the same about sorting as the other criteria, and leaves the rest as it is.
    void setSortCriteria(const SortCriteriaData &criteria);
};

} // namespace tavrin
