// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"

using namespace tavrin;

class RecordCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachCommandChangesTheFile_data();
    void eachCommandChangesTheFile();
    void whatIsRefusedWritesNothing_data();
    void whatIsRefusedWritesNothing();
    void deletingAllSelectedWritesABackup();
    void aPreviewChangesNothing();
    void fieldsAreListedWithTheirUse();

private:
    /// Four records with the values "value 3" to "value 0"; the second is omitted where it is said.
    QString path(bool omitted = false) const
    {
        const plist::Dictionary root = DatafileFixture::root(4);
        return g_files.make(u"a.tv3"_s, omitted ? withOmitted(root, 1) : root);
    }

    DatafileFixture g_files;
};

namespace {

/// The first field of every record, in catalog order; locked ones with a star.
QString valuesIn(const QString &path)
{
    QStringList values;
    for (const QJsonValue &record : runCli({u"list"_s, path, u"--all"_s, u"--json"_s}).array()) {
        const QString value = record[u"values"].toArray().at(0).toString().remove(u"value "_s);
        values.append(value + (record[u"locked"].toBool() ? u"*"_s : u""_s));
    }
    return values.join(u' ');
}

QStringList call(const QString &words, const QString &path)
{
    QStringList arguments = words.split(u' ');
    arguments.insert(1, path);
    return arguments;
}

} // namespace

void RecordCommandsTest::eachCommandChangesTheFile_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("count");
    const auto row = [](const char *words, const char *values, const char *key = "", int count = 0) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(values)
                             << QString::fromLatin1(key) << count;
    };
    row("add --set Field=new", "3 2 1 0 new", "number", 5);
    row("add --set id:f=new --at first", "new 3 2 1 0", "number", 1);
    row("add --text t --at after:2", "3 2  1 0", "number", 3);
    row("duplicate r1", "3 2 1 1 0", "number", 4);
    row("delete 1 r0", "2 1", "deleted", 2);
    row("move 1 --to last", "2 1 0 3", "moved", 1);
    row("move 4 --to after:1", "3 0 2 1", "moved", 1);
    row("move 1 --to first", "3 2 1 0", "moved", 0);
    row("lock --all", "3* 2* 1* 0*", "locked", 4);
    row("lock 2", "3 2* 1 0", "locked", 1);
    row("replace-contents Field same --containing 1", "3 2 same 0", "changed", 1);
    row("dedupe", "3 2 1 0", "removed", 0);
    row("transfer Text Field --if-filled append --separator +",
        "3+text 3 2+text 2 1+text 1 0+text 0",
        "records",
        4);
    row("text-to-fields", "3 2 1 0", "changed", 0);
}

void RecordCommandsTest::eachCommandChangesTheFile()
{
    QFETCH(const QString, words);
    QFETCH(const QString, key);
    const QString file = path();
    const CliOutcome outcome = runCli(call(words, file) + QStringList{u"--in-place"_s, u"--json"_s});
    QVERIFY2(outcome.status == 0, outcome.messages.constData());
    QTEST(valuesIn(file), "values");
    QTEST(outcome.object()[key].toInt(-1), "count");
}

void RecordCommandsTest::whatIsRefusedWritesNothing_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("status");
    const auto row = [](const char *words, int status) {
        QTest::newRow(words) << QString::fromLatin1(words) << status;
    };
    row("delete 9", 1);
    row("delete", 2);
    row("delete 1 --selected", 2);
    row("move 1 --to last", 1);
    row("move 1 --to up", 2);
    row("move 1", 2);
    row("add --set Nobody=1", 1);
    row("duplicate 9", 1);
    row("lock", 2);
    row("lock --all --none", 2);
    row("fill", 2);
    row("fill --field Text --text x", 1);
    row("transfer Field Field", 1);
    row("extract fax Field", 2);
    row("fill --number --start x", 2);
    row("fill --text x --date", 2);
    row("transfer Text Field --if-filled zz", 2);
    row("fields --rename Nobody=x", 1);
    row("total Field --add-record --update-record", 2);
    row("fields --add Good --rename Good=", 1);
}

