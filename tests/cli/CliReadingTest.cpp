// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"

using namespace tavrin;

class CliReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrongUsageIsToldFromFailure_data();
    void wrongUsageIsToldFromFailure();
    void everyCommandHasHelp_data();
    void everyCommandHasHelp();
    void infoSaysWhatASampleHolds();
    void listNumbersTheSelectedRecordsOnly();
    void listGivesTheFieldsAskedForInTheirOrder();
    void columnsStayAlignedWithWideAndHostileTexts();
    void showTakesNumbersAndIdentifiers_data();
    void showTakesNumbersAndIdentifiers();
    void showGivesTheRichTextAsRtf_data();
    void showGivesTheRichTextAsRtf();
    void settingsGiveEveryStoredKey();
    void aResultThatCannotBeWrittenIsAFailure();

private:
    DatafileFixture g_files;
};

void CliReadingTest::wrongUsageIsToldFromFailure_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");

    const QString sample = samplePath(u"Library.tv3"_s);
    QTest::newRow("nothing") << QStringList() << 2;
    QTest::newRow("unknown command") << QStringList{u"frobnicate"_s} << 2;
    QTest::newRow("no file") << QStringList{u"info"_s} << 2;
    QTest::newRow("too many files") << QStringList{u"info"_s, sample, sample} << 2;
    QTest::newRow("unknown option") << QStringList{u"info"_s, sample, u"--jsn"_s} << 2;
    QTest::newRow("value missing") << QStringList{u"list"_s, sample, u"--fields"_s} << 2;
    QTest::newRow("value unwanted") << QStringList{u"info"_s, sample, u"--json=1"_s} << 2;
    QTest::newRow("option twice") << QStringList{u"list"_s, sample, u"--fields=Title"_s, u"--fields=Year"_s}
                                  << 2;
    QTest::newRow("unknown kind") << QStringList{u"info"_s, sample, u"--kind"_s, u"desktop"_s} << 2;
    QTest::newRow("no such file") << QStringList{u"info"_s, u"/nonexistent/a.tv3"_s} << 1;
    QTest::newRow("not a datafile") << QStringList{u"list"_s, QString::fromUtf8(__FILE__)} << 1;
    QTest::newRow("unknown field") << QStringList{u"list"_s, sample, u"--fields"_s, u"Nothing"_s} << 1;
    QTest::newRow("an operand with a hyphen") << QStringList{u"info"_s, u"--"_s, u"-nothing.tv3"_s} << 1;
}

void CliReadingTest::wrongUsageIsToldFromFailure()
{
    QFETCH(QStringList, arguments);

    const CliOutcome outcome = runCli(arguments);

    QTEST(outcome.status, "status");
    QVERIFY(outcome.messages.startsWith("tavrin-cli: "));
    QCOMPARE(outcome.result, QByteArray());
}

