// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/SharedProgress.h"
#include "document/DatafileFixture.h"
#include "io/FolderFiles.h"
#include "io/FreeformExport.h"
#include "io/HtmlExport.h"
#include "io/TableExport.h"
#include "io/TableImport.h"
#include "io/TextExport.h"
#include "richtext/Rtfd.h"
#include "support/FileSizeLimit.h"
#include "support/TestEnvironment.h"

#include <QStringDecoder>

#include <limits>
#include <random>

using namespace tavrin;

namespace {

using Rows = QList<QStringList>;
using Form = TableExportOptions::Form;

const TestEnvironment environment;

/// A datafile with these rows, the last value of each being the text.
std::unique_ptr<DatafileDocument> datafileOf(const QStringList &names, const Rows &rows)
{
    auto document = DatafileDocument::newDatafile({environment}, DatafileKind::Pro, names, u"Notes"_s);
    document->setDefaultDraftName(u"My Data"_s);
    for (qsizetype i = 1; i < rows.size(); ++i)
        document->addRecord(u"?"_s);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString identifier = document->datafileCatalog().identifierAtIndex(i);
        for (qsizetype field = 0; field < names.size(); ++field)
            document->storeFieldValue(
                identifier, document->datafileSettings().fields()[field].identifier(), rows[i][field]);
        document->storeText(identifier, rows[i].last());
    }
    return document;
}

QByteArray exported(const Rows &rows, const TableExportOptions &options)
{
    QStringList names;
    for (qsizetype i = 1; i < rows.first().size(); ++i)
        names.append(u"F%1"_s.arg(i));
    return tableText(ExportedRecords(*datafileOf(names, rows)), options);
}

Rows rowsOf(const ReadTable &table)
{
    Rows rows;
    for (quint32 row = 0; row < table.table->rowCount(); ++row)
        rows.append(table.table->row(row));
    return rows;
}

/// All that is stored, in the order of the catalog, but for the identifiers of the fields.
QList<plist::Dictionary> storedIn(const DatafileDocument &document)
{
    QList<plist::Dictionary> records;
    for (const QString &identifier : document.datafileCatalog().identifiers()) {
        const auto record = document.datafileRecords().view(identifier);
        plist::Dictionary stored = record->dictionary();
        plist::Dictionary fields;
        for (const FieldDefinition &field : document.datafileSettings().fields())
            fields.insert(QString::number(fields.size()) + field.name(),
                          record->fieldValue(field.identifier()).toString());
        stored.insert(u"Fields"_s, fields);
        records.append(stored);
    }
    return records;
}

std::unique_ptr<DatafileDocument> importedFrom(const Result<ReadRecords> &records)
{
    auto document = newDatafileForImport({environment}, DatafileKind::Pro, records->fieldNames);
    Progress progress;
    const auto outcome = importRecords(*document, *records, ImportDestination::NewDatafile, progress);
    return outcome ? std::move(document) : nullptr;
}

richtext::CharacterFormat linked(const QString &address)
{
    richtext::CharacterFormat format;
    format.bold = true;
    format.link = address;
    return format;
}

const Rows oddRows = {{u"a, b"_s, u"x\"y"_s, u"line\ntwo"_s},
                      {u""_s, u"tab\there"_s, u"\u2028 \"q\", \r\n---\n"_s},
                      {u"%%%%####$$$$"_s, u"é\U0001F600"_s, u""_s}};

} // namespace

class ExportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesAreWrittenAsTheirFormSays_data();
    void tablesAreWrittenAsTheirFormSays();
    void randomTablesComeBack();
    void textFilesHaveALineBetweenRecords();
    void foldersHaveAFileForEachRecord();
    void filesOfManyRowsAreTheSameText();
    void failedExportsLeaveWhatWasThere();
    void recordFilesLoseNothing();
    void foreignFilesAreRead();
    void freeformLinesOfEmptyFieldsAreLeftOut();
    void pagesLoseTheirTags();
};

