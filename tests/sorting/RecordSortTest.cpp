// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSort.h"

#include "sorting/MadeTexts.h"
#include "text/Names.h"

#include <QTest>

#include <numeric>

using namespace tavrin;
using namespace Qt::StringLiterals;

using Places = std::vector<quint32>;

namespace {

struct CancelledSoon : Progress
{
    bool isCancelled() const override { return true; }
};

SortCriteriaData criteriaOf(SortKind kind, const QString &primary = u"A"_s, const QString &secondary = {})
{
    SortCriteriaData criteria;
    criteria.setCompareSelector(static_cast<qint64>(kind));
    criteria.setPrimaryFieldIdentifier(primary);
    criteria.setSecondaryFieldIdentifier(secondary);
    return criteria;
}

} // namespace

class RecordSortTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { g_texts.records.clear(); }
    void fieldsSortAsText();
    void fieldsSortAsNumbers();
    void aSecondFieldMakesEverythingText();
    void unreadableDatesNameTheirRecord();
    void emailDatesSortByTime();
    void wholeRecordsSortByAllTheirTexts();
    void namesWordsAndPostalCodes_data();
    void namesWordsAndPostalCodes();
    void datesOfRecordsSortToTheSecond();
    void entriesWithoutRecordComeFirst();
    void cancelledSortsGiveNoOrder();

private:
    void addFields(const QStringList &values)
    {
        for (const QString &value : values)
            g_texts.records.push_back(value.isNull() ? MadeTexts::Record{}
                                                     : MadeTexts::Record{.fields = {{u"A"_s, value}}});
    }

    tl::expected<Places, SortFailure> sortAll(const SortCriteriaData &criteria)
    {
        Places records(g_texts.records.size());
        std::iota(records.begin(), records.end(), 0U);
        Progress progress;
        return sortedRecords(records, criteria, g_texts, g_settings, progress);
    }

    MadeTexts g_texts;
    SortSettings g_settings{text::defaultTitleList(), QLocale(u"en_US"_s)};
};

void RecordSortTest::fieldsSortAsText()
{
    addFields({u"b"_s, QString(), u"B"_s, u""_s, u"é"_s, u"a"_s, u"10"_s, u"9"_s});
    SortCriteriaData criteria = criteriaOf(SortKind::Text);
    QCOMPARE(*sortAll(criteria), (Places{1, 3, 6, 7, 5, 0, 2, 4}));
    criteria.setDescending(true);
    QCOMPARE(*sortAll(criteria), (Places{4, 2, 0, 5, 7, 6, 3, 1}));
    criteria.setDescending(false);
    criteria.setCaseSensitive(true);
    QCOMPARE(*sortAll(criteria), (Places{1, 3, 6, 7, 2, 5, 0, 4}));

    for (const qint64 other : {0, 12, -1}) {
        criteria.setCompareSelector(other);
        QCOMPARE(*sortAll(criteria), (Places{1, 3, 6, 7, 2, 5, 0, 4}));
    }
}

void RecordSortTest::fieldsSortAsNumbers()
{
    // Terms: 12, 0, -400000000, -399999999, -3, 1234.
    addFields({u"$12"_s, u"abc"_s, u""_s, QString(), u"-3"_s, u"1,234"_s});
    QCOMPARE(*sortAll(criteriaOf(SortKind::Numbers)), (Places{2, 3, 4, 1, 0, 5}));
    g_settings.locale = QLocale(u"de_DE"_s);
    QCOMPARE(*sortAll(criteriaOf(SortKind::Numbers)), (Places{2, 3, 4, 1, 5, 0}));
    g_settings.locale = QLocale(u"en_US"_s);
}

