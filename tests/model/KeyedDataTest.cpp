// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/InternalInconsistency.h"
#include "model/DatafileRecordsData.h"
#include "model/DatafileSettingsData.h"
#include "support/TestEnvironment.h"

#include <QRegularExpression>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;
using plist::Dictionary;
using plist::Value;

class KeyedDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dataThatIsTooNewGivesNoAccessorAndOneLogLine();
    void readingsConvertAndFallBack_data();
    void readingsConvertAndFallBack();
    void settingNothingRemovesTheKeyAndANullKeyIsIgnored();
    void whatAnAccessorHandsOutIsACopy();
    void nestedAccessorsAreStampedAndRefusedWhenTooNew();

    void aRecordWritesBackWhatItDoesNotChange();
    void aRecordThatLacksKeysTakesThoseOfANewOne();
    void aCompleteRecordAsksNothingOfTheEnvironment();
    void modifiedAsksForSynchronizationAndViewedDoesNot();
    void lockingRemembersTheStateBefore();
    void fieldContentsKeepForeignValuesAroundAnEdit();
    void contentOfAFieldIsThatOfTheFirstFieldOfTheName();

    void aCollectionKeepsTheOrderAndTheOuterKeys();
    void entriesThatAreNoRecordsAreKept();
    void unknownIdentifiersAreAProgrammingError();

private:
    TestEnvironment g_environment;
};

void KeyedDataTest::dataThatIsTooNewGivesNoAccessorAndOneLogLine()
{
    QTest::ignoreMessage(
        QtWarningMsg,
        "The data is too new for this version of the application.  (Data format is 2, latest the app "
        "knowns about is format 1.)");
    QVERIFY(!DatafileSettingsData::settingsWithDictionary({{u"DataFormat"_s, 2}}, nullptr));

    auto settings = DatafileSettingsData::settingsWithDictionary({{u"Other"_s, 5}}, nullptr);
    QVERIFY(settings);
    QVERIFY(settings->dictionary() == (Dictionary{{u"Other"_s, 5}, {u"DataFormat"_s, 1}}));
}

void KeyedDataTest::readingsConvertAndFallBack_data()
{
    QTest::addColumn<Value>("stored");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<qint64>("integer");
    QTest::addColumn<float>("real");
    QTest::addColumn<QString>("text");

    QTest::newRow("absent") << Value() << true << qint64(-7) << -7.5F << u"default"_s;
    QTest::newRow("beyond 32 bits") << Value(qint64(4294967297)) << true << qint64(1) << 4294967297.0F
                                    << u"4294967297"_s;
    QTest::newRow("empty text") << Value(u""_s) << false << qint64(0) << 0.0F << u"default"_s;
    QTest::newRow("text") << Value(u"YES"_s) << true << qint64(0) << 0.0F << u"YES"_s;
    QTest::newRow("number as text") << Value(u"12.5 pt"_s) << true << qint64(12) << 12.5F << u"12.5 pt"_s;
    QTest::newRow("boolean") << Value(false) << false << qint64(0) << 0.0F << u"0"_s;
    QTest::newRow("container") << Value(plist::Array{1}) << false << qint64(0) << 0.0F << u"default"_s;
}

void KeyedDataTest::readingsConvertAndFallBack()
{
    QFETCH(Value, stored);
    DatafileSettingsData settings;
    settings.setObject(stored, u"Key"_s);

    QTEST(settings.boolForKey(u"Key"_s, true), "flag");
    QTEST(settings.integerForKey(u"Key"_s, -7), "integer");
    QTEST(settings.floatForKey(u"Key"_s, -7.5F), "real");
    QTEST(settings.stringForKey(u"Key"_s, u"default"_s), "text");
}

void KeyedDataTest::settingNothingRemovesTheKeyAndANullKeyIsIgnored()
{
    DatafileSettingsData settings;
    settings.setString(u"a"_s, u"Text"_s);
    settings.setArray(plist::Array{1}, u"Array"_s);
    settings.setKeyedAccessor(DatafileSettingsData(), u"Nested"_s);
    settings.setBool(true, QString());

    settings.setString(QString(), u"Text"_s);
    settings.setArray(std::nullopt, u"Array"_s);
    settings.setKeyedAccessor(std::optional<DatafileSettingsData>(), u"Nested"_s);

    QVERIFY(settings.storedDictionary().isEmpty());
}

void KeyedDataTest::whatAnAccessorHandsOutIsACopy()
{
    DatafileSettingsData settings;
    settings.setArray(plist::Array{1}, u"Array"_s);
    auto array = settings.arrayForKey(u"Array"_s, {});
    array->append(2);
    DatafileSettingsData copy = settings;
    copy.setBool(true, u"Flag"_s);

    QVERIFY(settings.arrayForKey(u"Array"_s, {}) == plist::Array{1});
    QVERIFY(!settings.settingExistsForKey(u"Flag"_s));
    QVERIFY(!settings.arrayForKey(u"Flag"_s, {}));
}

