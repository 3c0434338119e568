// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/FieldCommands.h"

#include "document/DatafileFixture.h"
#include "document/FieldOperations.h"
#include "document/FieldTotals.h"
#include "document/RecordText.h"
#include "document/TextMoving.h"
#include "document/UndoHistory.h"
#include "richtext/Rtfd.h"

using namespace tavrin;

class FieldCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contentsChangeAndComeBack_data();
    void contentsChangeAndComeBack();
    void lockedAndOmittedRecordsStay();
    void samplesShowTheLineThatChanges();
    void workOnRecordsThatHaveChangedIsRefused();
    void theRestOfAFormattedTextKeepsItsStyles();
    void whatWouldLoseFormattingIsLeft();
    void numbersAreReadAsPeopleWriteThem();
    void aNumberIsFoundInItsContent();
    void totalsGoIntoARecordOfTheirOwn();
    void newTotalsKeepTheRestOfTheirRecord();
    void deletedFieldsTakeTheirContentsAlong();
    void fieldsAreOrderedAndNamed();

private:
    /// Records of the fields "f" and "g" and the text.
    std::unique_ptr<DatafileDocument> opened(const QList<QStringList> &records) const;

    DatafileFixture g_files;
};

namespace {

using MakeWork = std::function<std::unique_ptr<ContentWork>(const DatafileDocument &)>;

QString contents(const DatafileDocument &document)
{
    QStringList lines;
    for (const QString &identifier : document.datafileCatalog().identifiers()) {
        const auto record = document.datafileRecords().view(identifier);
        lines.append(QStringList{record->fieldValue(u"f"_s).toString(),
                                 record->fieldValue(u"g"_s).toString(),
                                 record->textString().toString()}
                         .join(u'|'));
    }
    return lines.join(u';');
}

std::unique_ptr<ContentWork> ran(const DatafileDocument &document, const MakeWork &make)
{
    std::unique_ptr<ContentWork> work = make(document);
    Progress progress;
    work->run(progress);
    return work;
}

template <typename Work, typename Options>
MakeWork maker(const Options &options)
{
    return [options](const DatafileDocument &document) { return std::make_unique<Work>(document, options); };
}

} // namespace

std::unique_ptr<DatafileDocument> FieldCommandsTest::opened(const QList<QStringList> &records) const
{
    plist::Dictionary root = DatafileFixture::root(int(records.size()));
    plist::Dictionary stored;
    plist::Array catalog;
    for (int i = 0; i < records.size(); ++i) {
        const QString identifier = u"r%1"_s.arg(i);
        plist::Dictionary fields;
        if (!records[i][0].isNull())
            fields.insert(u"f"_s, records[i][0]);
        if (!records[i][1].isNull())
            fields.insert(u"g"_s, records[i][1]);
        stored.insert(identifier,
                      plist::Dictionary{{u"RecordIdentifier"_s, identifier},
                                        {u"Fields"_s, fields},
                                        {u"TextString"_s, records[i][2]},
                                        {u"TextRTFD"_s, records[i].value(3).toLatin1()}});
        catalog.append(plist::Dictionary{{u"Identifier"_s, identifier}, {u"CurrentlySelected"_s, true}});
    }
    root.insert(u"Records"_s, stored);
    root.insert(u"Catalog"_s, catalog);
    const plist::Array fields{plist::Dictionary{{u"Identifier"_s, u"f"_s}, {u"Name"_s, u"First"_s}},
                              plist::Dictionary{{u"Identifier"_s, u"g"_s}, {u"Name"_s, u"Second"_s}}};
    root = DatafileFixture::withSetting(root, u"Fields"_s, fields);
    return DatafileFixture::opened(g_files.make(u"records.tv3"_s, root));
}

