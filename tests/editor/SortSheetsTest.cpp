// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortDescription.h"
#include "editor/SortFieldsSheetController.h"
#include "editor/SortFreeformSheetController.h"
#include "editor/SortTasksSheetController.h"
#include "sorting/SortKind.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

const QList<FieldDefinition> fields{FieldDefinition(u"ia"_s, u"a"_s), FieldDefinition(u"ib"_s, u"b"_s)};

plist::Dictionary sortOf(const SubsetSortCriteriaData &criteria)
{
    return criteria.storedDictionary();
}

} // namespace

class SortSheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sortsByFields();
    void showsStoredFields();
    void sortsByFreeformText();
    void wantsTitles();
    void describesASort();
    void editsTasks();
};

void SortSheetsTest::sortsByFields()
{
    SubsetSortCriteriaData before;
    before.setWhereField1(u"kept"_s);
    SortFieldsSheetController sheet(before, fields, u"Notes"_s);
    const QSignalSpy changed(&sheet, &SortSheetController::criteriaChanged);
    sheet.handleSortByClick(1);
    sheet.handleTreatAsClick(1);
    QVERIFY(sheet.note().isEmpty());
    sheet.setDescending(true);
    sheet.setCaseSensitive(true);
    QVERIFY((sortOf(sheet.criteria())
             == plist::Dictionary{{u"SubsetWhereField1"_s, u"kept"_s},
                                  {u"QVSortDescending"_s, true},
                                  {u"SortCaseSensitive"_s, true},
                                  {u"SortCompareSelector"_s, qint64(2)},
                                  {u"SortPrimaryFieldIdentifier"_s, u"ib"_s}}));
    sheet.handleThenByClick(1);
    QVERIFY(!sheet.note().isEmpty());
    QCOMPARE(sheet.criteria().secondaryFieldIdentifier(), u"ia"_s);
    sheet.handleThenByClick(0);
    QVERIFY(sheet.criteria().secondaryFieldIdentifier().isNull());
    QCOMPARE(changed.count(), 6);
    sheet.handleSortByClick(2);
    QCOMPARE(sheet.criteria().primaryFieldIdentifier(), u"Text"_s);
}

void SortSheetsTest::showsStoredFields()
{
    SubsetSortCriteriaData criteria;
    criteria.setPrimaryFieldIdentifier(u"ib"_s);
    criteria.setSecondaryFieldIdentifier(u"ia"_s);
    criteria.setCompareSelector(4);
    criteria.setDescending(true);
    const SortFieldsSheetController sheet(criteria, fields, u"Notes"_s);
    QCOMPARE(sheet.sortBy(), 1);
    QCOMPARE(sheet.thenBy(), 1);
    QCOMPARE(sheet.treatAs(), 3);
    QVERIFY(sheet.descending());
    QVERIFY(sheet.criteria().storedDictionary() == criteria.storedDictionary());
}

void SortSheetsTest::sortsByFreeformText()
{
    SortFreeformSheetController sheet({}, {u"Dr."_s});
    QCOMPARE(sheet.criteria().compareSelector(), 6);
    QCOMPARE(sheet.criteria().nameLineNumber(), 1);
    sheet.setNameLineNumber(3);
    QCOMPARE(sheet.criteria().nameLineNumber(), 3);
    sheet.handleNameLineClick(1);
    QCOMPARE(sheet.criteria().nameLineNumber(), -2);
    sheet.handleNameLineClick(2);
    QCOMPARE(sheet.criteria().nameLineNumber(), -1);

    sheet.handleKindClick(1);
    sheet.setWordLineNumber(2);
    sheet.setWordNumber(4);
    QCOMPARE(sheet.criteria().compareSelector(), 7);
    QCOMPARE(sheet.criteria().wordLineNumber(), 2);
    QCOMPARE(sheet.criteria().wordNumber(), 4);
    sheet.setLastWord(true);
    QCOMPARE(sheet.criteria().wordNumber(), -3);
    QList<qint64> offsets;
    for (qsizetype i = 0; i < sheet.wordLineOffsetItems().size(); ++i) {
        sheet.handleWordLineOffsetClick(i);
        offsets.append(sheet.criteria().wordLineOffset());
    }
    QCOMPARE(offsets, (QList<qint64>{-6, -7, -4, -5}));
    const SortFreeformSheetController again(sheet.criteria(), {u"Dr."_s});
    QVERIFY(again.criteria().storedDictionary() == sheet.criteria().storedDictionary());

    sheet.handleKindClick(2);
    QCOMPARE(sheet.criteria().compareSelector(), 8);
    sheet.handleKindClick(3);
    QCOMPARE(sheet.criteria().compareSelector(), 11);
}