void RecordSortTest::aSecondFieldMakesEverythingText()
{
    const auto add = [this](const QString &a, const QString &b) {
        MadeTexts::Record record;
        if (!a.isNull())
            record.fields[u"A"_s] = a;
        if (!b.isNull())
            record.fields[u"B"_s] = b;
        g_texts.records.push_back(record);
    };
    add(u"Smith"_s, u"Zoe"_s);
    add(u"Smith"_s, u"Ann"_s);
    add(u"Smith"_s, QString()); // "(null)"
    add(u"9"_s, u"x"_s);
    add(u"10"_s, u"x"_s);
    add(QString(), u"x"_s); // "-399999999" as numbers, nothing as text
    QCOMPARE(*sortAll(criteriaOf(SortKind::Text, u"A"_s, u"B"_s)), (Places{5, 4, 3, 2, 1, 0}));
    QCOMPARE(*sortAll(criteriaOf(SortKind::Numbers, u"A"_s, u"B"_s)), (Places{5, 4, 3, 2, 1, 0}));
    // No date is read then, so none fails.
    QCOMPARE(*sortAll(criteriaOf(SortKind::EmailDates, u"A"_s, u"B"_s)), (Places{5, 4, 3, 2, 1, 0}));
}

void RecordSortTest::unreadableDatesNameTheirRecord()
{
    addFields({u"1 Jan 2001 1:00"_s, QString(), u"5 Mar"_s});
    const auto outcome = sortAll(criteriaOf(SortKind::EmailDates));
    QVERIFY(!outcome);
    QCOMPARE(outcome.error().place, 2U);
    QCOMPARE(outcome.error().error.kind, Error::Kind::Corrupt);
    QCOMPARE(outcome.error().error.message, u"The records were not sorted."_s);
    QCOMPARE(unreadableDateText(3), u"Record number 3 has a date that could not be read."_s);
    QVERIFY(sortAll(criteriaOf(SortKind::StandardDates)));

    addFields({u"Sun,"_s});
    QCOMPARE(sortAll(criteriaOf(SortKind::StandardDates)).error().place, 3U);
}

void RecordSortTest::emailDatesSortByTime()
{
    addFields({u"Mon, 5 Mar 2007 10:15:00 +0000"_s,
               u"5 Mar 2007 09:15:00 -0500"_s,
               u"Tue, 26 Dec 2006 10:00:00"_s,
               u""_s,
               QString()});
    QCOMPARE(*sortAll(criteriaOf(SortKind::EmailDates)), (Places{4, 3, 2, 1, 0}));
    QCOMPARE(*sortAll(criteriaOf(SortKind::StandardDates)), (Places{4, 3, 1, 0, 2}));
}

void RecordSortTest::wholeRecordsSortByAllTheirTexts()
{
    g_texts.records = {{.fields = {{u"A"_s, u"x"_s}}, .text = u"t"_s},
                       {.fields = {{u"B"_s, u"a"_s}}, .text = u"z"_s},
                       {.fields = {{u"A"_s, u"x"_s}}, .text = u"S"_s}};
    const RecordTerms terms(criteriaOf(SortKind::AllFields), g_texts, g_settings);
    QString buffer;
    QCOMPARE(terms.text(0, buffer)->toString(), u"x\t%@\t%@t"_s);
    QCOMPARE(*sortAll(criteriaOf(SortKind::AllFields)), (Places{1, 2, 0}));
    QCOMPARE(*sortAll(criteriaOf(SortKind::FreeformText)), (Places{2, 0, 1}));
    QCOMPARE(*sortAll(criteriaOf(SortKind::Text, u"Text"_s)), (Places{2, 0, 1}));

    for (MadeTexts::Record &record : g_texts.records)
        record.text.prepend(QString(200, u'\u00E9'));
    QCOMPARE(*sortAll(criteriaOf(SortKind::FreeformText)), (Places{2, 0, 1}));
}

