// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/CliFixture.h"

#include <QLocale>
#include <QTimeZone>

using namespace tavrin;

class SelectCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eachOperatorHasItsRule_data();
    void eachOperatorHasItsRule();
    void commandsGoOnFromTheStoredSelection();
    void theCriteriaAreStoredAsTheWindowStoresThem();
    void nothingSelectedWritesNothing_data();
    void nothingSelectedWritesNothing();
    void whatMakesNoSenseIsWrongUsage_data();
    void whatMakesNoSenseIsWrongUsage();

private:
    QString made() const;
    QString selected(const QString &path) const;

    DatafileFixture g_files;
};

namespace {

QStringList words(const QString &command)
{
    QStringList words = command.split(u' ');
    // The empty value and the value with a blank, as a shell would hand them over.
    words.replaceInStrings(u"''"_s, u""_s);
    words.replaceInStrings(u"_"_s, u" "_s);
    return words;
}

plist::Dictionary record(const plist::Dictionary &fields, const QString &text, const QDateTime &created)
{
    return {{u"Fields"_s, fields},
            {u"TextString"_s, text},
            {u"RecordCreatedDate"_s, Date::fromDateTime(created)},
            {u"RecordModifiedDate"_s, Date::fromDateTime(created.addDays(1))}};
}

/// Records "a" to "e", all selected.
plist::Dictionary people()
{
    const auto at = [](int day, int hour) { return QDateTime(QDate(2007, 3, day), QTime(hour, 0), Qt::UTC); };
    const QList<plist::Dictionary> made{
        record({{u"name"_s, u"Ren\u00E9e Smith"_s}, {u"amount"_s, u"$5"_s}, {u"day"_s, u"Mar 5, 2007"_s}},
               u"Smith & Sons"_s,
               at(5, 0)),
        record({{u"name"_s, u"smith"_s}, {u"amount"_s, u"10"_s}, {u"day"_s, u"2007-03-06"_s}},
               u"smith"_s,
               at(5, 9)),
        record({{u"name"_s, u""_s}, {u"amount"_s, u""_s}, {u"day"_s, u"soon"_s}}, u""_s, at(6, 0)),
        record({{u"amount"_s, u"-3"_s}}, u"other smithy"_s, at(7, 0)),
        record({{u"name"_s, u"Smithers"_s}, {u"amount"_s, u"ten"_s}, {u"day"_s, u"2007-03-04"_s}},
               u"smith-"_s,
               at(4, 0))};
    plist::Dictionary records;
    plist::Array catalog;
    for (qsizetype i = 0; i < made.size(); ++i) {
        const QString identifier(QChar(u'a' + static_cast<char16_t>(i)));
        plist::Dictionary each = made[i];
        each.insert(u"RecordIdentifier"_s, identifier);
        records.insert(identifier, each);
        catalog.append(plist::Dictionary{
            {u"Identifier"_s, identifier}, {u"CurrentlySelected"_s, true}, {u"PreviouslySelected"_s, true}});
    }
    plist::Array fields;
    for (const QString &name : {u"Name"_s, u"Amount"_s, u"Day"_s})
        fields.append(plist::Dictionary{{u"Identifier"_s, name.toLower()}, {u"Name"_s, name}});
    return {{u"Settings"_s, plist::Dictionary{{u"DataFormat"_s, 1}, {u"Fields"_s, fields}}},
            {u"Records"_s, records},
            {u"Catalog"_s, catalog}};
}

} // namespace

void SelectCommandTest::initTestCase()
{
    QLocale::setDefault(QLocale(u"en_US"_s));
    qputenv("TZ", "UTC");
}

QString SelectCommandTest::made() const
{
    return g_files.make(u"people.tv3"_s, people());
}

QString SelectCommandTest::selected(const QString &path) const
{
    QString identifiers;
    for (const QJsonValue record : runCli({u"list"_s, path, u"--json"_s}).array())
        identifiers += record[u"identifier"_s].toString();
    return identifiers;
}