void ExportTest::tablesAreWrittenAsTheirFormSays_data()
{
    QTest::addColumn<TableExportOptions>("options");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("csv") << TableExportOptions{.includingFieldNames = true}
                         << QByteArray(
                                "F1,F2,Notes\n\"a, b\",x\"\"y,line two\n,tab here,\"  \"\"q\"\",   --- \"\n"
                                "\"\",é\U0001F600,\n");
    QTest::newRow("csv, fields") << TableExportOptions{.lineEnd = "\r\n", .fieldContentOnly = true}
                                 << QByteArray("\"a, b\",x\"\"y\r\n,tab here\r\n\"\",é\U0001F600\r\n");
    QTest::newRow("tab")
        << TableExportOptions{.form = Form::Tab, .lineEnd = "\r"}
        << QByteArray("a, b\tx\"y\tline two\r\ttab here\t  \"q\",   --- \r%%%%####$$$$\té\U0001F600\t\r");
    QTest::newRow("standard") << TableExportOptions{.form = Form::Standard}
                              << QByteArray(
                                     "\"a, b\",\"x\"\"y\",\"line\ntwo\"\n,tab\there,\"\u2028 \"\"q\"\", "
                                     "\r\n---\n\"\n%%%%####$$$$,é\U0001F600,\n");
}

void ExportTest::tablesAreWrittenAsTheirFormSays()
{
    QFETCH(TableExportOptions, options);
    QFETCH(QByteArray, text);
    QCOMPARE(exported(oddRows, options), text);
    options.utf16 = true;
    const QByteArray wide = exported(oddRows, options);
    QVERIFY(wide.startsWith("\xFF\xFE"));
    const Result<TextContent> content = textContent(*SharedBytes::copyOf(wide));
    QCOMPARE(content->utf8.toByteArray(), text);
}

void ExportTest::randomTablesComeBack()
{
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same tables each time
    const QStringList pieces = {
        u"a"_s, u"\""_s, u","_s, u" "_s, u"é"_s, u"Q"_s, u"\U0001F600"_s, u"\uFEFF"_s};
    for (int round = 0; round < 10'000; ++round) {
        Rows rows;
        Rows lines;
        const auto width = 1 + random() % 4;
        for (auto count = 1 + random() % 4; count > 0; --count) {
            QStringList row;
            for (auto column = width; column > 0; --column) {
                QString value;
                for (auto length = random() % 5; length > 0; --length)
                    value += pieces[static_cast<qsizetype>(random()) % pieces.size()];
                row.append(value);
            }
            const bool hasLineEnds = random() % 3 == 0;
            rows.append(row);
            rows.last().last() += hasLineEnds ? u"\r\n\t\n"_s : u""_s;
            row.last() += hasLineEnds ? u"    "_s : u""_s;
            lines.append(row);
        }
        QStringList names;
        for (auto column = width - 1; column > 0; --column)
            names.append(u"F"_s);
        const ExportedRecords records(*datafileOf(names, rows));
        Progress progress;
        constexpr qint64 all = std::numeric_limits<qint64>::max();
        const auto tab =
            readTabDelimited(textContentOf(tableText(records, {.form = Form::Tab})), all, progress);
        QCOMPARE(rowsOf(*tab), lines);
        const auto standard =
            readStandard(textContentOf(tableText(records, {.form = Form::Standard})), {}, all, progress);
        QCOMPARE(rowsOf(*standard), rows);
    }
}

