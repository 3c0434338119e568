// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"

#include <QLocale>

using namespace tavrin;

class SortCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(u"en_US"_s)); }
    void eachKindHasItsOrder_data();
    void eachKindHasItsOrder();
    void theCriteriaAreStoredBesideWhatWasThere();
    void anUnreadableDateChangesNothing();
    void whatMakesNoSenseIsWrongUsage_data();
    void whatMakesNoSenseIsWrongUsage();

private:
    DatafileFixture g_files;
};

namespace {

/// A record of the fields that are not null, as the sorts of each kind need them.
plist::Dictionary record(const QStringList &values, const QString &text, double created)
{
    const QStringList fields{u"name"_s, u"city"_s, u"amount"_s, u"day"_s, u"mail"_s};
    plist::Dictionary contents;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (!values[i].isNull())
            contents.insert(fields[i], values[i]);
    }
    return {{u"Fields"_s, contents},
            {u"TextString"_s, text},
            {u"RecordCreatedDate"_s, Date{created}},
            {u"RecordModifiedDate"_s, Date{-created}}};
}

/// Five records, "a" to "e", of which "d" is omitted.
plist::Dictionary people()
{
    const QList<plist::Dictionary> made{
        record({u"smith"_s, u"Ottawa"_s, u"$12"_s, u"2007-03-05"_s, u"Mon, 5 Mar 2007 10:15:00 +0000"_s},
               u"Dr. John Smith, Jr.\nfour  five\nOttawa ON K1A 0B1\nCanada\n\nthe end omega"_s,
               300),
        record({u"Smith"_s, u"Athens"_s, u"abc"_s, u"2006-12-31"_s, u"Sun, 12 Feb 2007 09:00:00"_s},
               u"Mrs. Ann Brown\nsix three\nAthens 90210-1234\n\nthe end beta"_s,
               100),
        record({u""_s, u"x"_s, u""_s, u""_s, u""_s}, u"Zed\n\nBo Young"_s, 500),
        record({u"\u00C5ngstr\u00F6m"_s, {}, {}, {}, {}}, u"adam Smith\nnine\nTown 10001\n\nZoe Abel"_s, 200),
        record({u"Zola"_s, u"B"_s, u"-5.5"_s, u"2010-01-01"_s, u"Tue, 6 Mar 2007 08:00:00 -0500"_s},
               u"Rev. Mr. Carl Smith III\none\nTown 9021\n\n10"_s,
               400)};
    plist::Dictionary records;
    plist::Array catalog;
    for (qsizetype i = 0; i < made.size(); ++i) {
        const QString identifier(QChar(u'a' + static_cast<char16_t>(i)));
        plist::Dictionary each = made[i];
        each.insert(u"RecordIdentifier"_s, identifier);
        records.insert(identifier, each);
        catalog.append(plist::Dictionary{{u"Identifier"_s, identifier},
                                         {u"CurrentlySelected"_s, identifier != u"d"},
                                         {u"PreviouslySelected"_s, true}});
    }
    plist::Array fields;
    for (const QString &name : {u"Name"_s, u"City"_s, u"Amount"_s, u"Day"_s, u"Mail"_s})
        fields.append(plist::Dictionary{{u"Identifier"_s, name.toLower()}, {u"Name"_s, name}});
    return {{u"Settings"_s, plist::Dictionary{{u"DataFormat"_s, 1}, {u"Fields"_s, fields}}},
            {u"Records"_s, records},
            {u"Catalog"_s, catalog}};
}

QString orderIn(const QString &path)
{
    QString order;
    for (const QJsonValue record : runCli({u"list"_s, path, u"--all"_s, u"--json"_s}).array())
        order += record[u"identifier"_s].toString();
    return order;
}

} // namespace

void SortCommandTest::eachKindHasItsOrder_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("order");

    // Å is A and a ring, so it comes among the A; nothing comes first; equal ones stay as they were.
    QTest::newRow("text") << u"--by Name"_s << u"cdabe"_s;
    QTest::newRow("by letters' case") << u"--by Name --case-sensitive"_s << u"cdbea"_s;
    QTest::newRow("turned round") << u"--by Name --descending"_s << u"ebadc"_s;
    QTest::newRow("then") << u"--by Name --then City"_s << u"cdbae"_s;
    QTest::newRow("then, as text") << u"--by Amount --kind numbers --then City"_s << u"cadeb"_s;
    // None, then no field, then -5.5, no number as 0, 12.
    QTest::newRow("numbers") << u"--by Amount --kind numbers"_s << u"cdeba"_s;
    QTest::newRow("numbers as text") << u"--by Amount"_s << u"cdaeb"_s;
    QTest::newRow("dates") << u"--by Day --kind dates"_s << u"dcbae"_s;
    QTest::newRow("e-mail dates") << u"--by Mail --kind email-dates"_s << u"dcbae"_s;
    QTest::newRow("all fields") << u"--kind all-fields"_s << u"cdbae"_s;
    // Abel has no title; titles go, two in front and all behind.
    QTest::newRow("name") << u"--kind name"_s << u"bdeac"_s;
    QTest::newRow("name in the text's last line") << u"--kind name --line -2"_s << u"edbac"_s;
    QTest::newRow("name in the address's last line") << u"--kind name --line -1"_s << u"debac"_s;
    QTest::newRow("word") << u"--kind word --line 2"_s << u"cadeb"_s;
    QTest::newRow("empty word") << u"--kind word --line 2 --word 2"_s << u"acdeb"_s;
    QTest::newRow("last word") << u"--kind word --line 2 --word -3"_s << u"cadeb"_s;
    QTest::newRow("from the text's end") << u"--kind word --line 1 --offset -7 --word -3"_s << u"edbac"_s;
    QTest::newRow("from the address's end") << u"--kind word --line 2 --offset -5"_s << u"deabc"_s;
    QTest::newRow("from the address's start") << u"--kind word --line 9 --offset -4"_s << u"badec"_s;
    QTest::newRow("postal") << u"--kind postal"_s << u"cedba"_s;
    QTest::newRow("created") << u"--kind created"_s << u"bdaec"_s;
    QTest::newRow("modified") << u"--kind modified"_s << u"ceadb"_s;
    QTest::newRow("freeform") << u"--kind freeform"_s << u"dabec"_s;
    QTest::newRow("the text as a field") << u"--by Text --case-sensitive"_s << u"abecd"_s;
}

