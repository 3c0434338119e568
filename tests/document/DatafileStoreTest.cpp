// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileContents.h"
#include "document/DatafileFixture.h"
#include "document/DatafileSnapshot.h"
#include "document/RecordRows.h"
#include "document/XmlDatafile.h"
#include "model/RecordKey.h"
#include "plist/Reader.h"
#include "support/TestEnvironment.h"

#include <QRandomGenerator>

#include <algorithm>

using namespace tavrin;
using plist::Dictionary;
using plist::Value;

/// Records that stay in the datafile's bytes, against the same records as plain values.
class DatafileStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordsReadTheSameEitherWay();
    void oddRecordsAreOpenedAsTheyAreRead();
    void whatIsNotADatafileIsJudgedByTheReader();
    void agreesWithPlainValuesUnderRandomEdits_data();
    void agreesWithPlainValuesUnderRandomEdits();
    void untouchedBytesAreCopied();
    void aWrongCopyIsNoticed();
    void whatXmlCannotHoldIsSavedAsItCan();
    void anAssignedRecordIsWritten();
    void largeDatafilesAreReadInParts();

private:
    QString fileOf(const Dictionary &root, const QByteArray &edited = {})
    {
        return g_files.make(u"store.tv3"_s, edited.isEmpty() ? plist::toXml(root) : edited);
    }
    std::unique_ptr<DatafileDocument> opened(const QString &path)
    {
        auto document = DatafileDocument::open({g_environment, nullptr}, path, SelectionOnOpening::AsStored);
        return document ? *std::move(document) : nullptr;
    }

    DatafileFixture g_files;
    TestEnvironment g_environment;
};

namespace {

Dictionary record(const QString &identifier, const Dictionary &fields, const Value &text)
{
    Dictionary stored;
    for (const QString &key : RecordKey::all)
        stored.insert(key, u"text of "_s + key);
    for (const QString &key : {RecordKey::createdDate, RecordKey::modifiedDate, RecordKey::viewedDate})
        stored.insert(key, Date{1000});
    stored.insert(RecordKey::identifier, identifier);
    stored.insert(RecordKey::locked, true);
    stored.insert(RecordKey::fields, fields);
    stored.insert(RecordKey::textString, text);
    stored.insert(RecordKey::textRTFD, QByteArray(40, '\x7f'));
    stored.insert(u"Unknown <key>"_s, plist::Array{1, Dictionary{{u"deep"_s, u"&"_s}}});
    return stored;
}

Value entry(const QString &identifier)
{
    return Dictionary{
        {u"CurrentlySelected"_s, true}, {u"Identifier"_s, identifier}, {u"PreviouslySelected"_s, false}};
}

Dictionary datafile(const Dictionary &records)
{
    plist::Array catalog;
    for (const QString &identifier : records.keys())
        catalog.append(entry(identifier));
    return {{u"Catalog"_s, catalog},
            {u"Note"_s, plist::Array{u"kept"_s}},
            {u"Records"_s, records},
            {u"Settings"_s, Dictionary{{u"DataFormat"_s, 1}, {u"Odd"_s, 2.5}}}};
}

Dictionary someRecords(int count)
{
    static const QStringList texts{u""_s, u"plain"_s, u"a & b < c"_s, u"Größe 東京"_s, u"line\nline"_s};
    Dictionary records;
    for (int i = 0; i < count; ++i) {
        const QString identifier = u"R-%1"_s.arg(i);
        Dictionary fields{{u"f1"_s, texts.at(i % 5)},
                          {i % 4 == 1 ? u"f2"_s : u"f&2"_s, texts.at((i + 1) % 5)}};
        if (i % 3 == 0)
            fields.insert(u"number"_s, i);
        records.insert(identifier, record(identifier, fields, texts.at((i + 2) % 5)));
    }
    return records;
}

/// Every way to read a record without opening it, against its values.
void compareViews(const DatafileRecordsData &records, const Dictionary &expected)
{
    QCOMPARE(records.count(), expected.size());
    expected.forEach([&](const QString &identifier, const Value &stored) {
        const std::optional<RecordView> view = records.view(identifier);
        QVERIFY(view);
        const RecordData plain(*stored.dictionary(), TestEnvironment());
        QCOMPARE(view->textString().toString(), plain.textString());
        const std::vector<FieldKey> fields{u"none"_s, u"f2"_s, u"f1"_s, u"f&2"_s, u"number"_s};
        std::vector<TextView> values(fields.size(), TextView(u"of another record"_s));
        view->fieldValues(fields, values);
        QByteArray buffer;
        for (size_t i = 0; i < fields.size(); ++i) {
            const QString value = plain.fieldValue(fields[i].text);
            QCOMPARE(view->fieldValue(fields[i]).toString(), value);
            QCOMPARE(values[i].toString(), value);
            QCOMPARE(values[i].isAbsent(), value.isNull());
            QCOMPARE(values[i].utf8(buffer), QByteArrayView(value.toUtf8()));
        }
        QCOMPARE(view->createdDate(), plain.createdDate());
        QCOMPARE(view->recordLocked(), plain.recordLocked());
        QVERIFY(view->value(u"Unknown <key>"_s) == plain.dictionary().value(u"Unknown <key>"_s));
        QVERIFY(view->value(u"absent"_s).isNull());
    });
}

} // namespace