void ExportTest::textFilesHaveALineBetweenRecords()
{
    const DatafileFixture fixture;
    const auto document = datafileOf({u"A"_s, u"B"_s}, {{u"1"_s, u""_s, u"text"_s}, {u""_s, u"2"_s, u""_s}});
    Progress progress;
    QVERIFY(exportTextFile(ExportedRecords(*document), fixture.path(u"a.txt"_s), progress));
    const auto content = readTextFile(fixture.path(u"a.txt"_s), {}, progress);
    QCOMPARE(content->encoding, TextEncoding::Utf16LittleEndian);
    QCOMPARE(content->utf8.toByteArray(), QByteArray("A: 1\nB: \ntext\n____________________\n\nA: \nB: 2\n"));

    QVERIFY(exportRtfd(ExportedRecords(*document), fixture.path(u"a.rtfd"_s), progress));
    const auto rich = richtext::readRtfdFolder(fixture.path(u"a.rtfd"_s));
    QCOMPARE(rich->text(),
             u"____________________\nRecord number: 1\n\nA: 1\nB: \n\n*** Freeform Text Area ***\n\ntext"
             "\n\n____________________\nRecord number: 2\n\nA: \nB: 2\n\n*** Freeform Text Area ***\n\n"_s);
    QVERIFY(rich->characterFormatAt(25).bold);
    QVERIFY(!rich->characterFormatAt(45).bold);
}

void ExportTest::foldersHaveAFileForEachRecord()
{
    const DatafileFixture fixture;
    const auto document =
        datafileOf({u"A"_s, u"B"_s}, {{u"a/b"_s, u"x"_s, u"text"_s}, {u""_s, u"y"_s, u""_s}});
    const ExportedRecords records(*document);
    Progress progress;
    const FolderExportOptions options{.parent = fixture.path(u"out"_s), .nameField = 0};
    QCOMPARE(exportTextFolder(records, options, progress).value(), qsizetype(2));
    QCOMPARE(exportRtfdFolder(records, {.parent = options.parent}, progress).value(), qsizetype(2));
    const QString folder = options.parent + u"/My Data Text Folder/"_s;
    QCOMPARE(DatafileFixture::contentOf(folder + u"a-b_1.txt"_s), QByteArray("B:\tx\n\ntext"));
    QCOMPARE(DatafileFixture::contentOf(folder + u"My Data_2.txt"_s), QByteArray("B:\ty\n\n"));
    QCOMPARE(richtext::readRtfdFolder(options.parent + u"/My Data RTFD Folder/My Data_1.rtfd"_s)->text(),
             u"A: a/b\nB: x\n\ntext"_s);
    // The folders of the documents are for whoever may read the folder that they are in.
    const QFileInfo made(options.parent + u"/My Data RTFD Folder"_s);
    QCOMPARE(QFileInfo(made.filePath() + u"/My Data_1.rtfd"_s).permissions(), made.permissions());
    // A second time only when it may replace, and nothing is left beside it.
    QCOMPARE(exportTextFolder(records, options, progress).error().kind, Error::Kind::Refused);
    QVERIFY(exportTextFolder(records, {.parent = options.parent, .replacesFolder = true}, progress));
    QCOMPARE(QDir(options.parent).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             (QStringList{u"My Data RTFD Folder"_s, u"My Data Text Folder"_s}));
    QCOMPARE(QDir(folder).entryList(QDir::Files), (QStringList{u"My Data_1.txt"_s, u"My Data_2.txt"_s}));
}

void ExportTest::filesOfManyRowsAreTheSameText()
{
    const DatafileFixture fixture;
    Rows rows;
    for (int row = 0; row < 1000; ++row)
        rows.append({u"%1"_s.arg(row), u"ö, %1"_s.arg(row * row), QString(row % 70, u'x')});
    const auto document = datafileOf({u"A"_s, u"B"_s}, rows);
    const ExportedRecords records(*document);
    Progress progress;
    const QString path = fixture.path(u"many"_s);
    for (const bool utf16 : {false, true}) {
        const TableExportOptions options{.utf16 = utf16, .includingFieldNames = true};
        const QByteArray text = tableText(records, options);
        QVERIFY(exportTable(records, options, path, progress));
        QVERIFY(DatafileFixture::contentOf(path) == text);
        const QString read = QStringDecoder(utf16 ? QStringDecoder::Utf16 : QStringDecoder::Utf8)(text);
        QCOMPARE(read.count(u'\n'), qsizetype(1001));
        QVERIFY(read.startsWith(u"A,B,Notes\n") && !read.contains(QChar::ByteOrderMark));
        QVERIFY(read.contains(u"\n999,\"ö, 998001\",xxx"));
    }

    SharedProgress cancelling;
    cancelling.cancel();
    QCOMPARE(exportTable(records, {}, path, cancelling).error().kind, Error::Kind::Cancelled);
    QVERIFY(DatafileFixture::contentOf(path).startsWith("\xFF\xFE"));
}