void SelectCommandTest::eachOperatorHasItsRule_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("expected"); // Empty: nothing is, and the status is 1.
    const auto row = [](const char *options, const QString &expected) {
        QTest::newRow(options) << QString::fromUtf8(options) << expected;
    };
    row("--where Name contains SMITH", u"abe"_s);
    row("--where Name contains Smith --as case-text", u"ae"_s);
    row("--where Name contains ''", u""_s);
    row("--where Name not-contains smith", u"cd"_s);
    row("--where Name equals smith", u"b"_s);
    row("--where Name equals SMITH --as case-text", u""_s);
    row("--where Name not-equals smith", u"acde"_s);
    row("--where Name begins smith", u"be"_s);
    row("--where Name not-begins smith", u"acd"_s);
    row("--where Name contains e\u0301e", u"a"_s);
    // A value that is empty and one that is not there are the same.
    row("--where Name empty", u"cd"_s);
    row("--where Name not-empty", u"abe"_s);
    row("--where Text contains &", u"a"_s);
    row("--where Text equals smith", u"b"_s);
    row("--where Text begins smith", u"abe"_s);
    row("--where Text empty", u"c"_s);
    row("--where Text not-empty", u"abde"_s);
    row("--where any contains mith", u"abde"_s);
    row("--where any contains soon", u"c"_s);
    row("--where any not-contains mith", u"c"_s);
    // Of any field, only the text's beginning counts.
    row("--where any begins other", u"d"_s);
    row("--where any begins ren", u""_s);
    row("--where any not-begins smith", u"cd"_s);
    // As long as the text is, a field may go on behind the match: "Smithers" is no longer than "smith-".
    row("--where any equals smith", u"b"_s);
    row("--where any equals smithe", u"e"_s);
    // Numbers: what is not there never matches, what is no number is 0.
    row("--where Amount less 10", u"ade"_s);
    row("--where Amount greater -3 --as numbers", u"abe"_s);
    row("--where Amount equals 5.0 --as numbers", u"a"_s);
    row("--where Amount not-equals 5 --as numbers", u"bde"_s);
    row("--where Amount equals 5", u""_s);
    row("--where any less 10", u""_s);
    // Dates: of a day its first moment.
    row("--where created equals Mar_5,_2007", u"a"_s);
    row("--where created not-equals 2007-03-05", u"bcde"_s);
    row("--where created later Mar_5,_2007", u"bcd"_s);
    row("--where created earlier Mar_5,_2007", u"e"_s);
    row("--where modified equals Mar_6,_2007", u"a"_s);
    row("--where created later tomorrow", u""_s);
    row("--where Day later 2007-03-05", u"b"_s);
    row("--where Day earlier 2007-03-06 --as dates", u"ae"_s);
    row("--where Day equals 2007-03-05 --as dates", u"a"_s);
    row("--where Day not-equals 2007-03-05 --as dates", u"be"_s);
    row("--where Name contains smith --and --where Amount less 10", u"ae"_s);
    row("--where Name equals smith --or --where Amount less 0", u"bd"_s);
    row("--where id:name contains SMITH --as case-text --or --where Name empty", u"cd"_s);
    row("--all", u"abcde"_s);
}

void SelectCommandTest::eachOperatorHasItsRule()
{
    QFETCH(QString, options);
    QFETCH(QString, expected);
    const QString path = made();

    const CliOutcome outcome =
        runCli(QStringList{u"select"_s} + words(options) + QStringList{path, u"--in-place"_s, u"--json"_s});

    QCOMPARE(outcome.messages, QByteArray());
    QCOMPARE(outcome.status, expected.isEmpty() ? 1 : 0);
    QCOMPARE(selected(path), expected.isEmpty() ? u"abcde"_s : expected);
    if (!expected.isEmpty())
        QCOMPARE(outcome.object(), (QJsonObject{{u"selected"_s, expected.size()}, {u"records"_s, 5}}));
}

void SelectCommandTest::commandsGoOnFromTheStoredSelection()
{
    const QString path = made();
    const auto select = [&](const char *options) {
        const QStringList arguments =
            QStringList{u"select"_s, path, u"--in-place"_s} + words(QString::fromUtf8(options));
        return runCli(arguments).status == 0 ? selected(path) : u"nothing"_s;
    };
    QCOMPARE(select("--where Name contains smith"), u"abe"_s);
    QCOMPARE(select("--where Amount less 10"), u"ae"_s);
    QCOMPARE(select("--revert"), u"abe"_s);
    QCOMPARE(select("--revert"), u"ae"_s);
    QCOMPARE(select("--from-omitted --where Name equals smith"), u"abe"_s);
    // Nothing joins them: "a" is selected already.
    QCOMPARE(select("--from-omitted --where Text contains Sons"), u"nothing"_s);
    QCOMPARE(select("--omitted"), u"cd"_s);
    QCOMPARE(select("--where Name contains smith"), u"nothing"_s);
    QCOMPARE(selected(path), u"cd"_s);
    QCOMPARE(select("--all"), u"abcde"_s);
    QCOMPARE(select("--omitted"), u"nothing"_s);
    QCOMPARE(select("--revert"), u"cd"_s);
}