void DatafileStoreTest::recordsReadTheSameEitherWay()
{
    const Dictionary records = someRecords(40);
    const auto document = opened(fileOf(datafile(records)));
    QVERIFY(document);
    compareViews(document->datafileRecords(), records);
    QVERIFY(document->datafileRecords().dictionary() == records);
    // Opened, they are still the same.
    for (const QString &identifier : records.keys())
        QVERIFY(document->datafileRecords().recordForIdentifier(identifier)->dictionary()
                == *records.value(identifier).dictionary());
    compareViews(document->datafileRecords(), records);
}

void DatafileStoreTest::oddRecordsAreOpenedAsTheyAreRead()
{
    Dictionary records = someRecords(4);
    Dictionary partial = *records.value(u"R-1"_s).dictionary();
    partial.remove(RecordKey::viewedBy);
    partial.remove(RecordKey::fields);
    records.insert(u"R-1"_s, partial);
    records.insert(u"R-2"_s, record(u"other"_s, {{u"CF$UID"_s, 5}, {u"f1"_s, u"x"_s}}, 12));
    records.insert(u"empty"_s, Dictionary());
    QByteArray xml = plist::toXml(datafile(records));
    // A key that comes twice, in a record and among its fields: the last value counts.
    xml.replace("\t\t\t\t<key>number</key>", "\t\t\t\t<key>f1</key>\n<string>last</string><key>number</key>");
    xml.replace("\t\t\t<key>IsSum</key>",
                "<!-- x --><key>TextString</key><string>first</string><key>IsSum</key>");
    const Dictionary read = *plist::readDictionary(xml)->value(u"Records"_s).dictionary();
    const auto document = opened(fileOf({}, xml));
    QVERIFY(document);
    compareViews(document->datafileRecords(), read);
    const Dictionary completed = document->datafileRecords().dictionary();
    QVERIFY(completed.value(u"R-1"_s).dictionary()->contains(RecordKey::viewedBy));
    QVERIFY(completed.value(u"R-0"_s) == read.value(u"R-0"_s));
}

void DatafileStoreTest::whatIsNotADatafileIsJudgedByTheReader()
{
    const QByteArray whole = plist::toXml(datafile(someRecords(3)));
    QRandomGenerator random(5);
    int accepted = 0;
    for (int i = 0; i < 1500; ++i) {
        QByteArray damaged = whole;
        const int at = random.bounded(static_cast<int>(whole.size()) - 40);
        if (random.bounded(2) == 0)
            damaged.remove(at, 1 + random.bounded(30));
        else
            damaged.insert(at, whole.mid(random.bounded(static_cast<int>(whole.size())), 30));
        const Result<plist::PropertyList> plain = plist::read(damaged);
        const auto contents = readXmlDatafile(*SharedBytes::copyOf(damaged), u"x"_s);
        if (!contents)
            continue; // left to the reader
        if (!*contents) {
            QVERIFY((*contents).error().kind == Error::Kind::TooNew || !plain);
            if (!plain)
                QCOMPARE((*contents).error().detail, plain.error().detail);
            continue;
        }
        ++accepted;
        QVERIFY(plain && plain->root.isDictionary());
        const Value records = plain->root.dictionary()->value(u"Records"_s);
        const auto identifiers = (*contents)->identifiers;
        const RecordsSnapshot snapshot = RecordsSnapshot::ofSource((*contents)->records, identifiers);
        QVERIFY(records == snapshot.dictionary());
    }
    QVERIFY(accepted > 20);
}

