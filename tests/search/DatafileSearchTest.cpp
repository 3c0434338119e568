// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/DatafileSearch.h"

#include "search/FindSelection.h"
#include "search/PlainSearch.h"
#include "search/SearchFixture.h"
#include "text/RandomText.h"

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

/// Record, field, start, length.
using Stop = std::array<qint64, 4>;

Stop stopOf(qint64 record, const RecordHit &hit)
{
    return {record, hit.field, hit.range.start, hit.range.length};
}

/// Steps from hit to hit as a window does, which remembers the last one.
QList<Stop> steps(const DatafileSearch &search, const QString &key, bool backwards, SearchStart start)
{
    QList<Stop> stops;
    Progress progress;
    const auto next = [&] {
        return backwards ? search.reverseSearchForString(key, start, {}, progress)
                         : search.forwardSearchForString(key, start, {}, progress);
    };
    while (const auto found = next()) {
        stops.append(stopOf(found->record, found->hit));
        const bool isInText = found->hit.field == HitField::freeformText;
        if (found->record != start.record)
            start = {found->record, {}, {}};
        start.place.lastHitField = isInText ? LastHitField::freeformText : found->hit.field;
        if (isInText)
            start.place.selection = found->hit.range;
        if (stops.size() > 100000)
            return {};
    }
    return stops;
}

/// Of a text, every occurrence, backwards if so; of a field, one.
QList<Stop> plainStops(const QList<TestRecord> &records,
                       const QSet<qsizetype> &hidden,
                       const PlainSearch &key,
                       bool backwards)
{
    QList<Stop> stops;
    qint64 number = 0;
    for (const TestRecord &record : records) {
        if (!record.isSelected)
            continue;
        QList<Stop> inRecord;
        const QString text = TestRecord::seen(record.text);
        for (qsizetype field = 0; field < record.fields.size(); ++field) {
            const QString content = TestRecord::seen(record.fields[field]);
            const Match match = backwards ? key.last(content, content.size()) : key.first(content);
            if (match && !hidden.contains(field))
                inRecord.append(stopOf(number, {field, match}));
        }
        if (backwards) {
            std::ranges::reverse(inRecord);
            QList<Stop> inText;
            for (Match match = key.last(text, text.size()); match; match = key.last(text, match.start))
                inText.append(stopOf(number, {HitField::freeformText, match}));
            stops = inText + inRecord + stops;
        } else {
            stops += inRecord;
            for (const Match &match : key.all(text))
                stops.append(stopOf(number, {HitField::freeformText, match}));
        }
        ++number;
    }
    return stops;
}

QString randomContent(std::mt19937 &random, int longest)
{
    QString content = randomText(random, longest);
    content.remove(QChar(0xD83D));
    constexpr std::array pieces{u'&', u'<', u'>', u'"', char16_t(0xE000), char16_t(0xE001)};
    if (random() % 3 == 0)
        content.insert(static_cast<qsizetype>(random()) % (content.size() + 1), QChar(pieces[random() % 6]));
    return QString::fromUtf8(content.toUtf8());
}

} // namespace

class DatafileSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void steppingComesByAllHitsInOrder();
    void searchesWrapToWhereTheyBegan();
    void codesSayWhereToSearch();
    void severalKeysAreSoughtInOneRecord();
    void findSelectionNarrows();
    void missesOpenNothing();

private:
    std::unique_ptr<DatafileDocument> document(const QList<TestRecord> &records,
                                               const QSet<qsizetype> &hidden = {}) const
    {
        return DatafileFixture::opened(g_folder.make(u"searched.tv3"_s, searchedDatafile(records, hidden)));
    }

    DatafileFixture g_folder;
    Progress g_progress;
};

void DatafileSearchTest::steppingComesByAllHitsInOrder()
{
    std::mt19937 random(20260104);
    const QSet<qsizetype> hidden{1};
    for (int file = 0; file < 8; ++file) {
        QList<TestRecord> records;
        for (int i = 0; i < 40; ++i)
            records.append({{randomContent(random, 6), randomContent(random, 6), randomContent(random, 6)},
                            randomContent(random, 20),
                            random() % 5 != 0});
        records.last().isSelected = true;
        const auto document = this->document(records, hidden);
        // One record is an object already.
        document->storeText(u"r39"_s, records.last().text = u"kiss &amp; kiss"_s);
        const qint64 count = document->datafileCatalog().countSelected();
        for (int i = 0; i < 40; ++i) {
            const QString key = TestRecord::seen(randomContent(random, 1 + i % 3));
            const KeyOptions options{.caseSensitive = i % 2 == 0, .wholeWord = i % 5 == 0};
            const DatafileSearch search(*document, options, FieldsToSearchIn::everything);
            const PlainSearch plain(key, options);
            QCOMPARE(steps(search, key, false, {}), plainStops(records, hidden, plain, false));
            QCOMPARE(steps(search, key, true, {count - 1, {}, {}}), plainStops(records, hidden, plain, true));

            QList<Stop> listed;
            search.forEachRecordHolding({key}, g_progress, [&](qint64 record, const RecordView &view) {
                for (const RecordHit &hit : search.hitsInRecord(view, {key}))
                    listed.append(stopOf(record, hit));
            });
            QCOMPARE(listed, plainStops(records, hidden, plain, false));
        }
    }
}