void KeyedDataTest::nestedAccessorsAreStampedAndRefusedWhenTooNew()
{
    DatafileSettingsData inner;
    inner.setSyncID(u"S"_s);
    DatafileSettingsData outer;
    outer.setKeyedAccessor(inner, u"Criteria"_s);
    QVERIFY(outer.objectForKey(u"Criteria"_s)
            == Value(Dictionary{{u"SyncID"_s, u"S"_s}, {u"DataFormat"_s, 1}}));
    QCOMPARE(outer.criteria<DatafileSettingsData>().syncID(), u"S"_s);
    QVERIFY(outer.keyedAccessorForKey<DatafileSettingsData>(u"Absent"_s));

    outer.setDictionary(Dictionary{{u"DataFormat"_s, 9}, {u"SyncID"_s, u"S"_s}}, u"Criteria"_s);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"format is 9, .* format 1\\."_s));
    QVERIFY(outer.criteria<DatafileSettingsData>().storedDictionary().isEmpty());
}

namespace {

/// A stored record as no version of ours would write it.
Dictionary foreignRecord()
{
    return {{u"NeedsSync"_s, u"YES"_s},
            {u"Unknown"_s, plist::Array{1, u"two"_s}},
            {u"RecordLocked"_s, 0},
            {u"RecordName"_s, 12},
            {u"RecordIdentifier"_s, u"A"_s},
            {u"IsSum"_s, false},
            {u"RecordWasLocked"_s, true},
            {u"RecordCreatedDate"_s, Date{5}},
            {u"RecordModifiedDate"_s, u"yesterday"_s},
            {u"RecordViewedDate"_s, Date{7.25}},
            {u"RecordCreatedBy"_s, u"Ann"_s},
            {u"RecordModifiedBy"_s, u"Bob"_s},
            {u"RecordViewedBy"_s, u""_s},
            {u"Fields"_s, Dictionary{{u"F1"_s, u"one"_s}, {u"F2"_s, 2}, {u"F3"_s, plist::Array()}}},
            {u"TextString"_s, u"text"_s},
            {u"TextRTFD"_s, QByteArray("rtfd")}};
}

} // namespace

void KeyedDataTest::aRecordWritesBackWhatItDoesNotChange()
{
    RecordData record(foreignRecord(), g_environment);
    QVERIFY(record.needsSync());
    QVERIFY(!record.recordLocked());
    QCOMPARE(record.name(), u"12"_s);
    QCOMPARE(record.modifiedDate(), Date());
    QVERIFY(record.dictionary() == foreignRecord());

    record.setNeedsSync(true); // as it was: "YES" stays
    record.setRecordLocked(true);
    Dictionary expected = foreignRecord();
    expected.insert(u"RecordLocked"_s, true);
    QVERIFY(record.dictionary() == expected);
    QCOMPARE(record.dictionary().keys(), foreignRecord().keys());
    QVERIFY(record.savedData() == foreignRecord());
}

void KeyedDataTest::aRecordThatLacksKeysTakesThoseOfANewOne()
{
    const RecordData record({{u"RecordName"_s, u"Name"_s}, {u"RecordCreatedDate"_s, Date{5}}}, g_environment);

    QCOMPARE(record.identifier(), u"ID-%1"_s.arg(*g_environment.made));
    QCOMPARE(record.createdDate(), Date{5});
    QCOMPARE(record.viewedDate(), g_environment.now());
    QCOMPARE(record.modifiedBy(), u"Tester"_s);
    QCOMPARE(record.description(), u"RecordData %1: name = Name"_s.arg(record.identifier()));
    const Dictionary stored = record.dictionary();
    QCOMPARE(stored.size(), 15);
    QVERIFY(stored.value(u"IsSum"_s) == Value(false));
    QVERIFY(stored.value(u"TextRTFD"_s) == Value(QByteArray()));
    QVERIFY(!RecordData(g_environment).savedData());
}

void KeyedDataTest::aCompleteRecordAsksNothingOfTheEnvironment()
{
    const int before = *g_environment.made;
    const RecordData record(foreignRecord(), g_environment);
    QCOMPARE(*g_environment.made, before);
}

void KeyedDataTest::modifiedAsksForSynchronizationAndViewedDoesNot()
{
    RecordData record(g_environment);
    *g_environment.seconds += 60;
    record.viewed(g_environment);
    QCOMPARE(record.viewedDate(), g_environment.now());
    QVERIFY(!record.needsSync());
    QVERIFY(record.modifiedDate() < g_environment.now());

    record.modified(g_environment);
    QCOMPARE(record.modifiedDate(), g_environment.now());
    QVERIFY(record.needsSync());
    QVERIFY(record.createdDate() < g_environment.now());
}

