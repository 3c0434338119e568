// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SubsetSortCriteriaData.h"

namespace tavrin {

using namespace Qt::StringLiterals;

// The doubled "i" of the identifier keys is what datafiles have.

namespace {

const QStringList &selectionKeys()
{
    static const QStringList keys{u"SubsetBasedOnPopup1"_s,
                                  u"SubsetBasedOnPopup2"_s,
                                  u"SubsetBasedOnIdentifiier1"_s,
                                  u"SubsetBasedOnIdentifiier2"_s,
                                  u"SubsetTreatAsPopup1"_s,
                                  u"SubsetTreatAsPopup2"_s,
                                  u"SubsetWhereField1"_s,
                                  u"SubsetWhereField2"_s,
                                  u"SubsetWherePopup1"_s,
                                  u"SubsetWherePopup2"_s,
                                  u"SubsetAndSelect"_s,
                                  u"SubsetOrSelect"_s,
                                  u"SubsetSelectAll"_s};
    return keys;
}

} // namespace

qint64 SubsetSortCriteriaData::basedOnPopup1() const
{
    return integerForKey(u"SubsetBasedOnPopup1"_s, 0);
}

void SubsetSortCriteriaData::setBasedOnPopup1(qint64 code)
{
    setInteger(code, u"SubsetBasedOnPopup1"_s);
}

qint64 SubsetSortCriteriaData::basedOnPopup2() const
{
    return integerForKey(u"SubsetBasedOnPopup2"_s, 0);
}

void SubsetSortCriteriaData::setBasedOnPopup2(qint64 code)
{
    setInteger(code, u"SubsetBasedOnPopup2"_s);
}

QString SubsetSortCriteriaData::basedOnIdentifier1() const
{
    return stringForKey(u"SubsetBasedOnIdentifiier1"_s, u""_s);
}

void SubsetSortCriteriaData::setBasedOnIdentifier1(const QString &identifier)
{
    setString(identifier, u"SubsetBasedOnIdentifiier1"_s);
}

QString SubsetSortCriteriaData::basedOnIdentifier2() const
{
    return stringForKey(u"SubsetBasedOnIdentifiier2"_s, u""_s);
}

void SubsetSortCriteriaData::setBasedOnIdentifier2(const QString &identifier)
{
    setString(identifier, u"SubsetBasedOnIdentifiier2"_s);
}

qint64 SubsetSortCriteriaData::treatAsPopup1() const
{
    return integerForKey(u"SubsetTreatAsPopup1"_s, 0);
}

void SubsetSortCriteriaData::setTreatAsPopup1(qint64 code)
{
    setInteger(code, u"SubsetTreatAsPopup1"_s);
}

qint64 SubsetSortCriteriaData::treatAsPopup2() const
{
    return integerForKey(u"SubsetTreatAsPopup2"_s, 0);
}

void SubsetSortCriteriaData::setTreatAsPopup2(qint64 code)
{
    setInteger(code, u"SubsetTreatAsPopup2"_s);
}

QString SubsetSortCriteriaData::whereField1() const
{
    return stringForKey(u"SubsetWhereField1"_s, u""_s);
}

void SubsetSortCriteriaData::setWhereField1(const QString &value)
{
    setString(value, u"SubsetWhereField1"_s);
}

QString SubsetSortCriteriaData::whereField2() const
{
    return stringForKey(u"SubsetWhereField2"_s, u""_s);
}

void SubsetSortCriteriaData::setWhereField2(const QString &value)
{
    setString(value, u"SubsetWhereField2"_s);
}

qint64 SubsetSortCriteriaData::wherePopup1() const
{
    return integerForKey(u"SubsetWherePopup1"_s, 0);
}

void SubsetSortCriteriaData::setWherePopup1(qint64 code)
{
    setInteger(code, u"SubsetWherePopup1"_s);
}

qint64 SubsetSortCriteriaData::wherePopup2() const
{
    return integerForKey(u"SubsetWherePopup2"_s, 0);
}

void SubsetSortCriteriaData::setWherePopup2(qint64 code)
{
    setInteger(code, u"SubsetWherePopup2"_s);
}

bool SubsetSortCriteriaData::andSelect() const
{
    return boolForKey(u"SubsetAndSelect"_s, false);
}

void SubsetSortCriteriaData::setAndSelect(bool andSelect)
{
    setBool(andSelect, u"SubsetAndSelect"_s);
}

bool SubsetSortCriteriaData::orSelect() const
{
    return boolForKey(u"SubsetOrSelect"_s, false);
}

void SubsetSortCriteriaData::setOrSelect(bool orSelect)
{
    setBool(orSelect, u"SubsetOrSelect"_s);
}

bool SubsetSortCriteriaData::selectAllRecords() const
{
    return boolForKey(u"SubsetSelectAll"_s, true);
}

void SubsetSortCriteriaData::setSelectAllRecords(bool selectAll)
{
    setBool(selectAll, u"SubsetSelectAll"_s);
}

void SubsetSortCriteriaData::selectEverything()
{
    resetSubsetCriteria();
    setAndSelect(false);
    setOrSelect(false);
}

void SubsetSortCriteriaData::setSelectionCriteria(const SubsetSortCriteriaData &criteria)
{
    for (const QString &key : selectionKeys())
        setObject(criteria.objectForKey(key), key);
}

} // namespace tavrin