void RecordCommandsTest::whatIsRefusedWritesNothing()
{
    QFETCH(const QString, words);
    QFETCH(const int, status);
    const QString file = path(true);
    const QByteArray before = DatafileFixture::contentOf(file);
    const CliOutcome outcome = runCli(call(words, file) + QStringList{u"--in-place"_s});
    QCOMPARE(outcome.status, status);
    QVERIFY(!outcome.messages.isEmpty() && outcome.result.isEmpty());
    QCOMPARE(DatafileFixture::contentOf(file), before);
}

void RecordCommandsTest::deletingAllSelectedWritesABackup()
{
    const QString file = path(true);
    const CliOutcome outcome = runCli({u"delete"_s, file, u"--selected"_s, u"--in-place"_s, u"--json"_s});
    QCOMPARE(outcome.object()[u"deleted"].toInt(), 3);
    QCOMPARE(valuesIn(file), u"2"_s);
    const QDir backups(g_files.path(u"Backups"_s));
    QCOMPARE(backups.entryList(QDir::Files).size(), 1);
    QCOMPARE(valuesIn(backups.filePath(backups.entryList(QDir::Files).first())), u"3 2 1 0"_s);
    // Now all are selected.
    QCOMPARE(runCli({u"delete"_s, file, u"--selected"_s, u"--in-place"_s}).status, 1);
}

void RecordCommandsTest::aPreviewChangesNothing()
{
    const QString file = path();
    const QByteArray before = DatafileFixture::contentOf(file);
    const CliOutcome outcome =
        runCli({u"replace-contents"_s, file, u"Field"_s, u"n"_s, u"--preview"_s, u"--json"_s});
    QCOMPARE(outcome.object()[u"samples"].toArray().at(0)[u"before"].toString(), u"value 3"_s);
    QCOMPARE(DatafileFixture::contentOf(file), before);
}

void RecordCommandsTest::fieldsAreListedWithTheirUse()
{
    const QString file = path();
    QCOMPARE(runCli({u"fields"_s,
                     file,
                     u"--rename"_s,
                     u"Field=Full=Name"_s,
                     u"--rename"_s,
                     u"Full=Name=Field"_s,
                     u"--in-place"_s})
                 .status,
             0);
    const CliOutcome changed = runCli({u"fields"_s,
                                       file,
                                       u"--add"_s,
                                       u"B"_s,
                                       u"--move"_s,
                                       u"B=1"_s,
                                       u"--hide"_s,
                                       u"Field"_s,
                                       u"--in-place"_s,
                                       u"--json"_s});
    const QJsonArray fields = changed.object()[u"fields"].toArray();
    QCOMPARE(fields.at(0)[u"name"].toString(), u"B"_s);
    QCOMPARE(fields.at(1)[u"records"].toInt(), 4);
    QVERIFY(!fields.at(1)[u"show"].toBool());
    QCOMPARE(runCli({u"fields"_s, file, u"--json"_s}).object(), changed.object());
    QCOMPARE(runCli({u"total"_s, file, u"B"_s, u"--add-record"_s, u"--in-place"_s}).status, 1);
    QCOMPARE(runCli({u"list"_s, file, u"--all"_s, u"--json"_s}).array().size(), 4);
    QCOMPARE(runCli({u"total"_s, file, u"Field"_s, u"--json"_s})
                 .object()[u"totals"]
                 .toArray()
                 .at(0)[u"sum"]
                 .toDouble(),
             6.0);
    QVERIFY(
        runCli({u"fill"_s, file, u"--field"_s, u"B"_s, u"--date"_s, u"--in-place"_s}).result.contains("4"));
    QCOMPARE(runCli({u"fields"_s, file, u"--add"_s, u""_s, u"--in-place"_s}).messages.trimmed(),
             "tavrin-cli: A field must have a name.");
    QCOMPARE(runCli(call(u"fields --delete B --delete Field --in-place"_s, file)).status, 0);
    QCOMPARE(DatafileFixture::opened(file)->datafileSettings().mode(), u"List"_s);
}

QTEST_GUILESS_MAIN(RecordCommandsTest)
#include "RecordCommandsTest.moc"
