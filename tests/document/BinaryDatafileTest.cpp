// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/BinaryDatafile.h"

#include "document/DatafileFixture.h"
#include "model/RecordKey.h"
#include "model/ValueRecords.h"
#include "plist/Reader.h"

#include <QRandomGenerator>

using namespace tavrin;
using plist::Array;
using plist::Dictionary;
using plist::Value;

Q_DECLARE_METATYPE(tavrin::plist::Value)

/// Records that stay in the bytes of a binary datafile, against the same records as plain values.
class BinaryDatafileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oddRecordsReadTheSameEitherWay();
    void damagedDatafilesReadTheSameEitherWay();
    void whatIsUnusualIsLeftToTheReader_data();
    void whatIsUnusualIsLeftToTheReader();
    void theFormIsKnownAndCanBeWritten();
};

namespace {

Dictionary oddRecords()
{
    Dictionary whole;
    for (const QString &key : RecordKey::all)
        whole.insert(key, u"text of "_s + key);
    whole.insert(RecordKey::createdDate, Date{1000});
    whole.insert(RecordKey::textRTFD, QByteArray(20, '\x7f'));
    whole.insert(RecordKey::fields,
                 Dictionary{{u"f1"_s, u"plain"_s},
                            {u"Größe"_s, u"東京"_s},
                            {u"12"_s, 3.5},
                            {u"list"_s, Array{1, Dictionary{{u"deep"_s, u""_s}}}}});
    Dictionary other = whole;
    other.remove(RecordKey::viewedBy);
    other.insert(RecordKey::fields, u"no dictionary"_s);
    other.insert(RecordKey::textString, 12);
    Dictionary third = whole;
    third.insert(RecordKey::textString, u"Ende: ß"_s);
    third.insert(u"unknown"_s, Array{true, plist::Uid{7}});
    return {{u"R-1"_s, whole}, {u"R-é"_s, other}, {u"empty"_s, Dictionary()}, {u"R-3"_s, third}};
}

Dictionary datafile(const Dictionary &records)
{
    return {{u"Note"_s, Array{u"kept"_s}},
            {u"Records"_s, records},
            {u"Settings"_s, Dictionary{{u"DataFormat"_s, 1}}},
            {u"Catalog"_s,
             Array{Dictionary{{u"CurrentlySelected"_s, true},
                              {u"Identifier"_s, u"R-é"_s},
                              {u"PreviouslySelected"_s, false}},
                   u"odd"_s}}};
}

/// A record's texts and values are those of the same record read whole.
void compareRecord(const RecordSource &source,
                   const ValueRecords &plain,
                   quint32 place,
                   const Dictionary &whole)
{
    QVERIFY(source.dictionary(place) == whole);
    QCOMPARE(source.dictionary(place).keys(), whole.keys());
    QCOMPARE(source.needsOpening(place), plain.needsOpening(place));
    for (const QString &key : whole.keys() + QStringList{u"absent"_s})
        QVERIFY(source.value(place, key) == whole.value(key));
    const auto isSame = [](const TextView &left, const TextView &right) {
        return left.toString() == right.toString() && left.isAbsent() == right.isAbsent()
               && left.isEmpty() == right.isEmpty();
    };
    QVERIFY(isSame(source.textString(place), plain.textString(place)));
    const Value fields = whole.value(RecordKey::fields);
    for (const QString &field : (fields.isDictionary() ? fields.dictionary()->keys() : QStringList())
                                    + QStringList{u"absent"_s, u"f1"_s})
        QVERIFY(isSame(source.fieldValue(place, field), plain.fieldValue(place, field)));
}

/// 1 when the bytes were opened, and hold what their values do; 0 when they were refused, or left to the
/// reader.
int openedAlike(const QByteArray &bytes)
{
    const Result<plist::PropertyList> list = plist::read(bytes);
    const auto contents = readBinaryDatafile(*SharedBytes::copyOf(bytes), u"x"_s);
    if (!contents)
        return 0;
    if (!*contents) {
        const Error error = contents->error();
        const bool isAgreed = list ? error.kind == Error::Kind::TooNew : error == list.error();
        return isAgreed ? 0 : -1;
    }
    const Dictionary root = list ? *list->root.dictionary() : Dictionary();
    const Dictionary stored = *root.value(RootKey::records).dictionary();
    std::vector<Dictionary> records;
    stored.forEach(
        [&records](const QString &, const Value &record) { records.push_back(*record.dictionary()); });
    const ValueRecords plain(records);
    const RecordSource &source = *(*contents)->records;
    const Array catalog = root.contains(RootKey::catalog) ? *root.value(RootKey::catalog).array() : Array();
    bool isSame = (*contents)->settings == *root.value(RootKey::settings).dictionary()
                  && (*contents)->rootEntries.keys() == root.keys() && source.count() == records.size()
                  && (*contents)->catalog.size() == static_cast<size_t>(catalog.size());
    for (quint32 place = 0; isSame && place < source.count(); ++place) {
        isSame = (*contents)->identifiers->text(place) == stored.keys().at(place);
        compareRecord(source, plain, place, records[place]);
    }
    for (qsizetype i = 0; isSame && i < catalog.size(); ++i)
        isSame =
            (*contents)->catalogForms.valueOf((*contents)->catalog[static_cast<size_t>(i)]) == catalog.at(i);
    return isSame && !QTest::currentTestFailed() ? 1 : -1;
}

} // namespace

