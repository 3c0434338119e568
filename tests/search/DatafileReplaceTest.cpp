// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/DatafileReplace.h"

#include "base/SharedProgress.h"
#include "document/UndoHistory.h"
#include "richtext/Rtfd.h"
#include "search/SearchFixture.h"

using namespace tavrin;
using namespace Qt::StringLiterals;

class DatafileReplaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyOccurrenceIsReplaced();
    void codesAndWordsLimitWhatIsReplaced();
    void whatIsLockedOmittedOrFormattedStays();
    void whatIsReplacedKeepsItsLook();
    void undoPutsBackWhatWasThere();
    void nothingToReplaceChangesNothing();
    void oneHitIsReplacedAndTheSearchGoesOnBehindIt();

private:
    std::unique_ptr<DatafileDocument> document(const QList<TestRecord> &records,
                                               const QSet<qsizetype> &hidden = {}) const
    {
        return DatafileFixture::opened(g_folder.make(u"replaced.tv3"_s, searchedDatafile(records, hidden)));
    }
    struct Outcome
    {
        qint64 replacements;
        qint64 records;
        QStringList left;
    };
    /// As the panel does it: what is slow is done ahead.
    Outcome replace(DatafileDocument &document,
                    const Replacement &replacement,
                    qint64 fields = FieldsToSearchIn::everything,
                    const QString &onlyRecord = {},
                    UnkeptFormatting formatting = UnkeptFormatting::Leave)
    {
        const IdentifierTable &identifiers = document.datafileRecords().identifiers();
        ReplaceAllWork work(document, replacement, fields, formatting);
        if (!onlyRecord.isEmpty())
            work.restrictTo(identifiers.number(onlyRecord));
        work.run(g_progress);
        if (!work.apply(document))
            return {-1, -1, {}};
        QStringList left;
        for (const quint32 record : work.leftTexts())
            left.append(identifiers.text(record));
        return {work.replacements(), work.changedRecords(), left};
    }
    /// Fields and text of all records, in one line each.
    static QStringList contents(const DatafileDocument &document)
    {
        QStringList contents;
        document.datafileRecords().forEach([&](quint32, const RecordView &record) {
            QStringList parts;
            for (const FieldDefinition &field : document.datafileSettings().fields())
                parts.append(record.fieldValue(field.identifier()).toString());
            contents.append((parts << record.textString().toString()).join(u'|'));
        });
        return contents;
    }

    DatafileFixture g_folder;
    Progress g_progress;
};

void DatafileReplaceTest::everyOccurrenceIsReplaced()
{
    const auto document =
        this->document({{{u"aXa"_s, u"cafe\u0301"_s}, u"A & a<a>"_s}, {{u"b"_s, u"b"_s}, u"b"_s}}, {0});

    // What is put in is not searched again, and a field stays one line.
    const Outcome outcome = replace(*document, {u"a"_s, u"a\na"_s, {}});
    QCOMPARE(outcome.replacements, 6);
    QCOMPARE(outcome.records, 1);
    QCOMPARE(contents(*document), (QStringList{u"a aXa a|ca afe\u0301|a\na & a\na<a\na>"_s, u"b|b|b"_s}));
    QVERIFY(document->isModified());
    QCOMPARE(document->datafileRecords().view(u"r0"_s)->modifiedBy(), u"Test Person"_s);
    QVERIFY(document->datafileRecords().view(u"r1"_s)->modifiedBy().isEmpty());

    QCOMPARE(replace(*document, {u"\u00E9"_s, {}, {}}).replacements, 1);
    QVERIFY(contents(*document).constFirst().startsWith(u"a aXa a|ca af|"));
}

void DatafileReplaceTest::codesAndWordsLimitWhatIsReplaced()
{
    const QList<TestRecord> records{{{u"cat, catalog"_s, u"cat"_s}, u"Cat"_s},
                                    {{u"cat"_s, u"cat"_s}, u"cat"_s}};
    const auto replaced = [&](KeyOptions options, qint64 fields, const QString &onlyRecord) {
        const auto document = this->document(records);
        replace(*document, {u"cat"_s, u"dog"_s, options}, fields, onlyRecord);
        return contents(*document).join(u'/');
    };
    const KeyOptions word{.wholeWord = true};
    QCOMPARE(replaced(word, 0, u"r0"_s), u"dog, catalog|cat|Cat/cat|cat|cat"_s);
    QCOMPARE(replaced(word, FieldsToSearchIn::freeformText, {}), u"cat, catalog|cat|dog/cat|cat|dog"_s);
    QCOMPARE(replaced({.caseSensitive = true}, FieldsToSearchIn::everything, u"r0"_s),
             u"dog, dogalog|dog|Cat/cat|cat|cat"_s);
    QCOMPARE(replaced({}, 1, {}), u"cat, catalog|dog|Cat/cat|dog|cat"_s);
    QCOMPARE(replaced({}, 1, u"r9"_s), u"cat, catalog|cat|Cat/cat|cat|cat"_s);
}

