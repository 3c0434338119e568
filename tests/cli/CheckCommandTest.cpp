// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"

using namespace tavrin;

class CheckCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesHaveNoFaults_data();
    void samplesHaveNoFaults();
    void everyFaultIsReported_data();
    void everyFaultIsReported();
    void repairMakesTheCatalogAnew();
    void repairLeavesASoundFileAlone();
    void whatCannotBeRepairedIsNotWritten();

private:
    static plist::Array entries(const QStringList &identifiers);
    static plist::Dictionary withCatalog(const QStringList &identifiers);
    static QStringList codesOf(const CliOutcome &outcome);

    DatafileFixture g_files;
};

plist::Array CheckCommandTest::entries(const QStringList &identifiers)
{
    plist::Array catalog;
    for (const QString &identifier : identifiers)
        catalog.append(plist::Dictionary{
            {u"CurrentlySelected"_s, true}, {u"Identifier"_s, identifier}, {u"PreviouslySelected"_s, true}});
    return catalog;
}

/// Records r0 and r1 with a catalog of these entries.
plist::Dictionary CheckCommandTest::withCatalog(const QStringList &identifiers)
{
    plist::Dictionary root = DatafileFixture::root(2);
    root.insert(u"Catalog"_s, entries(identifiers));
    return root;
}

QStringList CheckCommandTest::codesOf(const CliOutcome &outcome)
{
    QStringList codes;
    for (const QJsonValue &fault : outcome.object()[u"faults"_s].toArray())
        codes.append(fault[u"code"_s].toString());
    codes.sort();
    return codes;
}

void CheckCommandTest::samplesHaveNoFaults_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"Address Book.tv3", "Library.tv3", "Recipes.tvk"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void CheckCommandTest::samplesHaveNoFaults()
{
    QFETCH(QString, name);

    const CliOutcome outcome = runCli({u"check"_s, samplePath(name), u"--json"_s});

    QCOMPARE(outcome.result, QByteArray("{\"faults\": [\n], \"repaired\": false}\n"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.messages, QByteArray());
}

void CheckCommandTest::everyFaultIsReported_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("codes");

    const plist::Dictionary sound = DatafileFixture::root(2);
    const auto without = [](plist::Dictionary root, const QString &key) {
        root.remove(key);
        return root;
    };
    const auto with = [](plist::Dictionary root, const QString &key, const plist::Value &value) {
        root.insert(key, value);
        return root;
    };
    const auto row = [](const char *name, const plist::Value &root, const QStringList &codes) {
        QTest::newRow(name) << plist::toXml(root) << codes;
    };
    QTest::newRow("no property list") << QByteArray("<plist><dict>") << QStringList{u"unreadable"_s};
    row("an array", plist::Array(), {u"wrong-type"_s});
    row("nothing", plist::Dictionary(), {u"missing-records"_s, u"missing-settings"_s});
    row("no records, no catalog needed", without(DatafileFixture::root(0), u"Catalog"_s), {});
    row("no catalog", without(sound, u"Catalog"_s), {u"catalog-count"_s, u"missing-catalog"_s});
    row("newer", DatafileFixture::withSetting(sound, u"DataFormat"_s, 2), {u"newer-format"_s});
    row("types", with(with(sound, u"Settings"_s, 1), u"Records"_s, 1), {u"wrong-type"_s, u"wrong-type"_s});
    row("catalog type", with(sound, u"Catalog"_s, 1), {u"wrong-type"_s});
    row("record missing in the catalog",
        withCatalog({u"r0"_s}),
        {u"catalog-count"_s, u"record-without-entry"_s});
    row("entry of no record",
        withCatalog({u"r0"_s, u"r1"_s, u"r2"_s}),
        {u"catalog-count"_s, u"entry-without-record"_s});
    row("counts agree, identifiers do not",
        withCatalog({u"r0"_s, u"r0"_s}),
        {u"doubled-entry"_s, u"record-without-entry"_s});
    row("record is no dictionary",
        with(with(sound, u"Records"_s, plist::Dictionary{{u"r0"_s, u"?"_s}}),
             u"Catalog"_s,
             entries({u"r0"_s})),
        {u"wrong-type"_s});
    row("values of a record",
        withRecordValue(
            withRecordValue(sound, u"r0"_s, u"TextRTFD"_s, u"?"_s), u"r0"_s, u"RecordIdentifier"_s, u"r1"_s),
        {u"other-identifier"_s, u"wrong-type"_s});
    row("content without definition",
        withRecordValue(sound, u"r0"_s, u"Fields"_s, plist::Dictionary{{u"g"_s, u"x"_s}, {u"h"_s, u""_s}}),
        {u"content-without-definition"_s});
    const plist::Dictionary field{{u"Identifier"_s, u"f"_s}, {u"Name"_s, u"A"_s}};
    row("definitions",
        DatafileFixture::withSetting(
            sound, u"Fields"_s, plist::Array{field, field, plist::Dictionary{{u"Name"_s, u"B"_s}}, u"C"_s}),
        {u"definition-without-identifier"_s, u"doubled-definition"_s, u"wrong-type"_s});
}