void ExportTest::failedExportsLeaveWhatWasThere()
{
    const DatafileFixture fixture;
    const QString path = fixture.make(u"a.csv"_s, "old");
    const auto document = datafileOf({u"A"_s}, {{u"value"_s, QString(100'000, u'x')}});
    const ExportedRecords records(*document);
    Progress progress;
    bool hasFailed = false;
    bool hasFolderFailed = false;
    {
        const FileSizeLimit limit(50'000);
        hasFailed = !exportTable(records, {}, path, progress);
        hasFolderFailed = !exportTextFolder(records, {.parent = fixture.path(u"."_s)}, progress);
    }
    QVERIFY(hasFailed);
    QVERIFY(hasFolderFailed);
    QCOMPARE(DatafileFixture::contentOf(path), QByteArray("old"));
    QCOMPARE(QDir(fixture.path(u"."_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{u"a.csv"_s});
}

void ExportTest::recordFilesLoseNothing()
{
    const DatafileFixture fixture;
    const auto document = datafileOf({u"na\"me: 1"_s, u"created"_s}, oddRows);
    const richtext::AttributedText rich(u"bold"_s, linked({}));
    const QString second = document->datafileCatalog().identifierAtIndex(1);
    document->storeFormattedText(second, rich.text(), richtext::writeRichText(rich));
    *environment.seconds += 5000;
    document->markRecordModified(second);
    document->datafileRecords().recordForIdentifier(second)->setRecordLocked(true);
    const QList<plist::Dictionary> before = storedIn(*document);
    const ExportedRecords records(*document);
    Progress progress;

    QVERIFY(exportJson(records, fixture.path(u"a.json"_s), progress));
    const auto json = importedFrom(readJson(DatafileFixture::contentOf(fixture.path(u"a.json"_s))));
    QVERIFY(exportMarkdown(records, fixture.path(u"notes"_s), false, progress));
    const auto markdown = importedFrom(readMarkdownFolder(fixture.path(u"notes"_s), progress));
    for (const auto *imported : {json.get(), markdown.get()}) {
        QVERIFY(imported);
        // JSON and front matter hold one line a value; nothing is said of identifiers in a test's form.
        QList<plist::Dictionary> after = storedIn(*imported);
        for (qsizetype i = 0; i < after.size(); ++i)
            after[i].insert(u"RecordIdentifier"_s, before[i].value(u"RecordIdentifier"_s));
        QCOMPARE(after.size(), before.size());
        for (qsizetype i = 0; i < after.size(); ++i)
            QVERIFY(plist::Value(after[i]) == plist::Value(before[i]));
        QCOMPARE(imported->datafileSettings().textName(), u"Notes"_s);
    }
}

void ExportTest::foreignFilesAreRead()
{
    const DatafileFixture fixture;
    const auto json = importedFrom(
        readJson(R"([{"b": 1.5, "\"a\u0062": "x:{"}, {"c" : [1, {"n": 1}], "\"\u0061b": null}])"));
    QCOMPARE(tableText(ExportedRecords(*json), {.form = Form::Tab, .includingFieldNames = true}),
             QByteArray("b\t\"ab\tc\tFreeform Text Area\n1.5\tx:{\t\t\n\t\t[1,{\"n\":1}]\t\n"));
    for (const char *bad : {"{}", "[1]", "[", ""})
        QCOMPARE(readJson(bad).error().kind, Error::Kind::Corrupt);

    QDir(fixture.path(u"."_s)).mkpath(u"in/sub"_s);
    fixture.make(u"in/10.txt"_s, "ten\r\nlines");
    fixture.make(u"in/2.md"_s, "---\ntitle: Two\ntags:\n  - a\n  - b\n---\nbody");
    fixture.make(u"in/3.html"_s, "<p>A &amp; B</p>");
    fixture.make(u"in/4.rtf"_s, "{\\rtf1 rich}");
    fixture.make(u"in/5.txt"_s, QByteArray("bin\0ary", 7));
    fixture.make(u"in/6.png"_s, "?");
    fixture.make(u"in/.hidden.txt"_s, "?");
    fixture.make(u"in/sub/1.txt"_s, "deep");
    Progress progress;
    const auto texts = readTextFolder(fixture.path(u"in"_s), {.includingFileNames = true}, progress);
    QCOMPARE(texts->skippedCount, qsizetype(3));
    QCOMPARE(tableText(ExportedRecords(*importedFrom(texts)), {.form = Form::Tab}),
             QByteArray("2\t--- title: Two tags:   - a   - b --- body\n3\tA & B\n4\trich\n10\tten lines\n"));
    const auto deep = readTextFolder(fixture.path(u"in"_s), {.includingSubfolders = true}, progress);
    QCOMPARE(importedFrom(deep)->datafileRecords().count(), qsizetype(5));
    const auto notes = importedFrom(readMarkdownFolder(fixture.path(u"in"_s), progress));
    QCOMPARE(tableText(ExportedRecords(*notes), {.form = Form::Tab}), QByteArray("Two\ta, b\tbody\n"));
}

void ExportTest::freeformLinesOfEmptyFieldsAreLeftOut()
{
    const auto document = datafileOf({u"A"_s, u"B"_s}, {{u"1"_s, u""_s, u"text"_s}, {u""_s, u"2"_s, u""_s}});
    const ExportedRecords records(*document);
    richtext::AttributedText format;
    for (const QString &piece : u"<A|\n|<B|\n\n|<Gone|<A|<B|\n|<Gone|\nB: |<B|<B"_s.split(u'|'))
        format.append(piece.startsWith(u'<') ? templateField(piece.sliced(1), linked({}))
                                             : richtext::AttributedText(piece));
    const auto first = freeformTextBlockForRecord(records, 0, format);
    QCOMPARE(first.text(), u"1\n\n1\nB: "_s);
    QVERIFY(first.characterFormatAt(0).bold && !first.characterFormatAt(0).attachment);
    QVERIFY(!first.characterFormatAt(first.size() - 1).bold);
    QCOMPARE(freeformTextBlockForRecord(records, 1, format).text(), u"2\n\n2\nB: 22"_s);
    Progress progress;
    const auto batch = freeformRecords(records, format, true, environment, progress);
    QCOMPARE(batch->records->textString(0).toString(), u"1\n\n1\nB: \n\ntext"_s);
}

void ExportTest::pagesLoseTheirTags()
{
    QCOMPARE(
        textOfHtml(u"<html><head><title>T</title></head><body><h1>Head</h1>\n<p>one  <b>two</b>\nthree</p>"
                   "<p>&lt;a&#x20AC;&unknown; 1 < 2<br>x</p><script>if (a < b) {}</script>"
                   "<pre>a\n  b</pre><!-- > --><a href='>'>link</a>"_s),
        u"Head\none two three\n\n<a€&unknown; 1 < 2\nx\n\na\n  b\nlink"_s);
    richtext::AttributedText text(u"a<b\n\n"_s);
    text.append(richtext::AttributedText(u"link"_s, linked(u"https://x/?a&b"_s)));
    text.append(richtext::AttributedText(u"no"_s, linked(u"javascript:x"_s)));
    QCOMPARE(htmlOfText(text),
             u"<p>a&lt;b</p>\n<p></p>\n<p><a href=\"https://x/?a&amp;b\"><b>link</b></a><b>no</b></p>\n"_s);
}

QTEST_GUILESS_MAIN(ExportTest)
#include "ExportTest.moc"