void DatafileReplaceTest::whatIsLockedOmittedOrFormattedStays()
{
    const auto document = this->document({{{u"x"_s}, u"x"_s, true, true},
                                          {{u"x"_s}, u"x"_s, false},
                                          {{u"x"_s}, u"x"_s, true, false, "rtfd"},
                                          {{u"o"_s}, u"o"_s, true, false, "rtfd"}});
    Outcome outcome = replace(*document, {u"x"_s, u"y"_s, {}});
    QCOMPARE(contents(*document), (QStringList{u"x|x"_s, u"x|x"_s, u"y|x"_s, u"o|o"_s}));
    QCOMPARE(outcome.left, QStringList{u"r2"_s});
    QCOMPARE(outcome.replacements, 1);

    outcome =
        replace(*document, {u"x"_s, u"y"_s, {}}, FieldsToSearchIn::everything, {}, UnkeptFormatting::Drop);
    QCOMPARE(contents(*document), (QStringList{u"x|x"_s, u"x|x"_s, u"y|y"_s, u"o|o"_s}));
    QVERIFY(document->datafileRecords().view(u"r2"_s)->textRTFD().isEmpty());
    QCOMPARE(document->datafileRecords().view(u"r3"_s)->textRTFD(), QByteArray("rtfd"));
    document->undoHistory().undo();
    QCOMPARE(contents(*document)[2], u"y|x"_s);
    QCOMPARE(document->datafileRecords().view(u"r2"_s)->textRTFD(), QByteArray("rtfd"));
}

void DatafileReplaceTest::whatIsReplacedKeepsItsLook()
{
    using namespace richtext;
    AttributedText text(u"one bold\ntwo"_s);
    text.apply(4, 4, [](CharacterFormat &look) { look.bold = true; });
    text.applyToParagraphs(0, 1, [](ParagraphFormat &format) { format.alignment = Alignment::Center; });
    const auto document = this->document({{{u"x"_s}, text.text(), true, false, writeRichText(text)}});
    const auto replaced = [&](const QString &what, const QString &with) {
        replace(*document, {what, with, {}});
        const auto record = document->datafileRecords().view(u"r0"_s);
        const AttributedText formatted = *readRichText(record->textRTFD());
        return formatted.text() == record->textString().toString() ? formatted : AttributedText();
    };

    AttributedText found = replaced(u"o"_s, u"00"_s);
    QCOMPARE(found.text(), u"00ne b00ld\ntw00"_s);
    QVERIFY(!found.characterFormatAt(1).bold && found.characterFormatAt(7).bold);
    found = replaced(u"e b"_s, u"e\nB"_s);
    QCOMPARE(found.text(), u"00ne\nB00ld\ntw00"_s);
    QVERIFY(!found.characterFormatAt(5).bold && found.characterFormatAt(6).bold);
    QCOMPARE(found.paragraphFormatAt(6).alignment, Alignment::Center);
    found = replaced(u"d\nt"_s, u""_s);
    QCOMPARE(found.text(), u"00ne\nB00lw00"_s);
    QCOMPARE(found.paragraphFormatAt(found.size()).alignment, Alignment::Center);
}

void DatafileReplaceTest::undoPutsBackWhatWasThere()
{
    const auto document = this->document({{{u"ab"_s, u"ba"_s}, u"a"_s}, {{u"b"_s, u"a"_s}, u"b"_s}});
    const QStringList before = contents(*document);
    const RecordData *open = document->datafileRecords().recordForIdentifier(u"r0"_s);
    replace(*document, {u"a"_s, u"long"_s, {}});
    const QStringList after = contents(*document);
    QVERIFY(after != before);
    // Whoever has it open goes on with the same record.
    QCOMPARE(document->datafileRecords().recordForIdentifier(u"r0"_s), open);
    QCOMPARE(open->textString(), u"long"_s);
    document->deleteRecord(document->addRecord({}));
    document->undoHistory().undo();
    QCOMPARE(contents(*document), before);
    document->undoHistory().redo();
    QCOMPARE(contents(*document), after);
}

void DatafileReplaceTest::nothingToReplaceChangesNothing()
{
    const auto document = this->document({{{u"a"_s}, u"a"_s}});
    for (const QString &key : {u"none"_s, u""_s})
        QCOMPARE(replace(*document, {key, u"y"_s, {}}).replacements, 0);
    SharedProgress cancelled;
    cancelled.cancel();
    ReplaceAllWork work(*document, {u"a"_s, u"y"_s, {}}, 1002, UnkeptFormatting::Drop);
    work.run(cancelled);
    QVERIFY(!work.apply(*document));
    QVERIFY(!document->isModified());
    QCOMPARE(contents(*document), QStringList{u"a|a"_s});
}

void DatafileReplaceTest::oneHitIsReplacedAndTheSearchGoesOnBehindIt()
{
    const auto document = this->document({{{u"a aa"_s}, u"a a"_s}, {{u"a"_s}, u"a"_s, true, true}});
    const DatafileSearch search(*document, {}, FieldsToSearchIn::everything);
    SearchStart start;
    for (int count = 0; const auto hit = search.forwardSearchForString(u"A"_s, start, {}, g_progress);
         ++count) {
        const auto place = replaceString(*document, *hit, {u"A"_s, u"a.a"_s, {}});
        QCOMPARE(place.has_value(), count < 5);
        // Not a second time: something else stands there now, or the record is locked.
        QVERIFY(!replaceString(*document, *hit, {u"a "_s, u"b"_s, {}}));
        if (!place)
            break;
        start = {hit->record, *place, {}};
    }
    QCOMPARE(contents(*document), (QStringList{u"a.a a.aa.a|a.a a.a"_s, u"a|a"_s}));
    QVERIFY(!replaceString(*document, {0, 1000, {}}, {u"a"_s, u"b"_s, {}}));
}

QTEST_GUILESS_MAIN(DatafileReplaceTest)
#include "DatafileReplaceTest.moc"