void FieldCommandsTest::contentsChangeAndComeBack_data()
{
    using Fill = FillEmptyFields;
    using Replace = ReplaceFieldContents;
    using Transfer = TransferFieldContents;
    using Move = MoveTextElements;
    QTest::addColumn<QString>("before");
    QTest::addColumn<MakeWork>("make");
    QTest::addColumn<QString>("after");
    const auto row =
        [](const char *name, const char16_t *before, const MakeWork &make, const char16_t *after) {
            QTest::newRow(name) << QString::fromUtf16(before) << make << QString::fromUtf16(after);
        };
    row("fill", u"a||;|x|", maker<Fill>(Fill::Filling{{u"f"_s, u"g"_s}, u"1\n2"_s, {}}), u"a|1 2|;1 2|x|");
    row("number",
        u"a||;||;||",
        maker<Fill>(Fill::Filling{{u"g"_s}, u"N"_s, Fill::Running{9, 2}}),
        u"a|N9|;|N11|;|N13|");
    row("replace all", u"a||;||", maker<Replace>(Replace::Replacement{u"f"_s, u"n"_s}), u"n||;n||");
    row("replace containing",
        u"Bab||;c||",
        maker<Replace>(Replace::Replacement{u"f"_s, u""_s, Replace::Where::Containing, u"A"_s}),
        u"||;c||");
    row("replace equal",
        u"Ab||;ab||;abc||",
        maker<Replace>(Replace::Replacement{u"f"_s, u"n"_s, Replace::Where::Equal, u"ab"_s, true}),
        u"Ab||;n||;abc||");
    row("copy skips", u"a||;b|x|", maker<Transfer>(Transfer::Transfer{u"f"_s, u"g"_s}), u"a|a|;b|x|");
    row("move appends",
        u"a||;b|x|;|y|",
        maker<Transfer>(Transfer::Transfer{u"f"_s, u"g"_s, true, FilledTarget::Append, u"-"_s}),
        u"|a|;|x-b|;|y|");
    row("from the text",
        u"a||t\nu;b||",
        maker<Transfer>(Transfer::Transfer{u"Text"_s, u"f"_s, true, FilledTarget::Replace}),
        u"t u||;b||");
    row("into the text",
        u"a||t;b||",
        maker<Transfer>(Transfer::Transfer{u"f"_s, u"Text"_s, false, FilledTarget::Append, u"\n"_s}),
        u"a||t\na;b||b");
    using Lines = MoveTextIntoFields::Lines;
    row("lines",
        u"||one\ntwo\nthree;x||one\ntwo",
        maker<MoveTextIntoFields>(Lines::InOrder),
        u"one|two|three;x|two|one\n");
    row("named lines",
        u"||Note: n\nSECOND: s\nrest\nsecond: again",
        maker<MoveTextIntoFields>(Lines::ByName),
        u"|s|Note: n\nrest\nsecond: again");
    row("first address",
        u"||a@b.org c@d.org",
        maker<Move>(Move::Move{Move::Element::Email, u"f"_s}),
        u"a@b.org|| c@d.org");
    row("all numbers",
        u"x||call 555-1234 or 555-9999",
        maker<Move>(Move::Move{Move::Element::PhoneNumber,
                               u"f"_s,
                               true,
                               FilledTarget::Append,
                               u"; "_s,
                               phoneNumberTemplates(nullptr)}),
        u"x; 555-1234; 555-9999||call  or ");
}

void FieldCommandsTest::contentsChangeAndComeBack()
{
    QFETCH(const QString, before);
    QFETCH(const MakeWork, make);
    QList<QStringList> records;
    for (const QString &record : before.split(u';'))
        records.append(record.split(u'|'));
    const auto document = opened(records);
    QVERIFY(ran(*document, make)->apply(*document).value());
    QTEST(contents(*document), "after");
    QVERIFY(document->datafileRecords().view(u"r0"_s).has_value() && document->isModified());
    document->undoHistory().undo();
    QCOMPARE(contents(*document), before);
    QVERIFY(!document->isModified());
    document->undoHistory().redo();
    QTEST(contents(*document), "after");
}

void FieldCommandsTest::samplesShowTheLineThatChanges()
{
    using Transfer = TransferFieldContents;
    const auto samplesOf = [](const ContentWork &work) {
        QStringList samples;
        for (const ContentWork::Sample &sample : work.samples())
            samples.append(sample.field + u':' + sample.before + u">"_s + sample.after);
        return samples;
    };
    const auto document = opened({{u"v"_s, u""_s, u"one\ntwo"_s}, {u""_s, u""_s, u"x\nnew\nend"_s}});
    const auto appending = [](const QString &separator) {
        return maker<Transfer>(Transfer::Transfer{u"f"_s, u"Text"_s, false, FilledTarget::Append, separator});
    };
    QCOMPARE(samplesOf(*ran(*document, appending(u", "_s))), QStringList{u":two>two, v"_s});
    QCOMPARE(samplesOf(*ran(*document, appending(u"\n"_s))), QStringList{u":>v"_s});
    const auto moved = ran(*document, maker<MoveTextIntoFields>(MoveTextIntoFields::Lines::InOrder));
    QCOMPARE(samplesOf(*moved), (QStringList{u"g:>two"_s, u":two>"_s, u"f:>x"_s, u"g:>new"_s, u":x>end"_s}));
}