void DatafileSearchTest::searchesWrapToWhereTheyBegan()
{
    const auto document = this->document({{{u"a"_s}, u"one"_s}, {{u"x"_s}, u"x x"_s}, {{u"b"_s}, u"x"_s}});
    const DatafileSearch search(*document, {}, FieldsToSearchIn::everything);
    const auto find = [&](bool backwards, const QString &key, const SearchStart &start, SearchExtent extent) {
        const auto found = backwards ? search.reverseSearchForString(key, start, extent, g_progress)
                                     : search.forwardSearchForString(key, start, extent, g_progress);
        return found ? stopOf(found->record, found->hit) : Stop{};
    };
    constexpr SearchExtent wraps{.okayToWrap = true};
    constexpr qint64 text = HitField::freeformText;
    const SearchStart behindAll{2, {LastHitField::freeformText, {}, Match{0, 1}}, {}};

    QCOMPARE(find(false, u"x"_s, behindAll, {}), Stop{});
    QCOMPARE(find(false, u"x"_s, behindAll, wraps), (Stop{1, 0, 0, 1}));
    QCOMPARE(find(false, u"x"_s, behindAll, {true, true}), Stop{});
    // Back to a hit before the start, in the record of the start.
    QCOMPARE(find(false, u"b"_s, behindAll, wraps), (Stop{2, 0, 0, 1}));
    const SearchStart inFirst{0, {LastHitField::freeformText, {}, Match{3, 0}}, {}};
    QCOMPARE(find(false, u"one"_s, inFirst, wraps), Stop{});
    QCOMPARE(find(false, u"one"_s, {0, inFirst.place, 0}, wraps), (Stop{0, text, 0, 3}));
    QCOMPARE(find(true, u"x"_s, {0, {}, {}}, {}), Stop{});
    QCOMPARE(find(true, u"x"_s, {0, {}, {}}, wraps), (Stop{2, text, 0, 1}));
    QCOMPARE(find(true, u"x"_s, {1, {0, {}, Match{2, 1}}, {}}, {}), Stop{});
    QCOMPARE(find(true, u"x"_s, {1, {LastHitField::freeformText, {}, Match{2, 1}}, {}}, {}),
             (Stop{1, text, 0, 1}));
    QCOMPARE(find(false, u""_s, {0, {}, 0}, wraps), Stop{});
    QCOMPARE(find(false, u"x"_s, {7, {}, {}}, wraps), Stop{});

    class Cancelled : public Progress
    {
        bool isCancelled() const override { return true; }
    } cancelled;
    QVERIFY(!search.forwardSearchForString(u"x"_s, {}, wraps, cancelled));
}

void DatafileSearchTest::codesSayWhereToSearch()
{
    const auto document = this->document({{{u"k"_s, u"k"_s, u"k"_s}, u"k"_s}}, {1});
    const auto stops = [&](qint64 code) {
        QList<qint64> fields;
        for (const Stop &stop : steps(DatafileSearch(*document, {}, code), u"k"_s, false, {}))
            fields.append(stop[1]);
        return fields;
    };
    constexpr qint64 text = HitField::freeformText;
    QCOMPARE(stops(FieldsToSearchIn::everything), (QList<qint64>{0, 2, text}));
    QCOMPARE(stops(FieldsToSearchIn::freeformText), QList<qint64>{text});
    QCOMPARE(stops(2), QList<qint64>{2});
    QCOMPARE(stops(1), QList<qint64>());
    QCOMPARE(stops(5000), QList<qint64>());
}

