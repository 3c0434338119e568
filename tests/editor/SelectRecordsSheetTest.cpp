// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SelectRecordsSheetController.h"
#include "sorting/SelectionCodes.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

using Sheet = SelectRecordsSheetController;
constexpr qsizetype wholeRecord = 0;
constexpr qsizetype fieldB = 2;
constexpr qsizetype freeformText = 3;
constexpr qsizetype createdDate = 4;

Sheet makeSheet(const SubsetSortCriteriaData &criteria = {})
{
    return {criteria,
            {FieldDefinition(u"ia"_s, u"a"_s), FieldDefinition(u"ib"_s, u"b"_s)},
            u"Notes"_s,
            Sheet::From::Selected};
}

QString texts(const QList<CodedItem> &items)
{
    QStringList texts;
    for (const CodedItem &item : items)
        texts.append(u"%1=%2"_s.arg(item.text).arg(item.code));
    return texts.join(u", ");
}

qsizetype indexOf(const QList<CodedItem> &items, const QString &text)
{
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items.at(i).text == text)
            return i;
    }
    qFatal("no such item");
}

} // namespace

class SelectRecordsSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offersTheOperatorsOfEachBasis();
    void keepsAnOperatorByItsName();
    void needsAValueForEachActiveCondition();
    void joinsByAndOrOr();
    void writesAndReadsCriteria();
    void forgetsAFieldThatIsGone();
};

void SelectRecordsSheetTest::offersTheOperatorsOfEachBasis()
{
    Sheet sheet = makeSheet();
    const SelectionCondition &condition = sheet.condition(0);
    QCOMPARE(texts(condition.basedOnItems()),
             u"Whole Record=1000, a=0, b=0, Notes=1003, Created Date=1001, Modified Date=1002"_s);
    QCOMPARE(texts(condition.treatAsItems()),
             u"Case-Insensitive Text=1000, Case-Sensitive Text=1001, Dates=1002, Numbers=1003"_s);
    const QString forAny = u"Contains=1000, Does Not Contain=1001, Equals=1002, Does Not Equal=1003, "_s;
    const QString begins = u"Begins With=1004, Does Not Begin With=1005"_s;
    const QString empty = u", Is Empty=1006, Is Not Empty=1007"_s;
    QCOMPARE(texts(condition.whereItems()), forAny + begins);
    sheet.handleBasedOnClick(0, freeformText);
    QCOMPARE(texts(condition.whereItems()), forAny + begins + empty);
    sheet.handleBasedOnClick(0, fieldB);
    QCOMPARE(texts(condition.whereItems()),
             forAny + u"Is Less Than=1012, Is Greater Than=1013, "_s + begins + empty);
    sheet.handleTreatAsClick(0, 3);
    QCOMPARE(texts(condition.whereItems()),
             u"Equals=1014, Does Not Equal=1015, Is Less Than=1012, Is Greater Than=1013"_s);
    sheet.handleBasedOnClick(0, createdDate);
    QCOMPARE(texts(condition.treatAsItems()), u"Dates=1002"_s);
    QCOMPARE(texts(condition.whereItems()),
             u"Equals=1008, Does Not Equal=1009, Is Later Than=1010, Is Earlier Than=1011"_s);
}

void SelectRecordsSheetTest::keepsAnOperatorByItsName()
{
    Sheet sheet = makeSheet();
    const SelectionCondition &condition = sheet.condition(0);
    sheet.handleWhereClick(0, indexOf(condition.whereItems(), u"Does Not Equal"_s));
    sheet.handleTreatAsClick(0, 3);
    QCOMPARE(condition.whereItem().code, 1015);
    sheet.handleBasedOnClick(0, createdDate);
    QCOMPARE(condition.whereItem().code, 1009);
    sheet.handleBasedOnClick(0, wholeRecord);
    QCOMPARE(condition.treatAsItem().code, 1002);
    sheet.handleTreatAsClick(0, 0);
    QCOMPARE(condition.whereItem().code, 1003);
}