void DatafileStoreTest::agreesWithPlainValuesUnderRandomEdits_data()
{
    QTest::addColumn<bool>("isForeignLayout");
    QTest::newRow("our own layout") << false;
    QTest::newRow("another layout") << true;
}

void DatafileStoreTest::agreesWithPlainValuesUnderRandomEdits()
{
    QFETCH(bool, isForeignLayout);
    Dictionary expected = someRecords(30);
    QByteArray xml = plist::toXml(datafile(expected));
    if (isForeignLayout)
        xml.replace('\t', "  ").replace("</dict>\n", "</dict> ");
    QString path = fileOf({}, xml);
    QRandomGenerator random(77);
    QStringList order = expected.keys();
    for (int round = 0; round < 12; ++round) {
        const auto document = opened(path);
        QVERIFY(document);
        compareViews(document->datafileRecords(), expected);
        QCOMPARE(document->datafileCatalog().identifiers(), order);
        for (int i = 0; i < 6; ++i) {
            const QString some = order.at(random.bounded(static_cast<int>(order.size())));
            DatafileRecordsData &records = document->datafileRecords();
            switch (random.bounded(5)) {
            case 0:
                document->storeFieldValue(some, u"f1"_s, u"<edited %1>"_s.arg(i));
                break;
            case 1: {
                const QString added = document->addRecord(some);
                order.insert(order.indexOf(some) + 1, added);
                break;
            }
            case 2:
                document->deleteRecord(some);
                order.removeOne(some);
                expected.remove(some);
                continue;
            case 3: {
                const int target = random.bounded(static_cast<int>(order.size()));
                document->datafileCatalog().moveIdentifier(some, target);
                order.move(order.indexOf(some), target);
                continue;
            }
            default: // taken out and put back: at the end
                records.setRecord(records.takeRecordForIdentifier(some), some);
                expected.remove(some);
            }
            expected.insert(some, records.view(some)->dictionary());
            for (const QString &identifier : order) {
                if (!expected.contains(identifier))
                    expected.insert(identifier, records.view(identifier)->dictionary());
            }
        }
        QVERIFY(document->writeToURL(path, typeNameOf(DatafileKind::Pro)));
        const Dictionary root = *plist::readDictionary(DatafileFixture::contentOf(path));
        QVERIFY(root.value(u"Records"_s) == expected);
        QCOMPARE(root.value(u"Records"_s).dictionary()->keys(), expected.keys());
        QVERIFY(root.value(u"Note"_s) == (plist::Array{u"kept"_s}));
    }
}

void DatafileStoreTest::untouchedBytesAreCopied()
{
    const QByteArray own = plist::toXml(datafile(someRecords(20)));
    const QString path = fileOf({}, own);
    QVERIFY(opened(path)->writeToURL(path, typeNameOf(DatafileKind::Pro)));
    QVERIFY(DatafileFixture::contentOf(path) == own);

    // In another layout a record keeps its bytes, comments and all.
    QByteArray foreign = own;
    foreign.replace("<key>IsSum</key>", "<!-- kept --><key>IsSum</key >");
    foreign.prepend("\xEF\xBB\xBF");
    fileOf({}, foreign);
    const auto document = opened(path);
    document->storeFieldValue(u"R-3"_s, u"f1"_s, u"edited"_s);
    QVERIFY(document->writeToURL(path, typeNameOf(DatafileKind::Pro)));
    QCOMPARE(DatafileFixture::contentOf(path).count("<!-- kept -->"), 19);
}

void DatafileStoreTest::aWrongCopyIsNoticed()
{
    const QByteArray own = plist::toXml(datafile(someRecords(5)));
    Progress unwatched;
    const auto contents = readDatafile(fileOf({}, own), unwatched);
    QVERIFY(contents);
    DatafileSnapshot snapshot{contents->rootEntries,
                              contents->settings,
                              RecordsSnapshot::ofSource(contents->records, contents->identifiers),
                              {contents->catalogForms, {}}};
    snapshot.catalog.order.assign(contents->catalog);
    const RecordRows rows(snapshot.records);
    QCOMPARE(rows.count(), size_t(1));
    QByteArray room;
    const QByteArray row = rows.bytes(0, room).toByteArray();
    QVERIFY(own.contains(row) && rows.check(0, row));
    for (const auto &[what, other] : std::initializer_list<std::pair<const char *, const char *>>{
             {"plain", "plaid"}, {"<key>R-2<", "<key>R-9<"}, {"</dict>", "</dict></dict>"}}) {
        QByteArray wrong = row;
        QVERIFY(!rows.check(0, wrong.replace(what, other)));
    }
    QVERIFY(!rows.check(0, row + row) && !rows.check(0, row.chopped(9)) && !rows.check(0, {}));

    const auto isGood = [&snapshot](const QByteArray &written) {
        return checkXmlDatafile(SharedBytes::copyOf(written)->view(), snapshot).has_value();
    };
    QByteArray rest = own;
    rest.remove(own.indexOf(row), row.size());
    QVERIFY(isGood(rest) && !isGood(own) && !isGood(rest.chopped(200)));
    for (const auto &[what, other] : std::initializer_list<std::pair<const char *, const char *>>{
             {"</plist>", "</plis>"}, {"<key>Records<", "<key>Cords<"}, {"2.5", "3.5"}}) {
        QByteArray wrong = rest;
        QVERIFY(!isGood(wrong.replace(what, other)));
    }
}

