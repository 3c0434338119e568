// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"
#include "document/LockFile.h"
#include "plist/Writer.h"

using namespace tavrin;

/// What forbids the writing in place.
enum class Obstacle { ReadOnlySetting, LockFile, WriteProtection };

class CliWritingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newMakesADatafileOnce();
    void namesOfFieldsMayHoldCommas();
    void changesNeedAPlaceToGoTo();
    void setStoresSingleLinesAndStampsTheRecord();
    void whatSetRefusesIsNotWritten_data();
    void whatSetRefusesIsNotWritten();
    void formattedTextIsReplacedOnlyOnRequest();
    void whatForbidsWritingInPlaceLetsCopiesBe_data();
    void whatForbidsWritingInPlaceLetsCopiesBe();
    void anotherFileIsReplacedOnlyByForce();
    void sharedDatafilesAreLockedOnlyMeanwhile();
    void settingsTakeTheirTypeFromWhatIsKnown_data();
    void settingsTakeTheirTypeFromWhatIsKnown();
    void aDatafileCanBeMarkedReadOnlyInPlace();
    void theFormOfTheFileStays();

private:
    plist::Dictionary read(const QString &path) const;

    DatafileFixture g_files;
};

plist::Dictionary CliWritingTest::read(const QString &path) const
{
    return plist::readDictionary(DatafileFixture::contentOf(path)).value_or(plist::Dictionary());
}

void CliWritingTest::newMakesADatafileOnce()
{
    const QString path = g_files.path(u"new.tvk"_s);
    const QStringList arguments{
        u"new"_s, path, u"--fields"_s, u"Name,City"_s, u"--text-name"_s, u"Notes"_s, u"--json"_s};

    QCOMPARE(runCli({u"new"_s, path}).status, 2);
    QCOMPARE(runCli({u"new"_s, path, u"--fields"_s, u"A,,B"_s}).status, 2);
    const QJsonObject info = runCli(arguments).object();

    QCOMPARE(info[u"kind"_s].toString(), u"mobile"_s);
    QCOMPARE(info[u"records"_s].toInt(), 1);
    QCOMPARE(info[u"selected"_s].toInt(), 1);
    QCOMPARE(info[u"fields"_s].toArray().size(), 2);
    QCOMPARE(info[u"textName"_s].toString(), u"Notes"_s);
    QCOMPARE(runCli({u"check"_s, path}).status, 0);
    QCOMPARE(runCli(arguments).status, 1);
    QCOMPARE(runCli(arguments + QStringList{u"--force"_s}).status, 0);
}

void CliWritingTest::namesOfFieldsMayHoldCommas()
{
    const QString path = g_files.path(u"commas.tv3"_s);

    QCOMPARE(runCli({u"new"_s, path, u"--fields"_s, uR"(City\, State, A\\B)"_s}).status, 0);

    const QJsonArray list =
        runCli({u"list"_s, path, u"--json"_s, u"--fields"_s, uR"(A\\B,City\, State)"_s}).array();
    QCOMPARE(list[0][u"values"_s].toArray().size(), 2);
}

void CliWritingTest::changesNeedAPlaceToGoTo()
{
    const QString path = g_files.make(u"place.tv3"_s, DatafileFixture::root(1));
    const QByteArray before = DatafileFixture::contentOf(path);
    const QString output = g_files.path(u"place2.tv3"_s);

    QCOMPARE(runCli({u"set"_s, path, u"1"_s, u"--set"_s, u"Field=x"_s}).status, 2);
    QCOMPARE(runCli({u"set"_s, path, u"1"_s, u"--text=x"_s, u"-o"_s, output, u"--in-place"_s}).status, 2);
    QCOMPARE(runCli({u"set"_s, path, u"1"_s, u"--set"_s, u"Field"_s, u"--in-place"_s}).status, 2);
    QCOMPARE(runCli({u"set"_s, path, u"1"_s, u"--in-place"_s}).status, 2);
    QCOMPARE(runCli({u"save"_s, path}).status, 2);
    QCOMPARE(runCli({u"settings"_s, path, u"--set"_s, u"Mode=List"_s}).status, 2);
    QCOMPARE(runCli({u"settings"_s, path, u"--in-place"_s}).status, 2);

    QCOMPARE(DatafileFixture::contentOf(path), before);
    QVERIFY(!QFile::exists(output));
}

