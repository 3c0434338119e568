// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileArrangement.h"
#include "document/DatafileFixture.h"
#include "document/UndoHistory.h"

#include <QSignalSpy>

#include <thread>

using namespace tavrin;

class ArrangementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreThoseThatTheRecordsHaveNow();
    void undoRestoresTheOrderAndTheCriteria();
    void undoKeepsWhatHappenedSince();
    void aCancelledSortChangesNothing_data();
    void aCancelledSortChangesNothing();
    void anOmittedRecordHasNoNumberToBeNamedBy();
    void aSortRunsWhileTheDocumentChanges();
    void aDatafileWithoutCatalogIsSorted();
    void selectingStoresCriteriaAndMarks();
    void aSelectionOfNothingIsNotKept();

private:
    std::unique_ptr<DatafileDocument> opened(const plist::Dictionary &root) const
    {
        return DatafileFixture::opened(g_files.make(u"records.tv3"_s, root));
    }

    DatafileFixture g_files;
};

namespace {

SortCriteriaData byField(SortKind kind = SortKind::Text)
{
    SortCriteriaData criteria;
    criteria.setPrimaryFieldIdentifier(u"f"_s);
    criteria.setCompareSelector(static_cast<qint64>(kind));
    return criteria;
}

SubsetSortCriteriaData fieldContains(const QString &value)
{
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(false);
    criteria.setWherePopup1(static_cast<qint64>(SelectionOperator::Contains));
    criteria.setBasedOnIdentifier1(u"f"_s);
    criteria.setWhereField1(value);
    return criteria;
}

/// Five records, with values in no order.
plist::Dictionary root()
{
    plist::Dictionary root = DatafileFixture::root(5);
    plist::Dictionary records = *root.value(u"Records"_s).dictionary();
    const QStringList values{u"c & d"_s, u"E"_s, u"\uFEFFa"_s, u""_s, u"b"_s};
    for (int i = 0; i < 5; ++i) {
        plist::Dictionary record = *records.value(u"r%1"_s.arg(i)).dictionary();
        record.insert(u"Fields"_s, plist::Dictionary{{u"f"_s, values[i]}});
        records.insert(u"r%1"_s.arg(i), record);
    }
    root.insert(u"Records"_s, records);
    return root;
}

QString orderOf(const DatafileDocument &document)
{
    return document.datafileCatalog().identifiers().join(u' ').remove(u'r');
}

bool sorted(DatafileDocument &document, const SortCriteriaData &criteria)
{
    Progress progress;
    return DatafileArrangement(document).sort(criteria, progress).has_value();
}

/// Cancels when so many of the steps are done.
class CancellingProgress : public Progress
{
public:
    explicit CancellingProgress(double at) : g_at(at) {}
    void setDone(qint64 done, qint64 total) override { g_cancelled = double(done) >= g_at * double(total); }
    bool isCancelled() const override { return g_cancelled; }

private:
    double g_at;
    bool g_cancelled = false;
};

} // namespace

void ArrangementTest::textsAreThoseThatTheRecordsHaveNow()
{
    const auto document = opened(root());
    // The first U+FEFF is a part of the text, and comes after all letters; "&" is stored as "&amp;".
    QVERIFY(sorted(*document, byField()));
    QCOMPARE(orderOf(*document), u"3 4 0 1 2"_s);

    document->storeFieldValue(u"r3"_s, u"f"_s, u"z"_s);
    document->storeFieldValue(document->addRecord(u"r2"_s), u"f"_s, u"bb"_s);
    document->deleteRecord(u"r1"_s);
    document->datafileCatalog().omitIdentifier(u"r0"_s);
    document->datafileCatalog().insertIdentifierAtBeginning(u"nobody"_s);
    QVERIFY(sorted(*document, byField()));
    const QStringList order = document->datafileCatalog().identifiers();
    QCOMPARE(order.size(), 6);
    QCOMPARE(order.first(), u"nobody"_s);
    QCOMPARE(order[1], u"r4"_s);
    QCOMPARE(order.sliced(3), (QStringList{u"r0"_s, u"r3"_s, u"r2"_s}));
    QVERIFY(!document->datafileCatalog().isSelectedIdentifier(u"r0"_s));
}

