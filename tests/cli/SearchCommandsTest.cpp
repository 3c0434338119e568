// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"
#include "search/SearchFixture.h"

using namespace tavrin;

class SearchCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findListsHitsInTheOrderOfStepping();
    void findTakesKeysFieldsAndWords();
    void findNarrowsTheSelection();
    void replaceReplacesAll();
    void formattedTextIsReplacedOnlyOnRequest();
    void wrongUsageIsToldFromFailure();

private:
    QString make(const QList<TestRecord> &records, const QSet<qsizetype> &hidden = {}) const
    {
        return g_files.make(u"searched.tv3"_s, searchedDatafile(records, hidden));
    }
    /// "number/identifier: field@location+length ..." of each record.
    static QStringList found(const QStringList &arguments, int status = 0)
    {
        const CliOutcome outcome = runCli(QStringList{u"find"_s} + arguments + QStringList{u"--json"_s});
        if (outcome.status != status || !outcome.messages.isEmpty())
            return {QString::fromUtf8(outcome.messages)};
        QStringList records;
        for (const QJsonValue &record : outcome.array()) {
            QString line =
                u"%1/%2:"_s.arg(record[u"number"_s].toInt()).arg(record[u"identifier"_s].toString());
            for (const QJsonValue &hit : record[u"hits"_s].toArray())
                line += u" %1@%2+%3"_s.arg(hit[u"field"_s].toString())
                            .arg(hit[u"location"_s].toInt())
                            .arg(hit[u"length"_s].toInt());
            records.append(line);
        }
        return records;
    }

    DatafileFixture g_files;
};

void SearchCommandsTest::findListsHitsInTheOrderOfStepping()
{
    const QString path = make({{{u"no"_s, u"é É e\u0301"_s}, u"x"_s, false},
                               {{u"no"_s, u"a é É"_s}, u"\U0001F600É & e\u0301"_s},
                               {{u"no"_s, u"no"_s}, u"no"_s},
                               {{u"é"_s, u""_s}, u""_s}});

    QCOMPARE(found({path, u"é"_s}),
             (QStringList{u"1/r1: Field 1@2+1 Text@2+1 Text@6+2"_s, u"3/r3: Field 0@0+1"_s}));
    QCOMPARE(found({path, u"é"_s, u"--case-sensitive"_s}),
             (QStringList{u"1/r1: Field 1@2+1 Text@6+2"_s, u"3/r3: Field 0@0+1"_s}));
    QCOMPARE(found({path, u"nowhere"_s}, 1), QStringList());
    const CliOutcome outcome = runCli({u"find"_s, path, u"É &"_s});
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.result.contains("\U0001F600É & e\u0301") && !outcome.result.contains("r1"));
    const CliOutcome nothing = runCli({u"find"_s, path, u""_s});
    QCOMPARE(nothing.status, 1);
    QVERIFY(nothing.result.isEmpty() && nothing.messages.isEmpty());
}

void SearchCommandsTest::findTakesKeysFieldsAndWords()
{
    const QString path = make({{{u"red cat"_s, u"blue"_s, u"cat"_s}, u"catalog red blue cat"_s},
                               {{u"red"_s, u""_s, u""_s}, u"red"_s}},
                              {2});

    QCOMPARE(found({path, u"red&&blue"_s}),
             QStringList{u"1/r0: Field 0@0+3 Field 1@0+4 Text@8+3 Text@12+4"_s});
    QCOMPARE(found({path, u"red blue"_s}), QStringList{u"1/r0: Text@8+8"_s});
    QCOMPARE(found({path, u"\"red blue\" cat"_s, u"--style"_s, u"internet"_s}),
             QStringList{u"1/r0: Field 0@4+3 Text@0+3 Text@8+8 Text@17+3"_s});
    QCOMPARE(found({path, u"cat"_s, u"--whole-word"_s}), QStringList{u"1/r0: Field 0@4+3 Text@17+3"_s});
    QCOMPARE(found({path, u"cat"_s, u"--in"_s, u"Text"_s}), QStringList{u"1/r0: Text@0+3 Text@17+3"_s});
    QCOMPARE(found({path, u"red"_s, u"--in"_s, u"id:f0"_s}),
             (QStringList{u"1/r0: Field 0@0+3"_s, u"2/r1: Field 0@0+3"_s}));
    QCOMPARE(found({path, u"cat"_s, u"--in=Field 2"_s}, 1), QStringList());
}