void SelectRecordsSheetTest::needsAValueForEachActiveCondition()
{
    Sheet sheet = makeSheet();
    const QSignalSpy changed(&sheet, &QVSheetController::changed);
    QVERIFY(!sheet.isAcceptable());
    sheet.setValue(0, u"x"_s);
    QVERIFY(sheet.isAcceptable());
    sheet.handleBasedOnClick(0, fieldB);
    sheet.handleWhereClick(0, indexOf(sheet.condition(0).whereItems(), u"Is Empty"_s));
    QVERIFY(sheet.condition(0).value().isEmpty());
    QVERIFY(sheet.isAcceptable());
    sheet.handleOrSelectClick(true);
    QVERIFY(!sheet.isAcceptable());
    sheet.setValue(1, u" "_s);
    QVERIFY(sheet.isAcceptable());
    QCOMPARE(changed.count(), 5);
    sheet.handleTreatAsClick(1, 2);
    sheet.setValue(1, u"5 March"_s);
    QVERIFY(sheet.isAcceptable() && !sheet.hint().isEmpty());
    sheet.setValue(1, u"Mar 5, 2007"_s);
    QVERIFY(sheet.hint().isEmpty());
}

void SelectRecordsSheetTest::joinsByAndOrOr()
{
    Sheet sheet = makeSheet();
    QVERIFY(!sheet.isActive(1));
    sheet.handleAndSelectClick(true);
    sheet.handleOrSelectClick(true);
    QVERIFY(!sheet.criteria().andSelect() && sheet.criteria().orSelect());
    sheet.setValue(1, u"x"_s);
    sheet.handleOrSelectClick(false);
    QVERIFY(!sheet.isActive(1) && sheet.condition(1).value().isEmpty());
    QVERIFY(!sheet.criteria().andSelect() && !sheet.criteria().orSelect());
}

void SelectRecordsSheetTest::writesAndReadsCriteria()
{
    SubsetSortCriteriaData before;
    before.setCompareSelector(6);
    Sheet sheet = makeSheet(before);
    sheet.handleBasedOnClick(0, fieldB);
    sheet.handleTreatAsClick(0, 1);
    sheet.handleWhereClick(0, indexOf(sheet.condition(0).whereItems(), u"Begins With"_s));
    sheet.setValue(0, u"X y"_s);
    sheet.handleAndSelectClick(true);
    sheet.handleBasedOnClick(1, createdDate);
    sheet.setValue(1, u"Mar 5, 2007"_s);

    const SubsetSortCriteriaData criteria = sheet.criteria();
    const plist::Dictionary expected{{u"SortCompareSelector"_s, qint64(6)},
                                     {u"SubsetSelectAll"_s, false},
                                     {u"SubsetAndSelect"_s, true},
                                     {u"SubsetOrSelect"_s, false},
                                     {u"SubsetBasedOnPopup1"_s, qint64(0)},
                                     {u"SubsetBasedOnIdentifiier1"_s, u"ib"_s},
                                     {u"SubsetTreatAsPopup1"_s, qint64(1001)},
                                     {u"SubsetWherePopup1"_s, qint64(1004)},
                                     {u"SubsetWhereField1"_s, u"X y"_s},
                                     {u"SubsetBasedOnPopup2"_s, qint64(1001)},
                                     {u"SubsetTreatAsPopup2"_s, qint64(1002)},
                                     {u"SubsetWherePopup2"_s, qint64(1008)},
                                     {u"SubsetWhereField2"_s, u"Mar 5, 2007"_s}};
    QVERIFY(criteria.storedDictionary() == expected);
    QVERIFY(makeSheet(criteria).criteria().storedDictionary() == expected);
    Sheet reset = makeSheet(criteria);
    reset.resetSelectRecordsSheet();
    QCOMPARE(reset.condition(0).basedOn(), wholeRecord);
    QVERIFY(!reset.isAcceptable() && !reset.isActive(1));
}

void SelectRecordsSheetTest::forgetsAFieldThatIsGone()
{
    SubsetSortCriteriaData criteria;
    criteria.setBasedOnIdentifier1(u"gone"_s);
    criteria.setWherePopup1(1006);
    const Sheet sheet = makeSheet(criteria);
    QCOMPARE(sheet.condition(0).basedOn(), wholeRecord);
    QCOMPARE(sheet.condition(0).whereItem().code, 1000);
}

QTEST_GUILESS_MAIN(SelectRecordsSheetTest)
#include "SelectRecordsSheetTest.moc"