void CliReadingTest::everyCommandHasHelp_data()
{
    QTest::addColumn<QString>("command");
    for (const char *name : {"info", "check", "list", "show", "new", "save", "set", "settings"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void CliReadingTest::everyCommandHasHelp()
{
    QFETCH(QString, command);

    const CliOutcome outcome = runCli({command, u"--help"_s});

    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.result.startsWith("Usage: tavrin-cli " + command.toUtf8()));
    QVERIFY(outcome.result.contains("--json"));
    QVERIFY(runCli({u"--help"_s}).result.contains("\n  " + command.toUtf8() + ' '));
}

void CliReadingTest::infoSaysWhatASampleHolds()
{
    const QJsonObject book = runCli({u"info"_s, samplePath(u"Address Book.tv3"_s), u"--json"_s}).object();
    const QJsonObject recipes = runCli({u"info"_s, samplePath(u"Recipes.tvk"_s), u"--json"_s}).object();

    QCOMPARE(book[u"kind"_s].toString(), u"pro"_s);
    QCOMPARE(book[u"format"_s].toString(), u"xml"_s);
    QCOMPARE(book[u"records"_s].toInt(), 67);
    QCOMPARE(book[u"catalog"_s].toInt(), 67);
    QCOMPARE(book[u"selected"_s].toInt(), 62);
    QCOMPARE(book[u"fields"_s].toArray().first().toObject()[u"name"_s].toString(), u"Name"_s);
    QCOMPARE(book[u"textName"_s].toString(), u"Address and Notes"_s);
    QCOMPARE(book[u"catalogMatches"_s].toBool(), true);
    QCOMPARE(recipes[u"kind"_s].toString(), u"mobile"_s);

    const QString missing = g_files.make(u"missing.tv3"_s, [] {
        plist::Dictionary root = DatafileFixture::root(3);
        root.insert(u"Catalog"_s, plist::Array());
        return root;
    }());
    const QJsonObject info = runCli({u"info"_s, missing, u"--json"_s}).object();
    QCOMPARE(info[u"catalog"_s].toInt(-1), 0);
    QCOMPARE(info[u"catalogMatches"_s].toBool(true), false);
}

void CliReadingTest::listNumbersTheSelectedRecordsOnly()
{
    // The catalog's order is r2, r1, r0.
    const QString path = g_files.make(u"a.tv3"_s, withOmitted(DatafileFixture::root(3), 1));

    const QJsonArray selected = runCli({u"list"_s, path, u"--json"_s}).array();
    const QJsonArray all = runCli({u"list"_s, path, u"--json"_s, u"--all"_s}).array();

    QCOMPARE(selected.size(), 2);
    QCOMPARE(selected[0][u"identifier"_s].toString(), u"r2"_s);
    QCOMPARE(selected[1][u"identifier"_s].toString(), u"r0"_s);
    QCOMPARE(selected[1][u"number"_s].toInt(), 2);
    QCOMPARE(all.size(), 3);
    QVERIFY(all[1][u"number"_s].isNull());
    QCOMPARE(all[1][u"selected"_s].toBool(true), false);
    QCOMPARE(all[2][u"number"_s].toInt(), 2);
    QCOMPARE(all[2][u"values"_s].toArray(), QJsonArray{u"value 0"_s});
    QCOMPARE(all[2][u"text"_s].toString(), u"text 0"_s);
    QVERIFY(runCli({u"list"_s, g_files.make(u"none.tv3"_s, DatafileFixture::root(0)), u"--json"_s})
                .array()
                .isEmpty());
}

void CliReadingTest::listGivesTheFieldsAskedForInTheirOrder()
{
    const QString path = samplePath(u"Library.tv3"_s);
    const QString byIdentifier = u"Year,id:E5E5E6F3-EEFC-4B86-A613-57348471ACDC,Text"_s;

    const QJsonArray records = runCli({u"list"_s, path, u"--json"_s, u"--fields"_s, byIdentifier}).array();

    const QJsonObject record =
        runCli({u"show"_s, path, u"615378AD-9867-4664-B350-896F6C87944E"_s, u"--json"_s}).object();
    const QJsonArray expected{u"1987"_s, u"The Salt Roads of Varn"_s, record[u"text"_s]};
    QVERIFY(std::any_of(records.begin(), records.end(), [&](const QJsonValue &value) {
        return value[u"values"_s].toArray() == expected;
    }));
}

void CliReadingTest::columnsStayAlignedWithWideAndHostileTexts()
{
    const plist::Dictionary hostile{{u"f"_s, u"red \x1b[31m\nline"_s}};
    const plist::Dictionary wide{{u"f"_s, u"漢字 e\u0301"_s}};
    plist::Dictionary root = withRecordValue(DatafileFixture::root(3), u"r1"_s, u"Fields"_s, wide);
    root = withRecordValue(root, u"r0"_s, u"Fields"_s, hostile);
    const plist::Dictionary endless{{u"f"_s, QString(100'000, u'x')}};
    root = withRecordValue(root, u"r2"_s, u"Fields"_s, endless);

    const CliOutcome outcome =
        runCli({u"list"_s, g_files.make(u"a.tv3"_s, root), u"--fields"_s, u"Field,Text"_s});

    const QStringList lines = QString::fromUtf8(outcome.result).split(u'\n');
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines[1], u"1  "_s + QString(31, u'x') + u"…  text 2"_s);
    QCOMPARE(lines[2], u"2  漢字 e\u0301"_s + QString(32 - 6, u' ') + u"  text 1"_s);
    QVERIFY(lines[3].startsWith(u"3  red  [31m line "_s));
}

void CliReadingTest::showTakesNumbersAndIdentifiers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("identifier");

    QTest::newRow("first number") << u"1"_s << u"r2"_s;
    QTest::newRow("number after an omitted record") << u"2"_s << u"r0"_s;
    QTest::newRow("identifier of an omitted record") << u"r1"_s << u"r1"_s;
    QTest::newRow("marked identifier") << u"id:r0"_s << u"r0"_s;
    QTest::newRow("zero") << u"0"_s << QString();
    QTest::newRow("number past the end") << u"3"_s << QString();
    QTest::newRow("number beyond all numbers") << u"99999999999999999999"_s << QString();
    QTest::newRow("unknown identifier") << u"r9"_s << QString();
}

void CliReadingTest::showTakesNumbersAndIdentifiers()
{
    QFETCH(QString, name);
    QFETCH(QString, identifier);
    const QString path = g_files.make(u"a.tv3"_s, withOmitted(DatafileFixture::root(3), 1));

    const CliOutcome outcome = runCli({u"show"_s, path, name, u"--json"_s});

    QCOMPARE(outcome.status, identifier.isNull() ? 1 : 0);
    QCOMPARE(outcome.object()[u"identifier"_s].toString(), identifier);
}

void CliReadingTest::showGivesTheRichTextAsRtf_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("rtf");

    const QByteArray flat = QByteArray::fromHex("7274666400000000030000000200000007000000545854"
                                                "2e727466010000002e170000002b000000010000000f00"
                                                "00007b5c727466315c616e73692068697d010000002300"
                                                "0000010000000700000054585"
                                                "42e7274661000000000000000b60100000000000000000000");
    QTest::newRow("none") << QByteArray() << QString();
    QTest::newRow("flat stream") << flat << uR"({\rtf1\ansi hi})"_s;
    QTest::newRow("plain RTF") << QByteArray(R"({\rtf1 x})") << uR"({\rtf1 x})"_s;
    QTest::newRow("stream cut short") << flat.chopped(1) << QString();
    QTest::newRow("stream that goes on") << flat + 'x' << QString();
    QTest::newRow("endless count") << QByteArray::fromHex("727466640000000003000000ffffffff") << QString();
}

void CliReadingTest::showGivesTheRichTextAsRtf()
{
    QFETCH(QByteArray, stored);
    const plist::Dictionary root = withRecordValue(DatafileFixture::root(1), u"r0"_s, u"TextRTFD"_s, stored);

    const QJsonObject record =
        runCli({u"show"_s, g_files.make(u"a.tv3"_s, root), u"1"_s, u"--json"_s}).object();

    QVERIFY(record.contains(u"rtf"_s));
    QTEST(record[u"rtf"_s].toString(), "rtf");
}

void CliReadingTest::settingsGiveEveryStoredKey()
{
    plist::Dictionary root = DatafileFixture::root(1);
    const plist::Dictionary ours{{u"Data"_s, QByteArray("\0\xff", 2)}, {u"Date"_s, Date{0}}};
    root = DatafileFixture::withSetting(root, u"OurOwn"_s, ours);
    root = DatafileFixture::withSetting(root, u"ReadOnly"_s, u"YES"_s);

    const QJsonObject settings =
        runCli({u"settings"_s, g_files.make(u"a.tv3"_s, root), u"--json"_s}).object();

    QCOMPARE(settings[u"ReadOnly"_s], QJsonValue(u"YES"_s));
    QCOMPARE(settings[u"DataFormat"_s], QJsonValue(1));
    QCOMPARE(settings[u"OurOwn"_s],
             QJsonValue(QJsonObject{{u"Data"_s, u"AP8="_s}, {u"Date"_s, u"2001-01-01T00:00:00Z"_s}}));
    QCOMPARE(settings.size(), 4);
}

void CliReadingTest::aResultThatCannotBeWrittenIsAFailure()
{
    QFile full(u"/dev/full"_s);
    QBuffer messages;
    if (!full.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        QSKIP("there is no such device here");
    QVERIFY(messages.open(QIODevice::WriteOnly));

    const int status =
        Cli::run({u"info"_s, samplePath(u"Library.tv3"_s)}, full, messages, DatafileFixture::services());

    QCOMPARE(status, 1);
    QVERIFY(messages.data().startsWith("tavrin-cli: "));
}

QTEST_GUILESS_MAIN(CliReadingTest)
#include "CliReadingTest.moc"
