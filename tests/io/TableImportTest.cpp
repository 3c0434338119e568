// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableImport.h"

#include "document/DatafileFixture.h"
#include "document/SteppedChange.h"
#include "model/ElementSource.h"
#include "model/RecordKey.h"
#include "plist/XmlWriter.h"
#include "support/TestEnvironment.h"
#include "text/TextSieve.h"

#include <QRegularExpression>

#include <limits>

using namespace tavrin;

namespace {

using Rows = QList<QStringList>;

const TestEnvironment environment;

std::unique_ptr<DatafileDocument> datafileWith(const QStringList &fields, const QStringList &values)
{
    auto document = DatafileDocument::newDatafile({environment}, DatafileKind::Pro, fields, {});
    for (qsizetype i = 0; i < values.size(); ++i)
        document->storeFieldValue(document->datafileCatalog().identifierAtIndex(0),
                                  document->datafileSettings().fields()[i].identifier(),
                                  values[i]);
    return document;
}

/// The fields of the selected records in the order of the catalog; "-" for an absent one, and the text behind
/// them when there is one.
Rows rowsOf(const DatafileDocument &document)
{
    Rows rows;
    for (const QString &identifier : document.datafileCatalog().selectedIdentifiers()) {
        const auto record = document.datafileRecords().view(identifier);
        QStringList row;
        for (const FieldDefinition &field : document.datafileSettings().fields()) {
            const TextView value = record->fieldValue(field.identifier());
            row.append(value.isAbsent() ? u"-"_s : value.toString());
        }
        if (!record->textString().isEmpty())
            row.append(record->textString().toString());
        rows.append(row);
    }
    return rows;
}

QStringList namesOf(const DatafileDocument &document)
{
    QStringList names;
    for (const FieldDefinition &field : document.datafileSettings().fields())
        names.append(field.name());
    return names;
}

Result<ReadTable> tableOf(const QByteArray &text, const ImportOptions &options)
{
    Progress progress;
    return readTable(textContentOf(text), options, std::numeric_limits<qint64>::max(), progress);
}

std::unique_ptr<DatafileDocument> imported(const QByteArray &text, const ImportOptions &options)
{
    const Result<ReadTable> table = tableOf(text, options);
    auto document =
        newDatafileForImport({environment}, DatafileKind::Pro, importedFieldNames(*table, options));
    Progress progress;
    return importTable(*document, *table, options, progress) ? std::move(document) : nullptr;
}

class CancelledProgress : public Progress
{
public:
    bool isCancelled() const override { return true; }
};

} // namespace

class TableImportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newDatafilesHaveTheNamesOfTheirKind_data();
    void newDatafilesHaveTheNamesOfTheirKind();
    void recordsStaySoThroughASave();
    void elementsAreThoseOfTheDictionaries();
    void appendingIsOneStep();
    void takingBackRestoresTheSelection();
    void mergingLeavesNoDuplicates();
    void anImportIsTakenBackInParts();
    void aCancelledMergeLeavesAllAsItWas();
    void nothingLeavesTheDatafileAlone();
    void theSieveSeesImportedTexts();
    void identifiersAreDifferent();
};