void CheckCommandTest::everyFaultIsReported()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, codes);
    const QString path = g_files.make(u"a.tv3"_s, content);

    const CliOutcome outcome = runCli({u"check"_s, path, u"--json"_s});

    QCOMPARE(codesOf(outcome), codes);
    QCOMPARE(outcome.status, codes.isEmpty() ? 0 : 1);
    QCOMPARE(runCli({u"check"_s, path}).result.count('\n'), std::max<qsizetype>(1, codes.size()));
}

void CheckCommandTest::repairMakesTheCatalogAnew()
{
    const QString path = g_files.make(u"a.tv3"_s, withCatalog({u"r1"_s, u"r1"_s}));
    const QString output = g_files.path(u"b.tv3"_s);
    const QByteArray before = DatafileFixture::contentOf(path);

    QCOMPARE(runCli({u"check"_s, path, u"--repair"_s}).status, 2);
    QCOMPARE(runCli({u"check"_s, path, u"-o"_s, output}).status, 2);
    const CliOutcome outcome = runCli({u"check"_s, path, u"--repair"_s, u"-o"_s, output, u"--json"_s});

    QCOMPARE(outcome.status, 0);
    QCOMPARE(codesOf(outcome), (QStringList{u"doubled-entry"_s, u"record-without-entry"_s}));
    QVERIFY(outcome.object()[u"repaired"_s].toBool());
    QCOMPARE(DatafileFixture::contentOf(path), before);
    QCOMPARE(runCli({u"check"_s, output}).status, 0);
    QCOMPARE(runCli({u"list"_s, output, u"--json"_s}).array().size(), 2);
    QCOMPARE(runCli({u"check"_s, path, u"--repair"_s, u"--in-place"_s}).status, 0);
    QCOMPARE(runCli({u"check"_s, path}).status, 0);
}

void CheckCommandTest::repairLeavesASoundFileAlone()
{
    // A layout that is not ours shows any writing.
    const QByteArray content = plist::toXml(DatafileFixture::root(2)) + "\n\n";
    const QString path = g_files.make(u"a.tv3"_s, content);

    QCOMPARE(runCli({u"check"_s, path, u"--repair"_s, u"--in-place"_s}).status, 0);

    QCOMPARE(DatafileFixture::contentOf(path), content);
}

void CheckCommandTest::whatCannotBeRepairedIsNotWritten()
{
    const QString path = g_files.make(u"a.tv3"_s, plist::Dictionary());
    const QString output = g_files.path(u"unrepaired.tv3"_s);

    const CliOutcome outcome = runCli({u"check"_s, path, u"--repair"_s, u"-o"_s, output, u"--json"_s});

    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.object()[u"repaired"_s].toBool(true), false);
    QVERIFY(!QFile::exists(output));
}

QTEST_GUILESS_MAIN(CheckCommandTest)
#include "CheckCommandTest.moc"