void SortSheetsTest::wantsTitles()
{
    SortFreeformSheetController sheet({}, {u"Dr."_s, u"Mr."_s});
    QCOMPARE(sheet.titlesText(), u"Dr.\nMr."_s);
    sheet.setTitlesText(u" Prof. \n\nDr."_s);
    QCOMPARE(sheet.titles(), (QStringList{u"Prof."_s, u"Dr."_s}));
    sheet.setTitlesText(u" \n"_s);
    QCOMPARE(sheet.problem(), u"The title list cannot be empty."_s);
    sheet.handleKindClick(3);
    QVERIFY(sheet.isAcceptable()); // No name is looked for.
}

void SortSheetsTest::describesASort()
{
    DatafileSettingsData settings;
    settings.setFields(fields);
    settings.setTextName(u"Notes"_s);
    SortCriteriaData criteria;
    criteria.setPrimaryFieldIdentifier(u"ia"_s);
    QCOMPARE(sortDescription(criteria, settings), u"a"_s);
    criteria.setSecondaryFieldIdentifier(u"Text"_s);
    criteria.setDescending(true);
    QCOMPARE(sortDescription(criteria, settings), u"a, then Notes, descending"_s);
    QVERIFY(!sortsByLostField(criteria, settings));
    criteria.setSecondaryFieldIdentifier(u"gone"_s);
    QVERIFY(sortsByLostField(criteria, settings));
    criteria.setCompareSelector(codeOf(SortKind::CreatedDate));
    QVERIFY(!sortsByLostField(criteria, settings));
    QCOMPARE(sortDescription(criteria, settings), u"created date, descending"_s);
}

void SortSheetsTest::editsTasks()
{
    const plist::Dictionary criteria{{u"SortCompareSelector"_s, qint64(2)}};
    SortTasksSheetController sheet(
        {{u"One"_s, criteria}, {u"Two"_s, plist::Dictionary()}},
        {{u"SortCompareSelector"_s, qint64(9)}, {u"QVSortDescending"_s, true}},
        [](const plist::Dictionary &task) { return QString::number(task.size()); });
    QCOMPARE(sheet.descriptionAt(0), u"1"_s);
    sheet.useLastSort(1);
    QCOMPARE(sheet.descriptionAt(1), u"2"_s);
    QVERIFY(!sheet.renameProblem(0, u"Two"_s).isEmpty() && sheet.renameProblem(0, u"One"_s).isEmpty());
    QVERIFY(!sheet.renameTask(0, u" Two "_s));
    QVERIFY(!sheet.renameTask(0, u" "_s));
    QVERIFY(sheet.renameTask(0, u" First "_s));
    QCOMPARE(sheet.duplicateTask(0), 1);
    QCOMPARE(sheet.duplicateTask(0), 1);
    sheet.deleteTask(3);
    QVERIFY((sheet.tasks()
             == plist::Dictionary{
                 {u"First"_s, criteria}, {u"First copy"_s, criteria}, {u"First copy 2"_s, criteria}}));
}

QTEST_GUILESS_MAIN(SortSheetsTest)
#include "SortSheetsTest.moc"