void CliWritingTest::setStoresSingleLinesAndStampsTheRecord()
{
    const QString path = g_files.make(u"set.tv3"_s, withOmitted(DatafileFixture::root(3), 1));

    const CliOutcome outcome = runCli({u"set"_s,
                                       path,
                                       u"r1"_s,
                                       u"--set"_s,
                                       u"Field=a=b\r\n\tc\u2028d\u2029e"_s,
                                       u"--set"_s,
                                       u"Text=one\ntwo"_s,
                                       u"--in-place"_s,
                                       u"--json"_s});

    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.object()[u"values"_s].toArray(), QJsonArray{u"a=b   c d e"_s});
    const auto document = DatafileFixture::opened(path);
    const RecordData &record = *document->datafileRecords().recordForIdentifier(u"r1"_s);
    QCOMPARE(record.fieldValue(u"f"_s), u"a=b   c d e"_s);
    QCOMPARE(record.textString(), u"one\ntwo"_s);
    QCOMPARE(record.modifiedBy(), u"Test Person"_s);
    QVERIFY(record.needsSync());
    // Neither the selection nor another record changes.
    QCOMPARE(read(path).value(u"Catalog"_s), withOmitted(DatafileFixture::root(3), 1).value(u"Catalog"_s));
    QCOMPARE(DatafileFixture::storedValue(path, u"r0"_s), u"value 0"_s);
}

void CliWritingTest::whatSetRefusesIsNotWritten_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("locked record") << QStringList{u"r0"_s, u"--set"_s, u"id:f=x"_s};
    QTest::newRow("ambiguous name") << QStringList{u"r1"_s, u"--set"_s, u"Field=x"_s};
    QTest::newRow("unknown field") << QStringList{u"r1"_s, u"--set"_s, u"id:f=x"_s, u"--set"_s, u"Fild=x"_s};
    QTest::newRow("unknown identifier") << QStringList{u"r1"_s, u"--set"_s, u"id:=x"_s};
    QTest::newRow("unknown record") << QStringList{u"r7"_s, u"--set"_s, u"id:f=x"_s};
}

void CliWritingTest::whatSetRefusesIsNotWritten()
{
    QFETCH(QStringList, arguments);
    const plist::Array fields{plist::Dictionary{{u"Identifier"_s, u"f"_s}, {u"Name"_s, u"Field"_s}},
                              plist::Dictionary{{u"Identifier"_s, u"g"_s}, {u"Name"_s, u"Field"_s}}};
    const plist::Dictionary root =
        withRecordValue(DatafileFixture::root(2), u"r0"_s, u"RecordLocked"_s, true);
    const QString path =
        g_files.make(u"refused.tv3"_s, DatafileFixture::withSetting(root, u"Fields"_s, fields));
    const QByteArray before = DatafileFixture::contentOf(path);

    const CliOutcome outcome = runCli(QStringList{u"set"_s, path} + arguments + QStringList{u"--in-place"_s});

    QCOMPARE(outcome.status, 1);
    QVERIFY(!outcome.messages.isEmpty());
    QCOMPARE(DatafileFixture::contentOf(path), before);
}

void CliWritingTest::formattedTextIsReplacedOnlyOnRequest()
{
    const QByteArray formatted("{\\rtf1 old}");
    const plist::Dictionary root =
        withRecordValue(DatafileFixture::root(1), u"r0"_s, u"TextRTFD"_s, formatted);
    const QString path = g_files.make(u"formatted.tv3"_s, root);
    const QString mobile = g_files.make(u"formatted.tvk"_s, root);
    const auto storedRichText = [](const QString &file) {
        return DatafileFixture::opened(file)->datafileRecords().recordForIdentifier(u"r0"_s)->textRTFD();
    };
    const QStringList arguments{u"1"_s, u"--text"_s, u"new"_s, u"--in-place"_s};

    QCOMPARE(runCli(QStringList{u"set"_s, path} + arguments).status, 1);
    QCOMPARE(runCli(QStringList{u"set"_s, path, u"--set"_s, u"Field=x"_s, u"1"_s, u"--in-place"_s}).status,
             0);
    QCOMPARE(storedRichText(path), formatted);
    QCOMPARE(runCli(QStringList{u"set"_s, path, u"--plain-text"_s} + arguments).status, 0);
    QCOMPARE(storedRichText(path), QByteArray());
    // The mobile kind shows the plain text in any case.
    QCOMPARE(runCli(QStringList{u"set"_s, mobile} + arguments).status, 0);
    QCOMPARE(storedRichText(mobile), formatted);
}