void KeyedDataTest::lockingRemembersTheStateBefore()
{
    RecordData record(g_environment);
    QVERIFY(record.toggleRecordLocked());
    QVERIFY(record.recordLocked());
    QVERIFY(!record.recordWasLocked());
    QVERIFY(!record.toggleRecordLocked());
    QVERIFY(record.recordWasLocked());
}

void KeyedDataTest::fieldContentsKeepForeignValuesAroundAnEdit()
{
    RecordData record(foreignRecord(), g_environment);
    QCOMPARE(record.fieldValue(u"F2"_s), u"2"_s);
    QVERIFY(record.fieldValue(u"F3"_s).isEmpty() && !record.fieldValue(u"F3"_s).isNull());
    QVERIFY(record.fieldValue(u"F4"_s).isNull());

    RecordData copy = record;
    copy.setFieldValue(u"new"_s, u"F1"_s);
    copy.setFieldValue(QString(), u"F2"_s);
    QVERIFY(copy.fields() == (Dictionary{{u"F1"_s, u"new"_s}, {u"F3"_s, plist::Array()}}));
    QCOMPARE(record.fieldValue(u"F1"_s), u"one"_s);

    // As the format's first platform shows them, without the digits that only tell neighbours apart.
    const RecordData numbers({{u"Fields"_s, Dictionary{{u"F1"_s, 1.1}, {u"F2"_s, 0.1F}}}}, g_environment);
    QCOMPARE(numbers.fieldValue(u"F1"_s), u"1.1"_s);
    QCOMPARE(numbers.fieldValue(u"F2"_s), u"0.1"_s);

    const RecordData odd({{u"Fields"_s, u"none"_s}}, g_environment);
    QVERIFY(odd.fieldValue(u"F1"_s).isNull());
    QVERIFY(odd.dictionary().value(u"Fields"_s) == Value(u"none"_s));
}

void KeyedDataTest::contentOfAFieldIsThatOfTheFirstFieldOfTheName()
{
    DatafileSettingsData settings;
    settings.setFields({{u"F3"_s, u"Empty"_s}, {u"F1"_s, u"Name"_s}, {u"F2"_s, u"Name"_s}});
    const RecordData record(foreignRecord(), g_environment);

    QCOMPARE(contentOfField(u"Name"_s, record, settings), u"one"_s);
    QVERIFY(contentOfField(u"Empty"_s, record, settings).isNull());
    QVERIFY(contentOfField(u"Unknown"_s, record, settings).isNull());
}

void KeyedDataTest::aCollectionKeepsTheOrderAndTheOuterKeys()
{
    const Dictionary stored{{u"Z"_s, foreignRecord()}, {u"A"_s, Dictionary{{u"RecordIdentifier"_s, u"B"_s}}}};
    auto records = DatafileRecordsData::collectionWithDictionary(stored, g_environment);
    records.setRecord(std::make_unique<RecordData>(g_environment), u"M"_s);
    records.setRecord(nullptr, u"Null"_s);
    records.setRecord(std::make_unique<RecordData>(g_environment), u""_s);

    QCOMPARE(records.allIdentifiers(), (QStringList{u"Z"_s, u"A"_s, u"M"_s}));
    const RecordData *misnamed = records.recordForIdentifier(u"A"_s);
    QCOMPARE(records.identifierForRecord(misnamed), u"A"_s);
    QCOMPARE(DatafileRecordsData::identifiersForRecords(QList<const RecordData *>{misnamed}),
             QStringList{u"B"_s});

    QCOMPARE(records.description(), u"DatafileRecordsData: contains 3 records"_s);

    records.removeRecord(misnamed);
    QVERIFY(!records.recordForIdentifier(u"A"_s));
    const auto taken = records.takeRecordForIdentifier(u"Z"_s);
    QVERIFY(taken->dictionary() == foreignRecord());
    QCOMPARE(records.count(), 1);
}

void KeyedDataTest::entriesThatAreNoRecordsAreKept()
{
    const Dictionary stored{{u"Odd"_s, u"text"_s}, {u"A"_s, foreignRecord()}};
    const auto records = DatafileRecordsData::collectionWithDictionary(stored, g_environment);

    QCOMPARE(records.count(), 1);
    QVERIFY(records.dictionary() == stored);
}

void KeyedDataTest::unknownIdentifiersAreAProgrammingError()
{
    const DatafileRecordsData records;
    QVERIFY_THROWS_EXCEPTION(InternalInconsistency, records.recordsForIdentifiers({u"A"_s}));
}

QTEST_GUILESS_MAIN(KeyedDataTest)
#include "KeyedDataTest.moc"