void TableImportTest::newDatafilesHaveTheNamesOfTheirKind_data()
{
    QTest::addColumn<TableKind>("kind");
    QTest::addColumn<bool>("hasNames");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<Rows>("rows");
    using enum TableKind;
    QTest::newRow("csv") << Csv << false << QByteArray("a,b,c\nd,,f\n")
                         << QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s}
                         << Rows{{u"a"_s, u"b"_s, u"c"_s, u"-"_s}, {u"d"_s, u""_s, u"f"_s, u"-"_s}};
    QTest::newRow("csv, names") << Csv << true << QByteArray("a,b\n\"x\"\"\",y")
                                << QStringList{u"a"_s, u"b"_s} << Rows{{u"x\""_s, u"y"_s}};
    QTest::newRow("tab") << Tab << false << QByteArray("a\tb\nc\nd\te\tf") << QStringList{u"1"_s, u"2"_s}
                         << Rows{{u"a"_s, u"b"_s}, {u"c"_s, u"-"_s}, {u"d"_s, u"e"_s}};
    QTest::newRow("tab, names") << Tab << true << QByteArray("a\tb\nc\td") << QStringList{u"a"_s, u"b"_s}
                                << Rows{{u"c"_s, u"d"_s}};
    QTest::newRow("tab, no names in the first line")
        << Tab << true << QByteArray("a\nc\td") << QStringList() << Rows{{}};
    QTest::newRow("standard") << Standard << true << QByteArray("a,\n\"x\ny\tz\",,3\n")
                              << QStringList{u"a"_s, u"2"_s, u"3"_s} << Rows{{u"x y z"_s, u""_s, u"3"_s}};
    QTest::newRow("custom") << Custom << false << QByteArray("one#two") << QStringList()
                            << Rows{{u"one"_s}, {u"two"_s}};
}

void TableImportTest::newDatafilesHaveTheNamesOfTheirKind()
{
    QFETCH(TableKind, kind);
    QFETCH(bool, hasNames);
    QFETCH(QByteArray, text);
    const ImportOptions options{.kind = kind, .namesInFirstRecord = hasNames, .delimiter = u"#"_s};
    const auto document = imported(text, options);
    QVERIFY(document);
    QTEST(namesOf(*document), "names");
    QTEST(rowsOf(*document), "rows");
    QVERIFY(document->isModified());
    QVERIFY(!document->undoHistory().canUndo());
}

void TableImportTest::recordsStaySoThroughASave()
{
    const DatafileFixture fixture;
    const auto document = imported("\"a \"\"b\"\"\",<&>\nx,\"y\"\nlong", {.kind = TableKind::Csv});
    // One of them is opened and changed before.
    const QString second = document->datafileCatalog().identifierAtIndex(1);
    document->storeText(second, u"text"_s);
    const Rows before = rowsOf(*document);
    QVERIFY(document->saveToFirstFile(fixture.path(u"a.tv3"_s)));
    const auto reopened =
        DatafileDocument::open({environment}, fixture.path(u"a.tv3"_s), SelectionOnOpening::AsStored);
    QVERIFY(reopened);
    QCOMPARE(rowsOf(**reopened), before);
    const auto record = (*reopened)->datafileRecords().view(second);
    QVERIFY(record->needsSync());
    QCOMPARE(record->createdBy(), u"Tester"_s);
    QCOMPARE(record->value(RecordKey::identifier).toText(), second);
    QVERIFY(!(*reopened)->catalogMismatch());
}