void DatafileSearchTest::severalKeysAreSoughtInOneRecord()
{
    const auto document = this->document(
        {{{u"red"_s, u""_s}, u"blue"_s}, {{u"red"_s, u"blue"_s}, u"red"_s}, {{u"red"_s, u""_s}, u"green"_s}});
    const DatafileSearch search(*document, {}, FieldsToSearchIn::everything);
    const QStringList keys{u"Red"_s, u"Blue"_s};
    constexpr SearchExtent wraps{.okayToWrap = true};

    auto found = search.forwardSearchForArrayOfStrings(keys, {}, {}, g_progress);
    QVERIFY(found && found->record == 0);
    QCOMPARE(found->fieldHits, (QList{RecordHit{0, {0, 3}}}));
    QCOMPARE(found->freeformHits, (QList{Match{0, 4}}));
    QCOMPARE(found->hitField, 0);
    QCOMPARE(found->lastHitField, 3);

    // The same record does not match again from behind its hits.
    const SearchStart behind{0, {found->lastHitField, {}, found->freeformHits.last()}, 0};
    found = search.forwardSearchForArrayOfStrings(keys, behind, {}, g_progress);
    QVERIFY(found && found->record == 1);
    QCOMPARE(found->fieldHits, (QList{RecordHit{0, {0, 3}}, RecordHit{1, {0, 4}}}));
    QCOMPARE(found->freeformHits, (QList{Match{0, 3}}));
    QCOMPARE(found->hitField, 1);

    const SearchStart last{1, {3, {}, Match{0, 3}}, 0};
    QVERIFY(!search.forwardSearchForArrayOfStrings(keys, last, {}, g_progress));
    QCOMPARE(search.forwardSearchForArrayOfStrings(keys, last, wraps, g_progress)->record, 0);
    QCOMPARE(search.reverseSearchForArrayOfStrings(keys, last, {}, g_progress)->record, 0);
    QVERIFY(!search.forwardSearchForArrayOfStrings(keys, behind, {true, true}, g_progress));
    QVERIFY(!search.forwardSearchForArrayOfStrings({}, {}, wraps, g_progress));
    QVERIFY(!search.forwardSearchForArrayOfStrings({u"red"_s, u""_s}, {}, wraps, g_progress));
}

void DatafileSearchTest::findSelectionNarrows()
{
    const auto document = this->document({{{u"red"_s, u"blue"_s}, u""_s},
                                          {{u"blue"_s, u""_s}, u"cafe\u0301 red"_s},
                                          {{u"red"_s, u""_s}, u"caf\u00E9"_s},
                                          {{u"red"_s, u""_s}, u"blue"_s, false}},
                                         {1});
    const SubsetSortedData &catalog = document->datafileCatalog();
    const auto select = [&](const QStringList &keys, bool caseSensitive) {
        FindSelection selection(
            *document, keys, {.caseSensitive = caseSensitive}, FieldsToSearchIn::everything);
        selection.run(g_progress);
        return selection.apply(*document).value();
    };
    QVERIFY(!select({u"Red"_s}, true) && !select({}, false) && !select({u"none"_s}, false));
    QVERIFY(!catalog.objectAtIndex(3)->currentlySelected() && catalog.objectAtIndex(3)->previouslySelected());
    // Hidden fields count, and accents are taken as they are written.
    QVERIFY(select({u"BLUE"_s, u"red"_s}, false));
    QCOMPARE(catalog.selectedIdentifiers(), (QStringList{u"r0"_s, u"r1"_s}));
    QVERIFY(catalog.objectAtIndex(2)->previouslySelected()
            && !catalog.objectAtIndex(3)->previouslySelected());
    QVERIFY(!select({u"caf\u00E9"_s}, false) && select({u"cafe\u0301"_s}, false));
    QCOMPARE(catalog.selectedIdentifiers(), QStringList{u"r1"_s});
}

void DatafileSearchTest::missesOpenNothing()
{
    const auto document =
        this->document({{{u"string key dict"_s}, u"f0 r0 <key>&amp;"_s}, {{u"a"_s}, u"b"_s}});
    const auto passes = [&](const QString &identifier, const QString &key) {
        return SearchKey(key, {}).mayBeIn(*document->datafileRecords().view(identifier));
    };
    // Neither what stands in tags nor the identifiers of fields counts.
    for (const QString &key : {u"string"_s, u"key"_s, u"dict"_s, u"f0"_s, u"r0"_s, u"date"_s}) {
        QVERIFY2(!passes(u"r1"_s, key), qPrintable(key));
        QVERIFY2(passes(u"r0"_s, key) != (key == u"date"), qPrintable(key));
    }
    const DatafileSearch search(*document, {}, FieldsToSearchIn::everything);
    QVERIFY(search.forEachRecordHolding({u"nowhere"_s}, g_progress, [](qint64, const RecordView &) {}));
    for (const RecordsSnapshot::Entry &entry : document->datafileRecords().snapshot().entries)
        QVERIFY(!document->datafileRecords().snapshot().xml(entry).isEmpty());
}

QTEST_GUILESS_MAIN(DatafileSearchTest)
#include "DatafileSearchTest.moc"
