// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordMatcher.h"

#include "sorting/MadeTexts.h"
#include "sorting/RecordSelection.h"

#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 anyField = 1000, created = 1001, modified = 1002, freeform = 1003, field = 0;

/// Records whose text is their number, for any threads.
class Numbers : public MadeTexts
{
public:
    RecordTextReader textReader() const override
    {
        return [](quint32 record, QString &buffer) { return QStringView(buffer.setNum(record)); };
    }
};

} // namespace

class RecordMatcherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void operatorsMatch_data();
    void operatorsMatch();
    void conditionsAreJoined_data();
    void conditionsAreJoined();
    void recordsThatAreNotThereAreEmpty();
    void manyRecordsAreJudgedAsOneIs();

private:
    MadeTexts g_texts;
    SelectionSettings g_settings{QLocale(u"en_US"_s), QTimeZone::utc()};
};

void RecordMatcherTest::initTestCase()
{
    constexpr double march5 = 194745600; // 2007-03-05T00:00:00Z
    g_texts.records = {
        {.fields = {{u"A"_s, u"$5"_s}, {u"B"_s, u"cafe\u0301"_s}},
         .text = u"Hello World"_s,
         .created = march5 + 3600},
        {.fields = {{u"A"_s, u""_s}, {u"B"_s, u"HELLO"_s}},
         .text = u"abcde"_s,
         .created = march5,
         .modified = march5},
        {.fields = {{u"A"_s, u"Mar 5, 2007"_s}, {u"B"_s, u"2007-03-06"_s}},
         .text = u""_s,
         .created = march5 - 1},
        {.fields = {{u"B"_s, u"Straße"_s}}, .text = u"Apr 1, 2007: fools"_s, .created = march5 + 1e6},
    };
}

void RecordMatcherTest::operatorsMatch_data()
{
    QTest::addColumn<qint64>("code");
    QTest::addColumn<qint64>("basis");
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<QString>("value");
    QTest::addColumn<qint64>("treatAs");
    QTest::addColumn<QString>("matched"); // one digit for each record

    const auto row = [](const char *name,
                        qint64 code,
                        qint64 basis,
                        const QString &identifier,
                        const QString &value,
                        const QString &matched,
                        qint64 treatAs = 1000) {
        QTest::newRow(name) << code << basis << identifier << value << treatAs << matched;
    };
    row("contains, text", 1000, freeform, u""_s, u"world"_s, u"1000"_s);
    row("contains, case", 1000, freeform, u""_s, u"world"_s, u"0000"_s, 1001);
    row("contains, any field", 1000, anyField, u""_s, u"hello"_s, u"1100"_s);
    row("contains not, any field", 1001, anyField, u""_s, u"hello"_s, u"0011"_s);
    row("contains, field", 1000, field, u"B"_s, u"CAFÉ"_s, u"1000"_s);
    row("contains, part of a letter", 1000, field, u"B"_s, u"cafe"_s, u"0000"_s);
    row("contains, sharp s", 1000, field, u"B"_s, u"STRASSE"_s, u"0001"_s);
    row("contains nothing", 1000, anyField, u""_s, u""_s, u"0000"_s);
    row("contains not nothing", 1001, anyField, u""_s, u""_s, u"1111"_s);
    row("contains, field that is not there", 1000, field, u"C"_s, u"a"_s, u"0000"_s);
    row("equals, text", 1002, freeform, u""_s, u"hello world"_s, u"1000"_s);
    row("equals, field", 1002, field, u"B"_s, u"hello"_s, u"0100"_s);
    row("equals not, field", 1003, field, u"B"_s, u"hello"_s, u"1011"_s);
    row("equals, part", 1002, field, u"B"_s, u"hell"_s, u"0000"_s);
    // A field as long as the text, which need not be all of the field.
    row("equals, any field", 1002, anyField, u""_s, u"hello"_s, u"0100"_s);
    row("equals, any field of another length", 1002, anyField, u""_s, u"café"_s, u"0000"_s);
    row("begins, text", 1004, freeform, u""_s, u"HELLO"_s, u"1000"_s);
    row("begins, any field", 1004, anyField, u""_s, u"hello"_s, u"1000"_s);
    row("begins not, field", 1005, field, u"B"_s, u"st"_s, u"1110"_s);
    row("only holds it, text", 1004, freeform, u""_s, u"world"_s, u"0000"_s);
    row("only holds it, field", 1005, field, u"B"_s, u"ra"_s, u"1111"_s);
    row("begins with nothing", 1004, field, u"B"_s, u""_s, u"0000"_s);
    row("empty, text", 1006, freeform, u""_s, u""_s, u"0010"_s);
    row("not empty, field", 1007, field, u"A"_s, u""_s, u"1010"_s);
    row("empty, any field", 1006, anyField, u"A"_s, u""_s, u"0101"_s);
    row("created on", 1008, created, u""_s, u"Mar 5, 2007"_s, u"0100"_s);
    row("created not on", 1009, created, u""_s, u"Mar 5, 2007"_s, u"1011"_s);
    row("created later", 1010, created, u""_s, u"March 5, 2007"_s, u"1001"_s);
    row("created earlier", 1011, created, u""_s, u"2007-03-05"_s, u"0010"_s);
    row("modified on", 1008, modified, u""_s, u"Mar 5, 07"_s, u"0100"_s);
    row("created on no date", 1009, created, u""_s, u"soon"_s, u"1111"_s);
    row("field's date", 1008, field, u"A"_s, u"Mar 5, 2007"_s, u"0010"_s, 1002);
    row("field's date not", 1009, field, u"B"_s, u"Mar 5, 2007"_s, u"0010"_s, 1002);
    row("field's date later", 1010, field, u"B"_s, u"Mar 5, 2007"_s, u"0010"_s, 1002);
    row("text's date later", 1010, freeform, u""_s, u"Mar 5, 2007"_s, u"0001"_s, 1002);
    row("any date later", 1010, anyField, u""_s, u"Mar 5, 2007"_s, u"0011"_s, 1002);
    row("no date equals", 1009, anyField, u""_s, u"Mar 5, 2007"_s, u"0001"_s, 1002);
    row("less", 1012, field, u"A"_s, u"10"_s, u"1010"_s, 1003); // a date is no number: 0
    row("greater", 1013, field, u"A"_s, u"$ 4.5"_s, u"1000"_s, 1003);
    row("number equals", 1014, field, u"A"_s, u"5.0"_s, u"1000"_s, 1003);
    row("number equals not", 1015, field, u"A"_s, u"5"_s, u"0010"_s, 1003);
    row("numbers of any field", 1012, anyField, u""_s, u"10"_s, u"0000"_s, 1003);
    row("unknown operator", 1016, field, u"A"_s, u"5"_s, u"0000"_s);
}