void ArrangementTest::undoRestoresTheOrderAndTheCriteria()
{
    plist::Dictionary stored = root();
    plist::Array catalog = *stored.value(u"Catalog"_s).array();
    catalog.insert(2, u"odd"_s);
    catalog.append(catalog[0]);
    stored.insert(u"Catalog"_s, catalog);
    stored = DatafileFixture::withSetting(stored, u"Criteria"_s, plist::Dictionary{{u"SortWordNumber"_s, 3}});
    const auto document = opened(stored);
    const plist::Array before = document->datafileCatalog().sortedArray();
    QSignalSpy changes(document.get(), &DatafileDocument::changed);
    Progress progress;

    auto change = DatafileArrangement(*document).sort(byField(), progress);

    QVERIFY(change);
    const plist::Array after = document->datafileCatalog().sortedArray();
    QVERIFY(after != before && document->isModified());
    QCOMPARE(changes.size(), 1);
    const auto criteria = [&] { return document->datafileSettings().criteria<SubsetSortCriteriaData>(); };
    QCOMPARE(criteria().primaryFieldIdentifier(), u"f"_s);
    QCOMPARE(criteria().wordNumber(), 1);
    QVERIFY(document->datafileSettings().datafileSettingsDidChange());
    UndoHistory &history = document->undoHistory();
    history.push(*std::move(change));
    QCOMPARE(history.undoName(), u"Sort"_s);
    history.undo();
    QVERIFY(!history.canUndo() && history.canRedo());
    QVERIFY(document->datafileCatalog().sortedArray() == before && !document->isModified());
    QCOMPARE(criteria().primaryFieldIdentifier(), u"Text"_s);
    QCOMPARE(criteria().wordNumber(), 3);
    history.redo();
    QVERIFY(document->datafileCatalog().sortedArray() == after && document->isModified());
    QCOMPARE(criteria().primaryFieldIdentifier(), u"f"_s);
    QCOMPARE(changes.size(), 3);
}

void ArrangementTest::undoKeepsWhatHappenedSince()
{
    const auto document = opened(root());
    Progress progress;
    auto change = DatafileArrangement(*document).sort(byField(), progress);
    QVERIFY(change);
    const QString added = document->addRecord({});
    document->deleteRecord(u"r2"_s);
    document->datafileCatalog().omitIdentifier(u"r0"_s);

    (*change)->undo(*document);

    QCOMPARE(document->datafileCatalog().identifiers(),
             (QStringList{u"r4"_s, u"r3"_s, u"r1"_s, u"r0"_s, added}));
    QVERIFY(!document->datafileCatalog().isSelectedIdentifier(u"r0"_s));
}

void ArrangementTest::aCancelledSortChangesNothing_data()
{
    QTest::addColumn<double>("at");
    QTest::newRow("at once") << 0.0;
    QTest::newRow("while texts are read") << 0.3;
    QTest::newRow("while they are sorted") << 0.7;
}

void ArrangementTest::aCancelledSortChangesNothing()
{
    QFETCH(double, at);
    const auto document = opened(DatafileFixture::root(2000));
    const QString before = orderOf(*document);
    CancellingProgress progress(at);

    const auto change = DatafileArrangement(*document).sort(byField(), progress);

    QVERIFY(!change && change.error().error.kind == Error::Kind::Cancelled);
    QCOMPARE(orderOf(*document), before);
    QVERIFY(!document->isModified() && !document->datafileSettings().datafileSettingsDidChange());
    const auto selected = DatafileArrangement(*document).select(fieldContains(u"5"_s), false, progress);
    QVERIFY(!selected && selected.error().kind == Error::Kind::Cancelled);
    QCOMPARE(document->datafileCatalog().countSelected(), 2000);
}

void ArrangementTest::anOmittedRecordHasNoNumberToBeNamedBy()
{
    const auto document = opened(root());
    document->datafileCatalog().omitIdentifier(u"r4"_s);
    for (const QString &value : {u"Sun, 4 Mar 2007 09:00:00"_s, u"yesterday"_s}) {
        document->storeFieldValue(u"r4"_s, u"f"_s, value);
        Progress progress;
        const auto change = DatafileArrangement(*document).sort(byField(SortKind::EmailDates), progress);
        QVERIFY(!change);
        const bool isOmitted = value == u"yesterday";
        QCOMPARE(change.error().identifier, isOmitted ? u"r4"_s : u"r2"_s);
        QCOMPARE(change.error().informativeText,
                 isOmitted ? u"An omitted record has a date that could not be read."_s
                           : u"Record number 2 has a date that could not be read."_s);
    }
}

