// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SubsetSortedData.h"

#include "support/TestEnvironment.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <array>

using namespace tavrin;
using namespace Qt::StringLiterals;
using plist::Dictionary;
using plist::Value;

class SubsetSortedDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unusualEntriesAreWrittenBackAsTheyWere();
    void onlyAFlagThatChangesIsStoredAnew();
    void openingSelectsAllOrKeepsTheSelection();
    void anEmptyCatalogTakesTheOrderOfTheRecords();
    void agreesWithAPlainListUnderRandomEdits();
    void theFirstOfEqualIdentifiersCounts();
    void revertingTwiceRestoresTheSelection();
    void aSelectionOfNothingIsAnnouncedAndTakenBack();
    void switchingNeedsOmittedRecords();

private:
    SubsetSortedData catalog(const plist::Array &array,
                             SelectionOnOpening selection = SelectionOnOpening::AsStored) const
    {
        return SubsetSortedData::catalogWithSortedArray(array, g_records, {}, selection);
    }

    DatafileRecordsData g_records;
};

namespace {

Value entry(const QString &identifier, const Value &current, const Value &previous)
{
    return Dictionary{{u"CurrentlySelected"_s, current},
                      {u"Identifier"_s, identifier},
                      {u"PreviouslySelected"_s, previous}};
}

/// Entries as files of other hands have them.
plist::Array unusualEntries()
{
    return {entry(u"A"_s, u"YES"_s, u"YES"_s),
            entry(u"B"_s, true, false),
            u"no dictionary"_s,
            Dictionary{{u"CurrentlySelected"_s, true}, {u"Note"_s, u"no identifier"_s}},
            Dictionary{{u"Identifier"_s, u"C"_s}, {u"PreviouslySelected"_s, 1}, {u"CurrentlySelected"_s, 0}},
            Dictionary{{u"Identifier"_s, u"D"_s}, {u"Color"_s, plist::Array{1, 2}}},
            entry(u""_s, true, true)};
}

} // namespace