void FieldCommandsTest::lockedAndOmittedRecordsStay()
{
    const auto document = opened({{u""_s, u""_s, u""_s}, {u""_s, u""_s, u""_s}, {u""_s, u""_s, u""_s}});
    document->datafileRecords().recordForIdentifier(u"r0"_s)->setRecordLocked(true);
    document->datafileCatalog().omitIdentifier(u"r1"_s);
    const MakeWork fill =
        maker<FillEmptyFields>(FillEmptyFields::Filling{{u"f"_s}, u"n"_s, FillEmptyFields::Running{}});
    const auto work = ran(*document, fill);
    QCOMPARE(work->lockedRecords(), 1);
    QCOMPARE(work->changedContents(), 1);
    QCOMPARE(work->samples().front().after, u"n1"_s);
    QVERIFY(work->apply(*document).value());
    QCOMPARE(contents(*document), u"||;||;n1||"_s);
    QVERIFY(!ran(*document, fill)->apply(*document).value());
    QCOMPARE(document->undoHistory().undoName(), u"Fill Empty Fields"_s);
}

void FieldCommandsTest::workOnRecordsThatHaveChangedIsRefused()
{
    const auto document = opened({{u""_s, u""_s, u""_s}});
    const auto work =
        ran(*document, maker<ReplaceFieldContents>(ReplaceFieldContents::Replacement{u"f"_s, u"n"_s}));
    document->storeFieldValue(u"r0"_s, u"f"_s, u"typed meanwhile"_s);
    QCOMPARE(work->apply(*document).error().kind, Error::Kind::Refused);
    QCOMPARE(contents(*document), u"typed meanwhile||"_s);
}

void FieldCommandsTest::theRestOfAFormattedTextKeepsItsStyles()
{
    const QString rtf = u"{\\rtf1\\ansi one\\par {\\b two}\\par three}"_s;
    const auto document = opened({{u""_s, u"x"_s, u"one\ntwo\nthree"_s, rtf}});
    QVERIFY(ran(*document, maker<MoveTextIntoFields>(MoveTextIntoFields::Lines::InOrder))
                ->apply(*document)
                .value());
    QCOMPARE(contents(*document), u"one|x|two\nthree"_s);
    const auto rich = richtext::readRichText(document->datafileRecords().view(u"r0"_s)->textRTFD());
    QCOMPARE(rich->text(), u"two\nthree"_s);
    QVERIFY(rich->characterFormatAt(0).bold && !rich->characterFormatAt(5).bold);
    document->undoHistory().undo();
    QCOMPARE(document->datafileRecords().view(u"r0"_s)->textRTFD(), rtf.toLatin1());
}

void FieldCommandsTest::whatWouldLoseFormattingIsLeft()
{
    const QString other = u"{\\rtf1\\ansi something else}"_s;
    const auto document = opened({{u"a"_s, u""_s, u"text"_s, other}, {u""_s, u""_s, u"\uFFFC picture"_s}});
    const auto append = ran(*document,
                            maker<TransferFieldContents>(TransferFieldContents::Transfer{
                                u"f"_s, u"Text"_s, true, FilledTarget::Append}));
    QCOMPARE(append->leftRecords(), 1);
    QVERIFY(!append->apply(*document).value());
    const auto move = ran(
        *document, maker<TransferFieldContents>(TransferFieldContents::Transfer{u"Text"_s, u"g"_s, true}));
    QCOMPARE(move->leftRecords(), 1);
    QVERIFY(move->apply(*document).value());
    QCOMPARE(contents(*document), u"a|text|;||\uFFFC picture"_s);
}

