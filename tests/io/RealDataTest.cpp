// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableImport.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <limits>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// Files that others made, read here and by another program. Skipped where they are not installed.
class RealDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesAreReadAsPythonReadsThem_data();
    void tablesAreReadAsPythonReadsThem();
};

void RealDataTest::tablesAreReadAsPythonReadsThem_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<ImportOptions>("options");
    QTest::addColumn<QString>("python"); ///< Gives the rows of the text t.
    const QString lines = u"[l.split('%1') for l in t.split('\\n')[:-1]]"_s;
    QTest::newRow("csv") << u"/usr/share/ieee-data/oui.csv"_s << ImportOptions{.kind = TableKind::Standard}
                         << u"list(csv.reader(io.StringIO(t, newline='')))"_s;
    QTest::newRow("semicolons") << u"/usr/share/unicode/UnicodeData.txt"_s
                                << ImportOptions{.kind = TableKind::Ssv} << lines.arg(u";"_s);
    QTest::newRow("tabs") << u"/usr/share/zoneinfo/iso3166.tab"_s << ImportOptions{.kind = TableKind::Tab}
                          << lines.arg(u"\\t"_s);
    QTest::newRow("zones") << u"/usr/share/zoneinfo/zone1970.tab"_s << ImportOptions{.kind = TableKind::Tab}
                           << lines.arg(u"\\t"_s);
    QTest::newRow("fortunes") << u"/usr/share/games/fortunes/fortunes"_s
                              << ImportOptions{.kind = TableKind::Custom, .delimiter = u"\n%\n"_s}
                              << u"[[p] for p in t.split('\\n%\\n') if p]"_s;
}

void RealDataTest::tablesAreReadAsPythonReadsThem()
{
    QFETCH(QString, path);
    QFETCH(ImportOptions, options);
    QFETCH(QString, python);
    if (!QFileInfo::exists(path) || QStandardPaths::findExecutable(u"python3"_s).isEmpty())
        QSKIP("not installed");
    QProcess process;
    const QString program = u"import csv, io, json, sys\n"
                            "t = open(sys.argv[1], encoding='utf-8', newline='').read()\n"
                            "print(json.dumps(%1))"_s.arg(python);
    process.start(u"python3"_s, {u"-c"_s, program, path});
    QVERIFY(process.waitForFinished());
    const QJsonArray expected = QJsonDocument::fromJson(process.readAllStandardOutput()).array();

    Progress progress;
    const auto text = readTextFile(path, {}, progress);
    const auto read = readTable(*text, options, std::numeric_limits<qint64>::max(), progress);
    QVERIFY(read);
    QVERIFY(read->table->rowCount() > 100);
    QCOMPARE(qsizetype(read->table->rowCount()), expected.size());
    for (quint32 row = 0; row < read->table->rowCount(); ++row)
        QCOMPARE(read->table->row(row), expected[row].toVariant().toStringList());
}

QTEST_GUILESS_MAIN(RealDataTest)
#include "RealDataTest.moc"