// Saving writes them without making the dictionaries.
void TableImportTest::elementsAreThoseOfTheDictionaries()
{
    const Result<ReadTable> table =
        tableOf("a,<&>,\"q \"\"u\"\"\tx\"\n,\nüber,,\"two\nlines\"\n", {.kind = TableKind::Standard});
    const QString long1(100'000, u'<');
    const Result<ReadTable> other = tableOf(long1.toUtf8() + ",b\n", {.kind = TableKind::Csv});
    const QString key = u"F & <1>"_s;
    for (const Result<ReadTable> &read : {table, other}) {
        TableMapping fields;
        fields.cleansValues = true;
        fields.fields = {{key, 0}, {u"2"_s, 2}};
        TableMapping texts;
        texts.textColumns = {1, 2};
        for (const TableMapping &mapping : {fields, texts}) {
            const auto records = recordsOfTable(*read, mapping, environment)->records;
            for (quint32 place = 0; place < records->count(); ++place) {
                const auto written = [](const std::function<void(plist::XmlWriter &)> &write) {
                    QByteArray bytes;
                    const plist::Sink sink = [&bytes](QByteArrayView piece) {
                        bytes.append(piece);
                        return true;
                    };
                    plist::XmlWriter writer(sink);
                    write(writer);
                    writer.flush();
                    return bytes;
                };
                QCOMPARE(
                    written([&](plist::XmlWriter &writer) { writeRecordElement(*records, place, writer); }),
                    written([&](plist::XmlWriter &writer) {
                        writer.writeValue(records->dictionary(place), elementLevel);
                    }));
            }
        }
    }
}

void TableImportTest::appendingIsOneStep()
{
    const auto document = datafileWith({u"A"_s, u"B"_s}, {u"1"_s, u"2"_s});
    document->updateChangeCount(DatafileDocument::ChangeCount::Cleared);
    const ImportOptions options{.destination = ImportDestination::Append, .namesInFirstRecord = true};
    const Result<ReadTable> table = tableOf("a,b\nc,d\n", options);
    Progress progress;
    QVERIFY(importTable(*document, *table, options, progress));
    QVERIFY(importTable(*document, *table, options, progress));
    // Names in the first record matter to new datafiles only.
    const Rows two{{u"1"_s, u"2"_s}, {u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}, {u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}};
    QCOMPARE(rowsOf(*document), two);
    document->undoHistory().undo();
    QCOMPARE(rowsOf(*document), two.first(3));
    document->undoHistory().undo();
    QCOMPARE(rowsOf(*document), two.first(1));
    QVERIFY(!document->isModified());
    document->undoHistory().redo();
    document->undoHistory().redo();
    QCOMPARE(rowsOf(*document), two);
    QCOMPARE(document->datafileRecords().count(), qsizetype(5));
}

void TableImportTest::takingBackRestoresTheSelection()
{
    for (const auto destination : {ImportDestination::Append, ImportDestination::Merge}) {
        const auto document = datafileWith({u"A"_s}, {u"x"_s});
        document->addRecord(u"?"_s);
        document->datafileCatalog().omitIdentifier(document->datafileCatalog().identifierAtIndex(1));
        const ImportOptions options{.destination = destination};
        const Result<ReadTable> table = tableOf("x\ny\n", options);
        Progress progress;
        QVERIFY(importTable(*document, *table, options, progress));
        const Rows imported = rowsOf(*document);
        document->undoHistory().undo();
        QCOMPARE(rowsOf(*document), Rows{{u"x"_s}});
        QCOMPARE(document->datafileRecords().count(), qsizetype(2));
        document->undoHistory().redo();
        QCOMPARE(rowsOf(*document), imported);
    }
}

void TableImportTest::mergingLeavesNoDuplicates()
{
    const auto document = datafileWith({u"A"_s}, {u"x"_s});
    const ImportOptions options{.destination = ImportDestination::Merge};
    const Result<ReadTable> table = tableOf("x\ny\nY\ny\n", options);
    Progress progress;
    const Result<ImportOutcome> outcome = importTable(*document, *table, options, progress);
    QVERIFY(outcome);
    QCOMPARE(outcome->removed, quint64(2));
    const Rows merged{{u"x"_s}, {u"y"_s}, {u"Y"_s}};
    QCOMPARE(rowsOf(*document), merged);
    document->undoHistory().undo();
    QCOMPARE(rowsOf(*document), Rows{{u"x"_s}});
    QVERIFY(!document->undoHistory().canUndo());
    document->undoHistory().redo();
    QCOMPARE(rowsOf(*document), merged);
}

void TableImportTest::anImportIsTakenBackInParts()
{
    const auto document = datafileWith({u"A"_s}, {u"x"_s});
    const ImportOptions options{.destination = ImportDestination::Merge};
    Progress progress;
    QVERIFY(importTable(*document, *tableOf("x\ny\ny\n", options), options, progress));
    const Rows merged = rowsOf(*document);
    const auto change = std::dynamic_pointer_cast<SteppedChange>(document->undoHistory().stepToUndo());
    QVERIFY(change);
    const auto makeParts = [&](size_t count) {
        change->begin(*document);
        for (size_t part = 0; part < count; ++part)
            change->makeParts(*document, part, part + 1);
    };
    for (const Rows &goal : {Rows{{u"x"_s}}, merged}) {
        const Rows before = rowsOf(*document);
        makeParts(change->reversiblePartCount());
        change->unmakeParts(*document, 0, change->reversiblePartCount());
        QCOMPARE(rowsOf(*document), before);
        makeParts(change->partCount());
        change->conclude(*document);
        QCOMPARE(rowsOf(*document), goal);
        QCOMPARE(document->datafileRecords().count(), goal.size());
    }
}

void TableImportTest::aCancelledMergeLeavesAllAsItWas()
{
    const auto document = datafileWith({u"A"_s}, {u"x"_s});
    document->addRecord(u"?"_s);
    document->datafileCatalog().omitIdentifier(document->datafileCatalog().identifierAtIndex(1));
    const Rows before = rowsOf(*document);
    const ImportOptions options{.destination = ImportDestination::Merge};
    const Result<ReadTable> table = tableOf("x\ny\n", options);
    CancelledProgress progress;
    QVERIFY(!importTable(*document, *table, options, progress));
    QCOMPARE(rowsOf(*document), before);
    QCOMPARE(document->datafileRecords().count(), qsizetype(2));
    QVERIFY(!document->undoHistory().canUndo());
}

void TableImportTest::nothingLeavesTheDatafileAlone()
{
    const auto document = datafileWith({u"A"_s}, {u"x"_s});
    for (const auto &[text, kind] : {std::pair(QByteArray(), TableKind::Csv),
                                     std::pair(QByteArray("names"), TableKind::Tab),
                                     std::pair(QByteArray("##"), TableKind::Custom)}) {
        const ImportOptions options{.kind = kind,
                                    .destination = ImportDestination::Append,
                                    .namesInFirstRecord = true,
                                    .delimiter = u"#"_s};
        const Result<ReadTable> table = tableOf(text, options);
        Progress progress;
        const auto outcome = importTable(*document, *table, options, progress);
        QVERIFY(!outcome);
        QCOMPARE(outcome.error().message, u"No records were imported."_s);
    }
    QCOMPARE(rowsOf(*document), Rows{{u"x"_s}});
}

// What a search skips must not be in the record.
void TableImportTest::theSieveSeesImportedTexts()
{
    const auto document = imported("\"she said \"\"needle\"\"\",b\nneedle,\nplain,text\na,\"nee\ndle\"\n",
                                   {.kind = TableKind::Standard});
    const text::TextSieve quoted(u"said \"needle"_s, text::Sameness());
    const text::TextSieve spaced(u"nee dle"_s, text::Sameness());
    QList<bool> passed;
    QList<bool> spacedPassed;
    document->datafileRecords().forEach([&](quint32, const RecordView &record) {
        passed.append(record.mayHold(quoted));
        spacedPassed.append(record.mayHold(spaced));
    });
    QVERIFY(passed[0]);
    QVERIFY(!passed[2]);
    QVERIFY(spacedPassed[3]);
}

void TableImportTest::identifiersAreDifferent()
{
    const Result<SharedBytes> first = newIdentifiers(100'000, environment);
    const Result<SharedBytes> second = newIdentifiers(100'000, environment);
    QSet<QByteArray> all;
    for (const SharedBytes &bytes : {*first, *second}) {
        for (qsizetype at = 0; at < bytes.size(); at += identifierSize)
            all.insert(bytes.view().sliced(at, identifierSize).toByteArray());
    }
    QCOMPARE(all.size(), qsizetype(200'000));
    const QRegularExpression usual(
        u"^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"_s);
    QVERIFY(usual.match(QString::fromLatin1(*all.begin())).hasMatch());
}

QTEST_GUILESS_MAIN(TableImportTest)
#include "TableImportTest.moc"