void FieldCommandsTest::numbersAreReadAsPeopleWriteThem()
{
    const auto document = opened({{u"$1,200.10"_s, u"x"_s, u""_s},
                                  {u"0.2"_s, u""_s, u""_s},
                                  {u"EUR -3"_s, {}, u""_s},
                                  {u"none"_s, {}, u""_s}});
    FieldTotals totals(*document, {u"f"_s, u"g"_s}, QLocale(u"en_US"_s));
    Progress progress;
    totals.run(progress);
    const FieldTotal &total = totals.totals()[0];
    QCOMPARE(FieldTotals::textOf(total.sum, QLocale::c()), u"1197.3"_s);
    QCOMPARE(total.count, 3);
    QCOMPARE(total.smallest, -3.0);
    QCOMPARE(total.largest, 1200.1);
    QCOMPARE(total.unreadableSamples, QStringList{u"none"_s});
    QCOMPARE(totals.totals()[1].count, 0);
    QCOMPARE(totals.totals()[1].unreadable, 1);
}

void FieldCommandsTest::aNumberIsFoundInItsContent()
{
    const QLocale english(u"en_US"_s);
    const QLocale german(u"de_DE"_s);
    const QList<std::tuple<QString, QLocale, std::optional<double>>> cases{
        {u"-3"_s, english, -3},
        {u"\u22123"_s, english, -3},
        {u"-$12"_s, english, -12},
        {u"\u2212\u20AC1,5"_s, german, -1.5},
        {u"$-12"_s, english, -12},
        {u"$.50"_s, english, .5},
        {u"-.5"_s, english, -.5},
        {u"A-3"_s, english, 3},
        {u"No.5"_s, english, 5},
        {u" 7 "_s, english, 7},
        {u"\u0663"_s, english, 3}, // Of another script.
        {u"2026-03"_s, english, {}},
        {u"https://example.com/44"_s, english, {}},
        {u"see www.example.com/$4"_s, english, {}},
        {u"-"_s, english, {}}};
    for (const auto &[content, locale, number] : cases) {
        const auto document = opened({{content, u""_s, u""_s}});
        FieldTotals totals(*document, {u"f"_s}, locale);
        Progress progress;
        totals.run(progress);
        const FieldTotal &total = totals.totals()[0];
        QVERIFY2(total.count == (number ? 1 : 0) && total.sum == number.value_or(0), qPrintable(content));
    }
}

void FieldCommandsTest::totalsGoIntoARecordOfTheirOwn()
{
    const auto document = opened({{u"1"_s, u""_s, u""_s}, {u"2"_s, u""_s, u""_s}});
    document->datafileSettings().setAutoAddContentFieldID(u"g"_s);
    document->datafileSettings().setAutoAddNumber(true);
    const auto total = [&document] {
        FieldTotals totals(*document, {u"f"_s}, QLocale::c());
        Progress progress;
        totals.run(progress);
        return FieldTotals::totalRecordIn(*document).isNull()
                   ? (void)totals.addTotalRecord(*document)
                   : (void)totals.updateTotalRecord(*document, FieldTotals::totalRecordIn(*document));
    };
    total();
    QCOMPARE(contents(*document), u"1||;2||;3||Total of 2 records"_s);
    document->storeFieldValue(u"r1"_s, u"f"_s, u"4"_s);
    document->storeText(FieldTotals::totalRecordIn(*document), u"Total of 2 records\nnote"_s);
    total();
    QCOMPARE(contents(*document), u"1||;4||;5||Total of 2 records\nnote"_s);
    document->undoHistory().undo();
    document->undoHistory().undo();
    QCOMPARE(contents(*document), u"1||;4||"_s);
}

void FieldCommandsTest::newTotalsKeepTheRestOfTheirRecord()
{
    const QString rtf = u"{\\rtf1\\ansi Total of 9 records\\par {\\b note}}"_s;
    const auto document =
        opened({{u"1"_s, u""_s, u""_s}, {u"9"_s, u"8"_s, u"Total of 9 records\nnote"_s, rtf}});
    RecordData *record = document->datafileRecords().recordForIdentifier(u"r1"_s);
    record->setIsSum(true);
    FieldTotals totals(*document, {u"f"_s, u"g"_s}, QLocale::c());
    Progress progress;
    totals.run(progress);
    QVERIFY(totals.updateTotalRecord(*document, u"r1"_s));
    QCOMPARE(contents(*document), u"1||;1||Total of 1 records\nnote"_s);
    const auto rich = richtext::readRichText(document->datafileRecords().view(u"r1"_s)->textRTFD());
    QCOMPARE(rich->text(), u"Total of 1 records\nnote"_s);
    QVERIFY(!rich->characterFormatAt(0).bold && rich->characterFormatAt(rich->size() - 1).bold);

    document->storeText(u"r1"_s, u"another text"_s);
    record = document->datafileRecords().recordForIdentifier(u"r1"_s);
    record->setTextRTFD(rtf.toLatin1());
    const QString before = contents(*document);
    QVERIFY(!totals.updateTotalRecord(*document, u"r1"_s));
    QCOMPARE(contents(*document), before);
}