void CliWritingTest::whatForbidsWritingInPlaceLetsCopiesBe_data()
{
    QTest::addColumn<int>("obstacle");
    QTest::newRow("setting") << static_cast<int>(Obstacle::ReadOnlySetting);
    QTest::newRow("lock file") << static_cast<int>(Obstacle::LockFile);
    QTest::newRow("permissions") << static_cast<int>(Obstacle::WriteProtection);
}

void CliWritingTest::whatForbidsWritingInPlaceLetsCopiesBe()
{
    QFETCH(int, obstacle);
    const DatafileFixture files;
    const bool isSetting = obstacle == static_cast<int>(Obstacle::ReadOnlySetting);
    const QString path = files.make(
        u"a.tv3"_s, DatafileFixture::withSetting(DatafileFixture::root(1), u"ReadOnly"_s, isSetting));
    if (obstacle == static_cast<int>(Obstacle::LockFile))
        files.make(u"a.tv3.lock"_s, QByteArray("/opt/other/program"));
    if (obstacle == static_cast<int>(Obstacle::WriteProtection))
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadUser));
    const QByteArray before = DatafileFixture::contentOf(path);
    const QString output = files.path(u"b.tv3"_s);
    const QStringList change{u"set"_s, path, u"1"_s, u"--set"_s, u"Field=x"_s};

    QCOMPARE(runCli(change + QStringList{u"--in-place"_s}).status, 1);
    QCOMPARE(runCli(change + QStringList{u"-o"_s, path, u"--force"_s}).status, 1);
    QCOMPARE(runCli({u"settings"_s, path, u"--set"_s, u"Mode=List"_s, u"--in-place"_s}).status, 1);
    QCOMPARE(runCli(change + QStringList{u"-o"_s, output}).status, 0);

    QCOMPARE(DatafileFixture::contentOf(path), before);
    QCOMPARE(DatafileFixture::storedValue(output, u"r0"_s), u"x"_s);
    QCOMPARE(LockFile::exists(path), obstacle == static_cast<int>(Obstacle::LockFile));
}

void CliWritingTest::anotherFileIsReplacedOnlyByForce()
{
    const QString path = g_files.make(u"force.tv3"_s, DatafileFixture::root(1));
    const QString other = g_files.make(u"other.tv3"_s, QByteArray("precious"));

    QCOMPARE(runCli({u"save"_s, path, u"-o"_s, other}).status, 1);
    QCOMPARE(DatafileFixture::contentOf(other), QByteArray("precious"));
    QCOMPARE(runCli({u"save"_s, path, u"-o"_s, other, u"--force"_s}).status, 0);
    QCOMPARE(read(other).size(), 3);
    QCOMPARE(runCli({u"save"_s, path, u"-o"_s, path}).status, 0);
}

void CliWritingTest::sharedDatafilesAreLockedOnlyMeanwhile()
{
    const DatafileFixture files;
    const QString path = files.make(
        u"a.tv3"_s, DatafileFixture::withSetting(DatafileFixture::root(1), u"NetworkShared"_s, true));

    QCOMPARE(runCli({u"set"_s, path, u"1"_s, u"--set"_s, u"Field=x"_s, u"--in-place"_s}).status, 0);
    QCOMPARE(runCli({u"set"_s, path, u"9"_s, u"--set"_s, u"Field=x"_s, u"--in-place"_s}).status, 1);

    QCOMPARE(files.names(), QStringList{u"a.tv3"_s});
    QCOMPARE(DatafileFixture::storedValue(path, u"r0"_s), u"x"_s);
}