void RecordSortTest::namesWordsAndPostalCodes_data()
{
    QTest::addColumn<qint64>("kind");
    QTest::addColumn<QList<qint64>>("numbers"); // name's line, word's line, offset, word
    QTest::addColumn<QString>("term");

    const auto row = [](const char *name, SortKind kind, const QList<qint64> &numbers, const QString &term) {
        QTest::newRow(name) << static_cast<qint64>(kind) << numbers << term;
    };
    row("name on line 1", SortKind::FreeformName, {1, 1, 1, 1}, u"Smith\tJohn"_s);
    row("name on line 9", SortKind::FreeformName, {9, 1, 1, 1}, u"line\tlast"_s);
    row("name on last line", SortKind::FreeformName, {-2, 1, 1, 1}, u"line\tlast"_s);
    row("name on last line of address", SortKind::FreeformName, {-1, 1, 1, 1}, u"62704\tSpringfield"_s);
    row("word of text", SortKind::FreeformWord, {1, 2, -6, 2}, u"two"_s);
    row("word of text from its end", SortKind::FreeformWord, {1, 2, -7, -3}, u"three"_s);
    row("word of address", SortKind::FreeformWord, {1, 1, -4, 9}, u"St"_s);
    row("word of address from its end", SortKind::FreeformWord, {1, 1, -5, -3}, u"62704"_s);
    row("word nowhere", SortKind::FreeformWord, {1, 1, 1, 1}, u""_s);
    row("postal code", SortKind::PostalCode, {1, 1, 1, 1}, u"62704"_s);
}

void RecordSortTest::namesWordsAndPostalCodes()
{
    QFETCH(qint64, kind);
    QFETCH(QList<qint64>, numbers);
    QFETCH(QString, term);
    g_texts.records = {{.text = u"Dr. John Smith, Jr.\none two three \nlast line"_s,
                        .address = u"1 A St\nSpringfield IL 62704"_s}};
    SortCriteriaData criteria = criteriaOf(static_cast<SortKind>(kind));
    criteria.setNameLineNumber(numbers[0]);
    criteria.setWordLineNumber(numbers[1]);
    criteria.setWordLineOffset(numbers[2]);
    criteria.setWordNumber(numbers[3]);

    QString buffer;
    QCOMPARE(RecordTerms(criteria, g_texts, g_settings).text(0, buffer)->toString(), term);
}

void RecordSortTest::datesOfRecordsSortToTheSecond()
{
    g_texts.records = {
        {.created = 10.9, .modified = -1}, {.created = 10.1, .modified = -2}, {.created = 9, .modified = 5}};
    QCOMPARE(*sortAll(criteriaOf(SortKind::CreatedDate)), (Places{2, 0, 1}));
    QCOMPARE(*sortAll(criteriaOf(SortKind::ModifiedDate)), (Places{1, 0, 2}));
    QCOMPARE(*sortAll(criteriaOf(SortKind::Text, u"ModifiedDate"_s)), (Places{1, 0, 2}));
}

void RecordSortTest::entriesWithoutRecordComeFirst()
{
    addFields({u"1 Jan 2001 1:00"_s, u""_s});
    g_texts.records[0].text = u"x"_s;
    const Places records{0, RecordTexts::noRecord};
    Progress progress;
    for (qint64 kind = 0; kind <= 11; ++kind) {
        SortCriteriaData criteria;
        criteria.setCompareSelector(kind);
        for (const QString &primary : {u"A"_s, u"Text"_s, u"Name"_s, u"CreatedDate"_s}) {
            criteria.setPrimaryFieldIdentifier(primary);
            const auto order = sortedRecords(records, criteria, g_texts, g_settings, progress);
            if (kind == 4 && primary != "A"_L1)
                QCOMPARE(order.error().place, 0U);
            else if (kind == 7 || kind == 8 || (kind == 2 && primary != "A"_L1))
                QVERIFY(order);
            else
                QCOMPARE(*order, (Places{1, 0}));
        }
    }
}

void RecordSortTest::cancelledSortsGiveNoOrder()
{
    addFields({u"b"_s, u"a"_s});
    CancelledSoon progress;
    const Places records{0, 1};
    for (const SortKind kind : {SortKind::Text, SortKind::Numbers}) {
        const auto outcome = sortedRecords(records, criteriaOf(kind), g_texts, g_settings, progress);
        QCOMPARE(outcome.error().error.kind, Error::Kind::Cancelled);
    }
}

QTEST_GUILESS_MAIN(RecordSortTest)
#include "RecordSortTest.moc"