void SubsetSortedDataTest::unusualEntriesAreWrittenBackAsTheyWere()
{
    const plist::Array stored = unusualEntries();
    SubsetSortedData catalog = this->catalog(stored);
    QCOMPARE(catalog.count(), 7);
    QCOMPARE(catalog.identifiers(), (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
    QCOMPARE(catalog.selectedIdentifiers(), (QStringList{u"A"_s, u"B"_s}));
    QVERIFY(catalog.sortedArray() == stored);
    for (qsizetype i = 0; i < stored.size(); ++i) {
        if (const Dictionary *dictionary = stored[i].dictionary())
            QCOMPARE(catalog.sortedArray()[i].dictionary()->keys(), dictionary->keys());
    }
    catalog.moveIdentifier(u"A"_s, 100);
    plist::Array moved = stored;
    moved.move(0, 6);
    QVERIFY(catalog.sortedArray() == moved);
}

void SubsetSortedDataTest::onlyAFlagThatChangesIsStoredAnew()
{
    SubsetSortedData catalog = this->catalog(unusualEntries());
    const SubsetSortedData untouched = catalog;
    catalog.includeIdentifier(u"A"_s); // was selected: "YES" stays
    catalog.omitIdentifier(u"B"_s);
    catalog.includeIdentifier(u"D"_s);

    plist::Array expected = unusualEntries();
    expected[1] = entry(u"B"_s, false, false);
    expected[5] = Dictionary{
        {u"Identifier"_s, u"D"_s}, {u"Color"_s, plist::Array{1, 2}}, {u"CurrentlySelected"_s, true}};
    QVERIFY(catalog.sortedArray() == expected);
    QVERIFY(untouched.sortedArray() == unusualEntries());

    catalog.omitIdentifier(u"A"_s);
    expected[0] = entry(u"A"_s, false, u"YES"_s);
    QVERIFY(catalog.sortedArray() == expected);
}

void SubsetSortedDataTest::openingSelectsAllOrKeepsTheSelection()
{
    const plist::Array stored{entry(u"A"_s, false, true), entry(u"B"_s, true, false)};
    QCOMPARE(catalog(stored).selectedIdentifiers(), QStringList{u"B"_s});

    const SubsetSortedData all = catalog(stored, SelectionOnOpening::AllSelected);
    QCOMPARE(all.countSelected(), 2);
    QVERIFY(all.sortedArray() == (plist::Array{entry(u"A"_s, true, false), entry(u"B"_s, true, true)}));
    QVERIFY(all.criteria().selectAllRecords());
}

void SubsetSortedDataTest::anEmptyCatalogTakesTheOrderOfTheRecords()
{
    TestEnvironment environment;
    DatafileRecordsData records;
    for (const QString &identifier : {u"Z"_s, u"A"_s, u"M"_s})
        records.setRecord(std::make_unique<RecordData>(environment), identifier);
    const auto catalog =
        SubsetSortedData::catalogWithSortedArray({}, records, {}, SelectionOnOpening::AsStored);
    QCOMPARE(catalog.selectedIdentifiers(), (QStringList{u"Z"_s, u"A"_s, u"M"_s}));
}

namespace {

/// The catalog as anybody would write it first: a list that is searched from the start.
struct PlainCatalog
{
    struct Entry
    {
        QString identifier;
        bool selected = true;
    };
    QList<Entry> entries;

    qsizetype index(const QString &identifier) const
    {
        const auto found = std::ranges::find(entries, identifier, &Entry::identifier);
        return found == entries.end() ? -1 : found - entries.begin();
    }

    QStringList selected() const
    {
        QStringList identifiers;
        for (const Entry &each : entries) {
            if (each.selected)
                identifiers.append(each.identifier);
        }
        return identifiers;
    }
};

/// One edit of both, the same.
void edit(SubsetSortedData &catalog,
          PlainCatalog &plain,
          int kind,
          const QString &identifier,
          QRandomGenerator &random)
{
    const qsizetype index = plain.index(identifier);
    const qsizetype other =
        plain.entries.isEmpty() ? -1 : random.bounded(static_cast<int>(plain.entries.size()));
    switch (index < 0 ? kind % 3 : 3 + kind % 4) {
    case 0:
        catalog.insertIdentifierAtBeginning(identifier);
        plain.entries.prepend({identifier});
        break;
    case 1:
        catalog.insertIdentifierAtEnd(identifier);
        plain.entries.append({identifier});
        break;
    case 2:
        catalog.insertIdentifier(identifier, other < 0 ? u"none"_s : plain.entries[other].identifier);
        plain.entries.insert(other + 1, {identifier});
        break;
    case 3:
        catalog.moveIdentifier(identifier, other);
        plain.entries.move(index, other);
        break;
    case 4:
        catalog.omitIdentifier(identifier);
        plain.entries[index].selected = false;
        break;
    case 5:
        catalog.includeIdentifier(identifier);
        plain.entries[index].selected = true;
        break;
    default:
        catalog.deleteIdentifier(identifier);
        plain.entries.remove(index);
    }
}

} // namespace

void SubsetSortedDataTest::agreesWithAPlainListUnderRandomEdits()
{
    constexpr quint32 seed = 20260405;
    QRandomGenerator random(seed);
    PlainCatalog plain;
    SubsetSortedData catalog = this->catalog({});
    for (int step = 0; step < 6000; ++step) {
        edit(catalog, plain, random.bounded(12), u"R%1"_s.arg(random.bounded(400)), random);
        // Looking up now and then only: positions have to survive several edits.
        const QString asked = u"R%1"_s.arg(random.bounded(400));
        const qsizetype index = plain.index(asked);
        QCOMPARE(catalog.indexOfIdentifier(asked), index < 0 ? NotFound : index);
        if (step % 50 != 0)
            continue;
        const QStringList selected = plain.selected();
        QCOMPARE(catalog.selectedIdentifiers(), selected);
        const qsizetype place = selected.indexOf(asked);
        QCOMPARE(catalog.indexOfSelectedIdentifier(asked), place < 0 ? NotFound : place);
        QCOMPARE(catalog.isSelectedIdentifier(asked), place >= 0);
        QCOMPARE(catalog.count(), plain.entries.size());
    }
    QVERIFY(catalog.selectedIdentifierAtIndex(-1).isNull());
    QVERIFY(catalog.selectedIdentifierAtIndex(catalog.countSelected()).isNull());
    QVERIFY(!catalog.objectAtIndex(catalog.count()));

    const QStringList all = catalog.identifiers();
    const QSet<QString> deleted(all.cbegin(), all.cbegin() + all.size() / 2);
    catalog.deleteIdentifiers(deleted);
    QCOMPARE(catalog.identifiers(), all.sliced(all.size() / 2));
    QCOMPARE(catalog.indexOfIdentifier(all.last()), catalog.count() - 1);
}

void SubsetSortedDataTest::theFirstOfEqualIdentifiersCounts()
{
    SubsetSortedData catalog =
        this->catalog({entry(u"A"_s, false, true), entry(u"B"_s, true, true), entry(u"A"_s, true, true)});
    QCOMPARE(catalog.indexOfIdentifier(u"A"_s), 0);
    QCOMPARE(catalog.indexOfSelectedIdentifier(u"A"_s), 1);

    catalog.insertIdentifierAtBeginning(u"C"_s);
    catalog.deleteIdentifier(u"A"_s);
    QCOMPARE(catalog.indexOfIdentifier(u"A"_s), 2);
    catalog.insertIdentifierAtBeginning(u"A"_s);
    QCOMPARE(catalog.indexOfIdentifier(u"A"_s), 0);
}

void SubsetSortedDataTest::revertingTwiceRestoresTheSelection()
{
    SubsetSortedData catalog = this->catalog({entry(u"A"_s, true, false), entry(u"B"_s, false, true)});
    const plist::Array before = catalog.sortedArray();
    QVERIFY(catalog.revertToPrevious());
    QCOMPARE(catalog.selectedIdentifiers(), QStringList{u"B"_s});
    QVERIFY(catalog.revertToPrevious());
    QVERIFY(catalog.sortedArray() == before);

    SubsetSortedData none = this->catalog({entry(u"A"_s, true, false)});
    QVERIFY(!none.revertToPrevious());
    QCOMPARE(none.countSelected(), 0);
}

void SubsetSortedDataTest::aSelectionOfNothingIsAnnouncedAndTakenBack()
{
    SubsetSortedData catalog =
        this->catalog({entry(u"A"_s, true, true), entry(u"B"_s, false, true), u"odd"_s});
    int announced = 0;
    catalog.observeSelectionWouldBeEmptyErrorNotification([&announced] { ++announced; });

    QVERIFY(!catalog.setSelection({}, {false, false, false}));
    QCOMPARE(announced, 1);
    QCOMPARE(catalog.selectedIdentifiers(), QStringList{u"A"_s});

    QVERIFY(catalog.setSelection({}, {false, true, false}));
    QCOMPARE(announced, 1);
    QCOMPARE(catalog.selectedIdentifiers(), QStringList{u"B"_s});
    QVERIFY(catalog.objectAtIndex(0)->previouslySelected());

    SubsetSortedData odd = this->catalog({u"odd"_s});
    odd.selectAll();
    QVERIFY(odd.sortedArray() == plist::Array{u"odd"_s});
}

void SubsetSortedDataTest::switchingNeedsOmittedRecords()
{
    SubsetSortedData catalog =
        this->catalog({entry(u"A"_s, true, true), entry(u"B"_s, true, true), u"odd"_s});
    QVERIFY(!catalog.switchToOmitted());
    QCOMPARE(catalog.countSelected(), 2);

    catalog.omitIdentifier(u"A"_s);
    QVERIFY(catalog.switchToOmitted());
    QCOMPARE(catalog.selectedIdentifiers(), QStringList{u"A"_s});
    QVERIFY(catalog.objectAtIndex(0)->previouslySelected());
}

QTEST_GUILESS_MAIN(SubsetSortedDataTest)
#include "SubsetSortedDataTest.moc"