void CliWritingTest::settingsTakeTheirTypeFromWhatIsKnown_data()
{
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<QJsonValue>("stored"); // undefined: refused

    const QJsonValue refused(QJsonValue::Undefined);
    QTest::newRow("boolean") << u"AutoSaveChanges=yes"_s << QJsonValue(true);
    QTest::newRow("boolean that is a number") << u"AutoSaveChanges=1"_s << refused;
    QTest::newRow("integer") << u"OpenToRecord=-2"_s << QJsonValue(-2);
    QTest::newRow("integer with a fraction") << u"OpenToRecord=1.5"_s << refused;
    QTest::newRow("integer beyond 32 bits") << u"OpenToRecord=4294967297"_s << refused;
    QTest::newRow("real") << u"BVTopMargin=36.5"_s << QJsonValue(36.5);
    QTest::newRow("real without end") << u"BVTopMargin=inf"_s << refused;
    QTest::newRow("string with equals sign") << u"TextName=a=b"_s << QJsonValue(u"a=b"_s);
    QTest::newRow("empty string") << u"Munge="_s << QJsonValue(u""_s);
    QTest::newRow("stored as text, known as boolean") << u"HideMargins=NO"_s << QJsonValue(false);
    QTest::newRow("ours, stored") << u"OurNumber=8589934592"_s << QJsonValue(qint64{8589934592});
    QTest::newRow("ours, not stored") << u"OurOther=1"_s << refused;
    QTest::newRow("definitions") << u"Fields=x"_s << refused;
    QTest::newRow("criteria, not stored") << u"Criteria=x"_s << refused;
    QTest::newRow("format") << u"DataFormat=1"_s << refused;
}

void CliWritingTest::settingsTakeTheirTypeFromWhatIsKnown()
{
    QFETCH(QString, assignment);
    QFETCH(QJsonValue, stored);
    plist::Dictionary root = DatafileFixture::withSetting(DatafileFixture::root(1), u"OurNumber"_s, 1);
    root = DatafileFixture::withSetting(root, u"HideMargins"_s, u"YES"_s);
    const QString path = g_files.make(u"settings.tv3"_s, root);
    const QByteArray before = DatafileFixture::contentOf(path);

    const CliOutcome outcome =
        runCli({u"settings"_s, path, u"--set"_s, assignment, u"--in-place"_s, u"--json"_s});

    QCOMPARE(outcome.status, stored.isUndefined() ? 1 : 0);
    if (stored.isUndefined())
        QCOMPARE(DatafileFixture::contentOf(path), before);
    else
        QCOMPARE(runCli({u"settings"_s, path, u"--json"_s}).object()[assignment.section(u'=', 0, 0)], stored);
}

void CliWritingTest::aDatafileCanBeMarkedReadOnlyInPlace()
{
    const QString path = g_files.make(u"mark.tv3"_s, DatafileFixture::root(1));

    QCOMPARE(runCli({u"settings"_s, path, u"--set"_s, u"ReadOnly=YES"_s, u"--in-place"_s}).status, 0);

    QVERIFY(runCli({u"info"_s, path, u"--json"_s}).object()[u"readOnly"_s].toBool());
}

void CliWritingTest::theFormOfTheFileStays()
{
    const QString path = g_files.make(u"form.tv3"_s, plist::toBinary(DatafileFixture::root(2)));
    const auto format = [&path] {
        return runCli({u"info"_s, path, u"--json"_s}).object()[u"format"_s].toString();
    };

    QCOMPARE(runCli({u"set"_s, path, u"1"_s, u"--set"_s, u"Field=x"_s, u"--in-place"_s}).status, 0);
    QCOMPARE(format(), u"binary"_s);
    QCOMPARE(runCli({u"settings"_s, path, u"--set"_s, u"Mode=List"_s, u"--in-place"_s}).status, 0);
    QCOMPARE(format(), u"binary"_s);
    QCOMPARE(runCli({u"save"_s, path, u"--format"_s, u"xml"_s, u"--in-place"_s}).status, 0);
    QCOMPARE(format(), u"xml"_s);
}

QTEST_GUILESS_MAIN(CliWritingTest)
#include "CliWritingTest.moc"