void SelectCommandTest::theCriteriaAreStoredAsTheWindowStoresThem()
{
    const QString path =
        g_files.make(u"criteria.tv3"_s,
                     DatafileFixture::withSetting(
                         people(), u"Criteria"_s, plist::Dictionary{{u"SortCompareSelector"_s, 11}}));
    const QString output = g_files.path(u"selected.tv3"_s);
    const QStringList arguments =
        words(u"--where Name begins s --or --where created equals Mar_5,_2007 --as dates"_s);

    QCOMPARE(runCli(QStringList{u"select"_s, path, u"-o"_s, output} + arguments).status, 0);

    const QJsonObject stored = runCli({u"info"_s, output, u"--json"_s}).object()[u"criteria"_s].toObject();
    QCOMPARE(stored,
             (QJsonObject{{u"SortCompareSelector"_s, 11},
                          {u"SubsetSelectAll"_s, false},
                          {u"SubsetAndSelect"_s, false},
                          {u"SubsetOrSelect"_s, true},
                          {u"SubsetBasedOnPopup1"_s, 0},
                          {u"SubsetBasedOnIdentifiier1"_s, u"name"_s},
                          {u"SubsetTreatAsPopup1"_s, 1000},
                          {u"SubsetWherePopup1"_s, 1004},
                          {u"SubsetWhereField1"_s, u"s"_s},
                          {u"SubsetBasedOnPopup2"_s, 1001},
                          {u"SubsetTreatAsPopup2"_s, 1002},
                          {u"SubsetWherePopup2"_s, 1008},
                          {u"SubsetWhereField2"_s, u"Mar 5, 2007"_s},
                          {u"DataFormat"_s, 1}}));
    QCOMPARE(selected(output), u"abe"_s);
    QCOMPARE(selected(path), u"abcde"_s);
}

void SelectCommandTest::nothingSelectedWritesNothing_data()
{
    QTest::addColumn<QString>("options");
    QTest::newRow("no match") << u"--where Name equals nobody"_s;
    QTest::newRow("none omitted") << u"--omitted"_s;
    QTest::newRow("from no omitted") << u"--from-omitted --where Name contains smith"_s;
}

void SelectCommandTest::nothingSelectedWritesNothing()
{
    QFETCH(QString, options);
    const QString path = made();
    const QByteArray before = DatafileFixture::contentOf(path);
    const QString output = g_files.path(u"none.tv3"_s);

    for (const QStringList &target : {QStringList{u"--in-place"_s}, QStringList{u"-o"_s, output}}) {
        const CliOutcome outcome = runCli(QStringList{u"select"_s, path} + target + words(options));
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.messages + outcome.result, QByteArray());
    }
    QCOMPARE(DatafileFixture::contentOf(path), before);
    QVERIFY(!QFile::exists(output));
}

void SelectCommandTest::whatMakesNoSenseIsWrongUsage_data()
{
    QTest::addColumn<QString>("options");
    for (const char *options : {"",
                                "--where Name",
                                "--where Name contains",
                                "--where Name like x",
                                "--where=Name contains x",
                                "--as text --where Name empty",
                                "--where Name empty --as text --as text",
                                "--where Name empty --as money",
                                "--where Name empty --where Name empty",
                                "--where Name empty --and",
                                "--and --where Name empty",
                                "--where Name empty --and --or --where Name empty",
                                "--where Name empty --or --where Name empty --or --where Name empty",
                                "--where created contains x",
                                "--where created equals x --as text",
                                "--where Name later x --as numbers",
                                "--all --revert",
                                "--all --where Name empty",
                                "--all --from-omitted"})
        QTest::newRow(options) << QString::fromUtf8(options);
}

void SelectCommandTest::whatMakesNoSenseIsWrongUsage()
{
    QFETCH(QString, options);
    const QString path = made();
    const QStringList given = options.isEmpty() ? QStringList() : words(options);
    QCOMPARE(runCli(QStringList{u"select"_s, path, u"--in-place"_s} + given).status, 2);
    QCOMPARE(selected(path), u"abcde"_s);
}

QTEST_GUILESS_MAIN(SelectCommandTest)
#include "SelectCommandTest.moc"