void SearchCommandsTest::findNarrowsTheSelection()
{
    const QString path = make({{{u"red"_s}, u"blue"_s}, {{u"red"_s}, u""_s}, {{u"red"_s}, u"blue"_s, false}});
    const QByteArray before = DatafileFixture::contentOf(path);

    CliOutcome outcome = runCli({u"find"_s, path, u"none"_s, u"--select"_s, u"--in-place"_s, u"--json"_s});
    QCOMPARE(outcome.status, 1);
    QVERIFY(outcome.messages.isEmpty());
    QCOMPARE(DatafileFixture::contentOf(path), before);
    outcome = runCli({u"find"_s, path, u"BLUE&&red"_s, u"--select"_s, u"--in-place"_s, u"--json"_s});
    QCOMPARE(outcome.object(), (QJsonObject{{u"selected"_s, 1}, {u"records"_s, 3}}));
    const auto document = DatafileFixture::opened(path);
    QCOMPARE(document->datafileCatalog().selectedIdentifiers(), QStringList{u"r0"_s});
    QVERIFY(document->datafileCatalog().objectAtIndex(1)->previouslySelected());
}

void SearchCommandsTest::replaceReplacesAll()
{
    const QString path = make({{{u"cat catalog"_s}, u"Cat\ncat"_s}, {{u"cat"_s}, u"cat"_s, true, true}});
    const QString output = g_files.path(u"replaced.tv3"_s);
    const auto replace = [&](const QStringList &arguments) {
        return runCli(QStringList{
                          u"replace"_s, path, u"cat"_s, u"dog"_s, u"--json"_s, u"-o"_s, output, u"--force"_s}
                      + arguments)
            .object();
    };
    const auto counts = [](int replacements, int records) {
        return QJsonObject{{u"replacements"_s, replacements}, {u"records"_s, records}};
    };
    const auto written = [&] {
        const auto document = DatafileFixture::opened(output);
        const RecordData *record = document->datafileRecords().recordForIdentifier(u"r0"_s);
        return QString(record->fieldValue(u"f0"_s) + u'|' + record->textString());
    };
    QCOMPARE(replace({}), counts(4, 1));
    QCOMPARE(written(), u"dog dogalog|dog\ndog"_s);
    QCOMPARE(replace({u"--whole-word"_s, u"--case-sensitive"_s}), counts(2, 1));
    QCOMPARE(written(), u"dog catalog|Cat\ndog"_s);
    QCOMPARE(replace({u"--in"_s, u"Field 0"_s}), counts(2, 1));
    QCOMPARE(written(), u"dog dogalog|Cat\ncat"_s);

    // Written once more it would not be the same.
    const QByteArray before = DatafileFixture::contentOf(path) + "<!-- -->";
    const QString odd = g_files.make(u"odd.tv3"_s, before);
    const CliOutcome none = runCli({u"replace"_s, odd, u"none"_s, u"x"_s, u"--in-place"_s});
    QCOMPARE(none.status, 0);
    QCOMPARE(none.result, QByteArray("No changes were made.\n"));
    QCOMPARE(DatafileFixture::contentOf(odd), before);
}

void SearchCommandsTest::formattedTextIsReplacedOnlyOnRequest()
{
    const QString path =
        make({{{u"a"_s}, u"a"_s, true, false, "rtfd"}, {{u"b"_s}, u"b"_s, true, false, "rtfd"}});
    const QByteArray before = DatafileFixture::contentOf(path);
    QStringList arguments{u"replace"_s, path, u"a"_s, u"c"_s, u"--in-place"_s};

    QCOMPARE(runCli(arguments).status, 1);
    QCOMPARE(DatafileFixture::contentOf(path), before);
    QCOMPARE(runCli(arguments + QStringList{u"--plain-text"_s}).status, 0);
    const auto document = DatafileFixture::opened(path);
    QCOMPARE(document->datafileRecords().view(u"r0"_s)->textString().toString(), u"c"_s);
    QCOMPARE(document->datafileRecords().view(u"r1"_s)->textRTFD(), QByteArray("rtfd"));
}

void SearchCommandsTest::wrongUsageIsToldFromFailure()
{
    const QString path = make({{{u"a"_s}, u"a"_s}});

    QCOMPARE(runCli({u"find"_s, path}).status, 2);
    QCOMPARE(runCli({u"find"_s, path, u"a"_s, u"--style=other"_s}).status, 2);
    QCOMPARE(runCli({u"find"_s, path, u"a"_s, u"--select"_s}).status, 2);
    QCOMPARE(runCli({u"find"_s, path, u"a"_s, u"--in-place"_s}).status, 2);
    QCOMPARE(runCli({u"find"_s, path, u"a"_s, u"--in=None"_s}).status, 1);
    QCOMPARE(runCli({u"replace"_s, path, u"a"_s, u"b"_s}).status, 2);
    QCOMPARE(runCli({u"replace"_s, path, u""_s, u"b"_s, u"--in-place"_s}).status, 2);
    QCOMPARE(runCli({u"replace"_s, g_files.path(u"none.tv3"_s), u"a"_s, u"b"_s, u"--in-place"_s}).status, 1);
}

QTEST_GUILESS_MAIN(SearchCommandsTest)
#include "SearchCommandsTest.moc"
