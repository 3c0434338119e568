// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"

#include <QRegularExpression>

using namespace tavrin;

class ImportCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesGoIntoADatafileAndOutAgain()
    {
        const QString csv = g_files.make(u"in.csv"_s, "n,v\n\"a, b\",1\nc\n");
        const QString out = g_files.path(u"out.tv3"_s);
        CliOutcome outcome =
            runCli({u"import"_s, u"csv"_s, csv, u"-o"_s, out, u"--names-in-first-record"_s, u"--json"_s});
        QCOMPARE(outcome.status, 0);
        const QJsonObject expected{
            {u"imported"_s, 2}, {u"malformed"_s, 1}, {u"removed"_s, 0}, {u"records"_s, 2}, {u"dropped"_s, 0}};
        QCOMPARE(outcome.object(), expected);
        outcome = runCli({u"import"_s, u"csv"_s, csv, u"--merge-into"_s, out, u"--json"_s});
        QCOMPARE(outcome.object().value(u"removed"_s).toInt(), 2);
        QCOMPARE(outcome.object().value(u"records"_s).toInt(), 3);

        const QString tab = g_files.path(u"out.tab"_s);
        outcome = runCli({u"export"_s,
                          u"tab"_s,
                          out,
                          u"-o"_s,
                          tab,
                          u"--names"_s,
                          u"--fields-only"_s,
                          u"--line-end"_s,
                          u"crlf"_s,
                          u"--json"_s});
        QCOMPARE(outcome.object().value(u"exported"_s).toInt(), 3);
        QCOMPARE(DatafileFixture::contentOf(tab),
                 QByteArray("n\tv\r\na, b\t1\r\nc\t<MISSING FIELD>\r\nn\tv\r\n"));
    }

    void whatMakesNoSenseIsRefused_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<int>("status");
        QTest::newRow("kind") << QStringList{u"import"_s, u"xls"_s, u"IN"_s, u"-o"_s, u"OUT"_s} << 2;
        QTest::newRow("no target") << QStringList{u"import"_s, u"csv"_s, u"IN"_s} << 2;
        QTest::newRow("two targets")
            << QStringList{u"import"_s, u"csv"_s, u"IN"_s, u"-o"_s, u"OUT"_s, u"--append-to"_s, u"OLD"_s}
            << 2;
        QTest::newRow("no delimiter")
            << QStringList{u"import"_s, u"custom"_s, u"IN"_s, u"-o"_s, u"OUT"_s} << 2;
        QTest::newRow("OUT is there") << QStringList{u"import"_s, u"csv"_s, u"IN"_s, u"-o"_s, u"OLD"_s} << 1;
        QTest::newRow("no such file")
            << QStringList{u"import"_s, u"csv"_s, u"NONE"_s, u"-o"_s, u"OUT"_s} << 1;
        QTest::newRow("empty") << QStringList{u"import"_s, u"csv"_s, u"EMPTY"_s, u"-o"_s, u"OUT"_s} << 1;
        QTest::newRow("other fields")
            << QStringList{u"import"_s, u"csv"_s, u"IN"_s, u"--append-to"_s, u"OLD"_s} << 1;
        QTest::newRow("form") << QStringList{u"export"_s, u"pdf"_s, u"OLD"_s, u"-o"_s, u"OUT"_s} << 2;
        QTest::newRow("nowhere") << QStringList{u"export"_s, u"csv"_s, u"OLD"_s} << 2;
        QTest::newRow("no folder") << QStringList{u"export"_s, u"csv"_s, u"OLD"_s, u"-o"_s, u"none/OUT"_s}
                                   << 1;
    }

    void whatMakesNoSenseIsRefused()
    {
        QFETCH(QStringList, words);
        g_files.make(u"IN"_s, "a,b,c,d,e,f\n");
        g_files.make(u"EMPTY"_s, "");
        const QByteArray old = plist::toXml(DatafileFixture::root(2));
        g_files.make(u"OLD"_s, old);
        for (QString &word : words) {
            if (word.contains(QRegularExpression(u"^(none/)?[A-Z]+$"_s)))
                word = g_files.path(word);
        }
        const CliOutcome outcome = runCli(words);
        QTEST(outcome.status, "status");
        QVERIFY(!outcome.messages.isEmpty());
        QVERIFY(!QFile::exists(g_files.path(u"OUT"_s)));
        QCOMPARE(DatafileFixture::contentOf(g_files.path(u"OLD"_s)), old);
    }

private:
    DatafileFixture g_files;
};

QTEST_GUILESS_MAIN(ImportCommandsTest)
#include "ImportCommandsTest.moc"