void ArrangementTest::aSortRunsWhileTheDocumentChanges()
{
    const auto document = opened(root());
    Progress progress;
    RecordSorting sorting(*document, byField());
    std::thread thread([&] { sorting.run(progress); });
    document->storeFieldValue(u"r3"_s, u"f"_s, u"z"_s);
    thread.join();
    QVERIFY(sorting.apply(*document));
    QCOMPARE(orderOf(*document), u"3 4 0 1 2"_s);

    RecordSorting late(*document, byField());
    late.run(progress);
    document->deleteRecord(u"r0"_s);
    const auto refused = late.apply(*document);
    QVERIFY(!refused && refused.error().error.kind == Error::Kind::Refused);
    QCOMPARE(orderOf(*document), u"3 4 1 2"_s);
}

void ArrangementTest::aDatafileWithoutCatalogIsSorted()
{
    plist::Dictionary stored =
        DatafileFixture::withSetting(root(), u"Criteria"_s, plist::Dictionary(byField().storedDictionary()));
    stored.insert(u"Catalog"_s, plist::Array());
    QCOMPARE(orderOf(*opened(stored)), u"3 4 0 1 2"_s);
}

void ArrangementTest::selectingStoresCriteriaAndMarks()
{
    const auto document = opened(root());
    DatafileArrangement arrangement(*document);
    QVERIFY(sorted(*document, byField()));
    QSignalSpy changes(document.get(), &DatafileDocument::changed);
    Progress progress;

    QVERIFY(arrangement.select(fieldContains(u"E"_s), false, progress).value());

    QCOMPARE(document->datafileCatalog().selectedIdentifiers(), QStringList{u"r1"_s});
    QCOMPARE(changes.size(), 1);
    const auto stored = document->datafileSettings().criteria<SubsetSortCriteriaData>();
    QCOMPARE(stored.whereField1(), u"E"_s);
    QCOMPARE(stored.primaryFieldIdentifier(), u"f"_s);
    QVERIFY(arrangement.select(fieldContains(u"a"_s), true, progress).value());
    QCOMPARE(document->datafileCatalog().selectedIdentifiers(), (QStringList{u"r1"_s, u"r2"_s}));
    QVERIFY(arrangement.revertToPrevious() && arrangement.switchToOmitted());
    QCOMPARE(document->datafileCatalog().countSelected(), 4);
    arrangement.selectAll();
    QVERIFY(!arrangement.switchToOmitted());
    QVERIFY(document->datafileSettings().criteria<SubsetSortCriteriaData>().selectAllRecords());
    QCOMPARE(document->datafileSettings().criteria<SubsetSortCriteriaData>().whereField1(), u"a"_s);
    QCOMPARE(changes.size(), 5);
}

void ArrangementTest::aSelectionOfNothingIsNotKept()
{
    plist::Dictionary stored = root();
    const plist::Array before = *stored.value(u"Catalog"_s).array();
    plist::Array catalog;
    for (const plist::Value &entry : before) {
        plist::Dictionary changed = *entry.dictionary();
        changed.insert(u"PreviouslySelected"_s, false);
        catalog.append(changed);
    }
    stored.insert(u"Catalog"_s, catalog);
    const auto document = opened(stored);
    DatafileArrangement arrangement(*document);
    QSignalSpy errors(document.get(), &DatafileDocument::selectionWouldBeEmptyError);
    QSignalSpy changes(document.get(), &DatafileDocument::changed);
    Progress progress;

    QVERIFY(!arrangement.revertToPrevious());
    QVERIFY(!arrangement.select(fieldContains(u"nowhere"_s), false, progress).value());
    QCOMPARE(errors.size(), 2);
    QCOMPARE(document->datafileCatalog().countSelected(), 5);
    QVERIFY(changes.isEmpty() && !document->isModified());
    QCOMPARE(document->datafileSettings().criteria<SubsetSortCriteriaData>().whereField1(), u"nowhere"_s);

    for (const QString &identifier : {u"r0"_s, u"r1"_s, u"r2"_s, u"r3"_s})
        QVERIFY(arrangement.omit(identifier));
    QVERIFY(!arrangement.omit(u"r0"_s) && !arrangement.omit(u"r4"_s));
    QCOMPARE(errors.size(), 3);
    QCOMPARE(document->datafileCatalog().selectedIdentifiers(), QStringList{u"r4"_s});
}

QTEST_GUILESS_MAIN(ArrangementTest)
#include "ArrangementTest.moc"