void DatafileStoreTest::whatXmlCannotHoldIsSavedAsItCan()
{
    Dictionary root = datafile(someRecords(3));
    Dictionary settings = *root.value(u"Settings"_s).dictionary();
    settings.insert(u"Odd"_s, plist::Array{Date{0.5}, QString(QChar(0xD800)), Dictionary{{u"CF$UID"_s, 5}}});
    root.insert(u"Settings"_s, settings);
    Dictionary records = *root.value(u"Records"_s).dictionary();
    for (const QString &identifier : {QString(u"\uFEFFmarked"_s), QString(u"lone"_s + QChar(0xDC00))})
        records.insert(identifier, record(identifier, {}, u"text"_s));
    root.insert(u"Records"_s, records);
    const QString path = g_files.make(u"store.tv3"_s, plist::toBinary(root));
    const Result<> written = opened(path)->writeToURL(path, typeNameOf(DatafileKind::Pro));
    QVERIFY2(written, written ? "" : qPrintable(written.error().detail));
    const auto again = opened(path);
    QVERIFY(again && again->datafileRecords().recordForIdentifier(u"\uFEFFmarked"_s));
    QVERIFY(again->writeToURL(path, typeNameOf(DatafileKind::Pro)));

    // A key that only looks like a known one is another key.
    QByteArray xml = plist::toXml(datafile(someRecords(1)));
    xml.replace("<key>TextRTFD<", "<key>\xEF\xBB\xBFTextString</key><string>wrong</string><key>TextRTFD<");
    const auto marked = opened(fileOf({}, xml));
    QVERIFY(marked);
    QVERIFY(marked->datafileRecords().view(u"R-0"_s)->textString().toString() != u"wrong");
}

void DatafileStoreTest::anAssignedRecordIsWritten()
{
    const QString path = fileOf(datafile(someRecords(2)));
    const auto document = opened(path);
    const Dictionary other = record(u"R-1"_s, {{u"f1"_s, u"assigned"_s}}, u"assigned"_s);
    *document->datafileRecords().recordForIdentifier(u"R-1"_s) = RecordData(other, g_environment);
    QVERIFY(document->writeToURL(path, typeNameOf(DatafileKind::Pro)));
    QCOMPARE(opened(path)->datafileRecords().view(u"R-1"_s)->textString().toString(), u"assigned"_s);
}

void DatafileStoreTest::largeDatafilesAreReadInParts()
{
    // Large enough for several threads; and texts that look as if a record began in them.
    Dictionary records = someRecords(30);
    const QByteArray trap = "\n\t\t</dict>\n\t\t<key>trap";
    const QString filler = QString::fromUtf8(trap.repeated(60000));
    for (const QString &identifier : records.keys()) {
        Dictionary large = *records.value(identifier).dictionary();
        large.insert(RecordKey::textString, identifier + filler);
        records.insert(identifier, large);
    }
    QByteArray xml = plist::toXml(datafile(records));
    const QByteArray encoded = QByteArray(trap).replace("<", "&lt;").replace(">", "&gt;");
    xml.replace(encoded, "<![CDATA[" + trap + "]]>");
    QVERIFY(xml.size() > (40 << 20));
    const auto document = opened(fileOf({}, xml));
    QVERIFY(document);
    QVERIFY(document->datafileRecords().dictionary() == records);
    xml[xml.size() / 4 * 3] = '\xff';
    QVERIFY(!opened(fileOf({}, xml)));
}

QTEST_GUILESS_MAIN(DatafileStoreTest)
#include "DatafileStoreTest.moc"