void BinaryDatafileTest::oddRecordsReadTheSameEitherWay()
{
    QCOMPARE(openedAlike(plist::toBinary(datafile(oddRecords()))), 1);
    QCOMPARE(openedAlike(plist::toBinary(datafile({}))), 1);
}

void BinaryDatafileTest::damagedDatafilesReadTheSameEitherWay()
{
    const QByteArray whole = plist::toBinary(datafile(oddRecords()));
    QRandomGenerator random(5);
    const auto someByte = [&random](const QByteArray &bytes) {
        return random.bounded(static_cast<int>(bytes.size()) - 32);
    };
    int opened = 0;
    for (int i = 0; i < 900; ++i) {
        // Mostly references and markers: keys that come twice, null objects, numbers as keys, Latin-1.
        QByteArray damaged = whole;
        constexpr QByteArrayView markers("\x00\x08\x10\x51\x61\x80\xA0\xC1\xD0\xE9", 10);
        damaged[someByte(damaged)] = random.bounded(3) == 0   ? damaged[someByte(damaged)]
                                     : random.bounded(2) == 0 ? markers[random.bounded(10)]
                                                              : static_cast<char>(random.bounded(64));
        const int outcome = openedAlike(damaged);
        QVERIFY2(outcome >= 0, qPrintable(QString::number(i)));
        opened += outcome;
    }
    QVERIFY2(opened > 100, qPrintable(QString::number(opened)));
}

void BinaryDatafileTest::whatIsUnusualIsLeftToTheReader_data()
{
    QTest::addColumn<Value>("root");
    const auto with = [](const QString &key, const Value &value) -> Value {
        Dictionary changed = datafile(oddRecords());
        changed.insert(key, value);
        return changed;
    };
    QTest::newRow("root is an array") << Value(Array{1});
    QTest::newRow("no settings") << with(RootKey::settings, {});
    QTest::newRow("settings are text") << with(RootKey::settings, u"all"_s);
    QTest::newRow("no records") << with(RootKey::records, {});
    QTest::newRow("records are an array") << with(RootKey::records, Array{});
    QTest::newRow("a record is text") << with(RootKey::records, Dictionary{{u"r"_s, u"text"_s}});
    QTest::newRow("no identifier") << with(RootKey::records, Dictionary{{u""_s, Dictionary()}});
    QTest::newRow("catalog is a dictionary") << with(RootKey::catalog, Dictionary{});
}

void BinaryDatafileTest::whatIsUnusualIsLeftToTheReader()
{
    QFETCH(const Value, root);
    QVERIFY(!readBinaryDatafile(*SharedBytes::copyOf(plist::toBinary(root)), u"x"_s));
}

void BinaryDatafileTest::theFormIsKnownAndCanBeWritten()
{
    const DatafileFixture files;
    const Dictionary root = datafile(oddRecords());
    const QString path = files.make(u"binary.tv3"_s, plist::toBinary(root));
    const auto document = DatafileFixture::opened(path);
    QCOMPARE(document->formatRead(), plist::Format::Binary);
    QVERIFY(document->writeToURL(path, typeNameOf(DatafileKind::Pro), document->formatRead()));
    const Result<plist::PropertyList> written = plist::read(DatafileFixture::contentOf(path));
    QVERIFY(written && written->format == plist::Format::Binary);
    QVERIFY(written->root.dictionary()->value(u"Note"_s) == root.value(u"Note"_s));
    QVERIFY(written->root.dictionary()->value(RootKey::records).dictionary()->value(u"R-1"_s)
            == oddRecords().value(u"R-1"_s));
}

QTEST_GUILESS_MAIN(BinaryDatafileTest)
#include "BinaryDatafileTest.moc"
