// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SortCriteriaData.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

const QStringList &sortKeys()
{
    static const QStringList keys{u"SortPrimaryFieldIdentifier"_s,
                                  u"SortSecondaryFieldIdentifier"_s,
                                  u"SortCompareSelector"_s,
                                  u"SortCaseSensitive"_s,
                                  u"SortNameLineNumber"_s,
                                  u"SortWordLineNumber"_s,
                                  u"SortWordLineOffset"_s,
                                  u"SortWordNumber"_s,
                                  u"QVSortDescending"_s};
    return keys;
}

} // namespace

QString SortCriteriaData::primaryFieldIdentifier() const
{
    return stringForKey(u"SortPrimaryFieldIdentifier"_s, u"Text"_s);
}

void SortCriteriaData::setPrimaryFieldIdentifier(const QString &identifier)
{
    setString(identifier, u"SortPrimaryFieldIdentifier"_s);
}

QString SortCriteriaData::secondaryFieldIdentifier() const
{
    return stringForKey(u"SortSecondaryFieldIdentifier"_s, QString());
}

void SortCriteriaData::setSecondaryFieldIdentifier(const QString &identifier)
{
    setString(identifier, u"SortSecondaryFieldIdentifier"_s);
}

qint64 SortCriteriaData::compareSelector() const
{
    return integerForKey(u"SortCompareSelector"_s, 1);
}

void SortCriteriaData::setCompareSelector(qint64 selector)
{
    setInteger(selector, u"SortCompareSelector"_s);
}

bool SortCriteriaData::caseSensitive() const
{
    return boolForKey(u"SortCaseSensitive"_s, false);
}

void SortCriteriaData::setCaseSensitive(bool caseSensitive)
{
    setBool(caseSensitive, u"SortCaseSensitive"_s);
}

qint64 SortCriteriaData::nameLineNumber() const
{
    return integerForKey(u"SortNameLineNumber"_s, 1);
}

void SortCriteriaData::setNameLineNumber(qint64 number)
{
    setInteger(number, u"SortNameLineNumber"_s);
}

qint64 SortCriteriaData::wordLineNumber() const
{
    return integerForKey(u"SortWordLineNumber"_s, 1);
}

void SortCriteriaData::setWordLineNumber(qint64 number)
{
    setInteger(number, u"SortWordLineNumber"_s);
}

qint64 SortCriteriaData::wordLineOffset() const
{
    return integerForKey(u"SortWordLineOffset"_s, 1);
}

void SortCriteriaData::setWordLineOffset(qint64 offset)
{
    setInteger(offset, u"SortWordLineOffset"_s);
}

qint64 SortCriteriaData::wordNumber() const
{
    return integerForKey(u"SortWordNumber"_s, 1);
}

void SortCriteriaData::setWordNumber(qint64 number)
{
    setInteger(number, u"SortWordNumber"_s);
}

SortCriteriaData SortCriteriaData::sortCriteria() const
{
    SortCriteriaData criteria;
    criteria.setSortCriteria(*this);
    return criteria;
}

void SortCriteriaData::setSortCriteria(const SortCriteriaData &criteria)
{
    for (const QString &key : sortKeys())
        setObject(criteria.objectForKey(key), key);
}

} // namespace tavrin