void FieldCommandsTest::deletedFieldsTakeTheirContentsAlong()
{
    const auto document = opened({{u"a"_s, u"x"_s, u""_s}, {u"b"_s, {}, u""_s}});
    document->datafileRecords().recordForIdentifier(u"r1"_s)->setRecordLocked(true);
    document->datafileCatalog().omitIdentifier(u"r1"_s);
    DatafileSettingsData &settings = document->datafileSettings();
    settings.setTitleField(u"f"_s);
    settings.setAutoAddContentFieldID(u"f"_s);
    SubsetSortCriteriaData criteria;
    criteria.setPrimaryFieldIdentifier(u"f"_s);
    settings.setCriteria(criteria);
    FieldUse use(*document);
    Progress progress;
    use.run(progress);
    QCOMPARE(use.counts(), (QHash<QString, qint64>{{u"f"_s, 2}, {u"g"_s, 1}}));
    QCOMPARE(use.lockedCounts(), (QHash<QString, qint64>{{u"f"_s, 1}, {u"g"_s, 0}}));

    FieldOperations(*document).remove(u"f"_s);
    QCOMPARE(contents(*document), u"|x|;||"_s);
    QVERIFY(document->datafileRecords().view(u"r1"_s)->fieldValue(u"f"_s).isAbsent());
    QCOMPARE(settings.fields().size(), 1);
    QCOMPARE(settings.titleField(), u"Text"_s);
    QCOMPARE(settings.autoAddContentFieldID(), u""_s);
    QCOMPARE(settings.criteria<SubsetSortCriteriaData>().primaryFieldIdentifier(), u"Text"_s);
    document->undoHistory().undo();
    QCOMPARE(contents(*document), u"a|x|;b||"_s);
    QCOMPARE(settings.titleField(), u"f"_s);
    QCOMPARE(settings.criteria<SubsetSortCriteriaData>().primaryFieldIdentifier(), u"f"_s);
    QCOMPARE(settings.fields().first().name(), u"First"_s);
}

void FieldCommandsTest::fieldsAreOrderedAndNamed()
{
    const auto document = opened({{u"a"_s, u"x"_s, u""_s}});
    const auto names = [&document] {
        QStringList listed;
        for (const FieldDefinition &field : document->datafileSettings().fields())
            listed.append(field.show() ? field.name() : u"(%1)"_s.arg(field.name()));
        return listed.join(u' ');
    };
    FieldOperations fields(*document);
    QVERIFY(!fields.add(u" "_s) && !fields.rename(u"f"_s, u""_s) && !document->isModified());
    const QString added = fields.add(u"Third\tfield"_s).value();
    fields.move(added, 0);
    fields.setShown(u"g"_s, false);
    QVERIFY(fields.rename(u"f"_s, u"Once"_s));
    QCOMPARE(names(), u"Third field Once (Second)"_s);
    AddFieldWithContent work(*document, u"New"_s, u"n"_s);
    Progress progress;
    work.run(progress);
    QVERIFY(work.apply(*document).value());
    QCOMPARE(document->datafileRecords().view(u"r0"_s)->fieldValue(work.field()).toString(), u"n"_s);
    QVERIFY(document->saveCopyAs(g_files.path(u"copy.tv3"_s)));
    QCOMPARE(DatafileFixture::opened(g_files.path(u"copy.tv3"_s))->datafileSettings().fields().size(), 4);
    for (int step = 0; step < 5; ++step)
        document->undoHistory().undo();
    QCOMPARE(names(), u"First Second"_s);
    QVERIFY(!document->isModified());
}

QTEST_GUILESS_MAIN(FieldCommandsTest)
#include "FieldCommandsTest.moc"