void SortCommandTest::eachKindHasItsOrder()
{
    QFETCH(QString, options);
    QFETCH(QString, order);
    const QString path = g_files.make(u"people.tv3"_s, people());

    const CliOutcome sorted =
        runCli(QStringList{u"sort"_s, path, u"--in-place"_s, u"--json"_s} + options.split(u' '));

    QCOMPARE(sorted.messages, QByteArray());
    QCOMPARE(sorted.object(), (QJsonObject{{u"sorted"_s, 5}}));
    QCOMPARE(orderIn(path), order);
    QCOMPARE(runCli({u"info"_s, path, u"--json"_s}).object()[u"selected"_s].toInt(), 4);
}

void SortCommandTest::theCriteriaAreStoredBesideWhatWasThere()
{
    const plist::Dictionary before{{u"SubsetWhereField1"_s, u"kept"_s},
                                   {u"SortSecondaryFieldIdentifier"_s, u"city"_s},
                                   {u"SortWordNumber"_s, 4},
                                   {u"Unknown"_s, u"kept"_s}};
    const QString path =
        g_files.make(u"criteria.tv3"_s, DatafileFixture::withSetting(people(), u"Criteria"_s, before));
    const QString out = g_files.path(u"sorted.tv3"_s);

    QCOMPARE(runCli({u"sort"_s,
                     path,
                     u"-o"_s,
                     out,
                     u"--by"_s,
                     u"id:amount"_s,
                     u"--kind"_s,
                     u"numbers"_s,
                     u"--kind"_s,
                     u"pro"_s,
                     u"--descending"_s})
                 .status,
             0);

    const QJsonObject criteria = runCli({u"info"_s, out, u"--json"_s}).object()[u"criteria"_s].toObject();
    QCOMPARE(criteria,
             (QJsonObject{{u"SubsetWhereField1"_s, u"kept"_s},
                          {u"Unknown"_s, u"kept"_s},
                          {u"SortCompareSelector"_s, 2},
                          {u"SortPrimaryFieldIdentifier"_s, u"amount"_s},
                          {u"SortCaseSensitive"_s, false},
                          {u"QVSortDescending"_s, true},
                          {u"DataFormat"_s, 1}}));
    QCOMPARE(orderIn(path), u"abcde"_s);
    QCOMPARE(orderIn(out), u"abedc"_s);
}

void SortCommandTest::anUnreadableDateChangesNothing()
{
    plist::Dictionary root = people();
    const QString wrong = u"Mon, 5 March 2007 10:15:00"_s;
    const auto fields = *root.value(u"Records"_s).dictionary()->value(u"e"_s).dictionary();
    plist::Dictionary contents = *fields.value(u"Fields"_s).dictionary();
    contents.insert(u"mail"_s, wrong);
    const QString path = g_files.make(u"wrong.tv3"_s, withRecordValue(root, u"e"_s, u"Fields"_s, contents));
    const QByteArray before = DatafileFixture::contentOf(path);

    const CliOutcome sorted =
        runCli({u"sort"_s, path, u"--in-place"_s, u"--by"_s, u"Mail"_s, u"--kind"_s, u"email-dates"_s});

    QCOMPARE(sorted.status, 1);
    // The omitted record does not count: in a window "e" is the fourth.
    QCOMPARE(
        sorted.messages,
        QByteArray("tavrin-cli: The records were not sorted. Record number 4 has a date that could not be "
                   "read. (e)\n"));
    QCOMPARE(DatafileFixture::contentOf(path), before);
}

void SortCommandTest::whatMakesNoSenseIsWrongUsage_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("status");
    QTest::newRow("no field") << u"--in-place"_s << 2;
    QTest::newRow("unknown kind") << u"--in-place --by Name --kind size"_s << 2;
    QTest::newRow("two kinds") << u"--in-place --by Name --kind text --kind numbers"_s << 2;
    QTest::newRow("no target") << u"--by Name"_s << 2;
    QTest::newRow("then without a field") << u"--in-place --kind name --then City"_s << 2;
    QTest::newRow("line of a field") << u"--in-place --by Name --line 2"_s << 2;
    QTest::newRow("line 0") << u"--in-place --kind name --line 0"_s << 2;
    QTest::newRow("code of another option") << u"--in-place --kind word --word -4"_s << 2;
    QTest::newRow("offset") << u"--in-place --kind word --offset 1"_s << 2;
    QTest::newRow("unknown field") << u"--in-place --by Nome"_s << 1;
}

void SortCommandTest::whatMakesNoSenseIsWrongUsage()
{
    QFETCH(QString, options);
    QFETCH(int, status);
    const QString path = g_files.make(u"people.tv3"_s, people());
    const CliOutcome outcome = runCli(QStringList{u"sort"_s, path} + options.split(u' '));
    QCOMPARE(outcome.status, status);
    QVERIFY(outcome.messages.startsWith("tavrin-cli: "));
    QCOMPARE(orderIn(path), u"abcde"_s);
}

QTEST_GUILESS_MAIN(SortCommandTest)
#include "SortCommandTest.moc"
