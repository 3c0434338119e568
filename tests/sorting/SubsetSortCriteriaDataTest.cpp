// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SubsetSortCriteriaData.h"

#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class SubsetSortCriteriaDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void criteriaKeepTheirKeysAndDefaults();
};

void SubsetSortCriteriaDataTest::criteriaKeepTheirKeysAndDefaults()
{
    SubsetSortCriteriaData criteria;
    QCOMPARE(criteria.primaryFieldIdentifier(), u"Text"_s);
    QVERIFY(criteria.secondaryFieldIdentifier().isNull());
    QCOMPARE(criteria.compareSelector(), 1);
    QVERIFY(criteria.selectAllRecords());
    QVERIFY(!criteria.descending());

    criteria.setBasedOnIdentifier2(u"F"_s);
    criteria.setSelectAllRecords(false);
    criteria.setDescending(true);
    const auto read = SubsetSortCriteriaData::criteriaWithDictionary(criteria.dictionary());
    QCOMPARE(read->storedDictionary().value(u"SubsetBasedOnIdentifiier2"_s).toText(), u"F"_s);
    QVERIFY(read->descending());

    criteria.resetSubsetCriteria();
    QVERIFY(criteria.selectAllRecords());
    criteria.removeAllObjects();
    QVERIFY(criteria.storedDictionary().isEmpty());
}

QTEST_GUILESS_MAIN(SubsetSortCriteriaDataTest)
#include "SubsetSortCriteriaDataTest.moc"