void RecordMatcherTest::operatorsMatch()
{
    QFETCH(qint64, code);
    QFETCH(qint64, basis);
    QFETCH(QString, identifier);
    QFETCH(QString, value);
    QFETCH(qint64, treatAs);
    QFETCH(QString, matched);
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(false);
    criteria.setWherePopup1(code);
    criteria.setBasedOnPopup1(basis);
    criteria.setBasedOnIdentifier1(identifier);
    criteria.setWhereField1(value);
    criteria.setTreatAsPopup1(treatAs);

    RecordMatcher matcher(criteria, g_texts, g_settings);
    QString result;
    for (quint32 record = 0; record < g_texts.records.size(); ++record)
        result += matcher.matches(record) ? u'1' : u'0';
    QCOMPARE(result, matched);
}

void RecordMatcherTest::conditionsAreJoined_data()
{
    QTest::addColumn<bool>("all");
    QTest::addColumn<bool>("both");
    QTest::addColumn<bool>("either");
    QTest::addColumn<QString>("matched");
    QTest::newRow("first alone") << false << false << false << u"1100"_s;
    QTest::newRow("and") << false << true << false << u"1000"_s;
    QTest::newRow("or") << false << false << true << u"1101"_s;
    QTest::newRow("and wins") << false << true << true << u"1000"_s;
    QTest::newRow("all") << true << true << false << u"1111"_s;
}

void RecordMatcherTest::conditionsAreJoined()
{
    QFETCH(bool, all);
    QFETCH(bool, both);
    QFETCH(bool, either);
    QFETCH(QString, matched);
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(all);
    criteria.setAndSelect(both);
    criteria.setOrSelect(either);
    criteria.setWherePopup1(1000);
    criteria.setBasedOnPopup1(anyField);
    criteria.setWhereField1(u"hello"_s);
    criteria.setWherePopup2(1000);
    criteria.setBasedOnPopup2(freeform);
    criteria.setWhereField2(u"oo"_s);
    g_texts.records[0].text = u"Hello World of wool"_s;

    RecordMatcher matcher(criteria, g_texts, g_settings);
    QString result;
    for (quint32 record = 0; record < g_texts.records.size(); ++record)
        result += matcher.matches(record) ? u'1' : u'0';
    QCOMPARE(result, matched);
}

void RecordMatcherTest::recordsThatAreNotThereAreEmpty()
{
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(false);
    for (qint64 code = 1000; code <= 1015; ++code) {
        criteria.setWherePopup1(code);
        criteria.setWhereField1(u"Mar 5, 2007"_s);
        const bool isNegated = code == 1001 || code == 1003 || code == 1005 || code == 1006;
        for (const qint64 basis : {anyField, created, freeform, field}) {
            criteria.setBasedOnPopup1(basis);
            RecordMatcher matcher(criteria, g_texts, g_settings);
            QCOMPARE(matcher.matches(RecordTexts::noRecord), isNegated);
        }
    }
}

void RecordMatcherTest::manyRecordsAreJudgedAsOneIs()
{
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(false);
    criteria.setWherePopup1(1000);
    criteria.setBasedOnPopup1(freeform);
    criteria.setWhereField1(u"77"_s);
    const Numbers texts;
    CatalogRecords catalog;
    constexpr quint32 count = 40'001;
    for (quint32 i = 0; i < count; ++i) {
        catalog.entries.emplace_back(i % 11 == 0 ? IdentifierTable::none : i, i % 3 != 0, true, 0);
        catalog.records.push_back(i);
    }
    Progress progress;
    const auto states = selectionByCriteria(catalog, criteria, false, texts, g_settings, progress);
    QVERIFY(states.has_value());
    QCOMPARE(states->size(), size_t(count));
    for (quint32 i = 0; i < count; ++i)
        QCOMPARE((*states)[i], i % 11 != 0 && i % 3 != 0 && QString::number(i).contains(u"77"));

    struct Cancelling : Progress
    {
        bool isCancelled() const override { return true; }
    } cancelling;
    const auto stopped = selectionByCriteria(catalog, criteria, false, texts, g_settings, cancelling);
    QVERIFY(!stopped && stopped.error().kind == Error::Kind::Cancelled);
}

QTEST_GUILESS_MAIN(RecordMatcherTest)
#include "RecordMatcherTest.moc"
