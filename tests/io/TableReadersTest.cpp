// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableReaders.h"

#include "io/SeparatedLine.h"

#include <QStringEncoder>
#include <QTest>

#include <limits>
#include <random>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

using Rows = QList<QStringList>;

const QString qcq = u"&&&=QCQ=*****"_s;
const QString qc = u"@@@QC$$$%%%%%"_s;
const QString cq = u"%%%%%CQ$$$@@@"_s;

Rows rowsOf(const Result<ReadTable> &read)
{
    Rows rows;
    for (quint32 row = 0; read && row < read->table->rowCount(); ++row)
        rows.append(read->table->row(row));
    return rows;
}

constexpr qint64 all = std::numeric_limits<qint64>::max();

Rows separated(const QByteArray &text, char separator = ',')
{
    Progress progress;
    return rowsOf(readSeparated(textContentOf(text), separator, all, progress));
}

Rows standard(const QByteArray &text, StandardDialect dialect = {})
{
    Progress progress;
    return rowsOf(readStandard(textContentOf(text), dialect, all, progress));
}

} // namespace

class TableReadersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreCutByTheGrammar_data();
    void linesAreCutByTheGrammar();
    void theCutterFindsWhatThePassesFind();
    void rowsBecomeAsLongAsTheFirst();
    void tabsAloneSeparate();
    void standardValuesAreQuoted_data();
    void standardValuesAreQuoted();
    void delimitersCutStretches();
    void encodingsAreDetected_data();
    void encodingsAreDetected();
    void longTextsAreReadAcrossBlocks();
};

void TableReadersTest::linesAreCutByTheGrammar_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("fields");
    const auto row = [](const QString &line, const QStringList &fields) {
        QTest::newRow(qPrintable(u'[' + line + u']')) << line << fields;
    };
    row(u"\"Smith, John\",42"_s, {u"Smith, John"_s, u"42"_s});
    row(u"\"He said \"\"hi\"\"\",x"_s, {u"He said \"hi\""_s, u"x"_s});
    row(u"\"a\",\"b\",\"c\""_s, {u"a"_s, u"b"_s, u"c"_s});
    row(u"a,b,c"_s, {u"a"_s, u"b"_s, u"c"_s});
    row(u"\"a\",\"\",\"b\""_s, {u"a"_s, u""_s, u"b"_s});
    row(u"\"a\",\"\",b"_s, {u"a"_s, u""_s, u"b"_s});
    row(u"a,\"\",b"_s, {u"a"_s + cq + qc + u'b'});
    row(u"\"abc\""_s, {u""_s, u"abc"_s});
    row(u"a,\"b\""_s, {u"a"_s + cq + u"b\""_s});
    row(u"a,b,\"c\",d"_s, {u"a"_s, u"b"_s + cq + u"c"_s + qc + u'd'});
    row(u"a,\"b\",c,d"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    row(u"a,\"b\","_s, {u"a"_s + cq + u'b' + qc, u""_s});
    row(u"x,\"b\",\"c\",d,e"_s, {u"x"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    row(u",a"_s, {u""_s, u"a"_s});
    row(u"a,"_s, {u"a"_s, u""_s});
    row(u"\"a\","_s, {u"a"_s, u""_s});
    row(u","_s, {u""_s, u""_s});
    row(u",,"_s, {u""_s, u""_s, u""_s});
    row(u"\""_s, {u""_s});
    row(u"\"abc"_s, {u""_s, u""_s});
    row(u"\"a\",\""_s, {u"a"_s});
    row(u"\"a,\"b\",c"_s, {u"a"_s + cq + u'b', u"c"_s});
    row(u"\",\",x"_s, {qcq, u"x"_s});
    row(u"a\"\"b,c"_s, {u"a\"b"_s, u"c"_s});
    // Letters of the tokens in the text are taken for tokens.
    row(u"a"_s + cq + u"b,c"_s, {u"a"_s, u""_s});
    row(u"%%%%%%DQ#####,@@@QC$$$,\""_s, {u"\""_s, u"@@@QC$$$%%%%%CQ$$$@@@"_s});
}

void TableReadersTest::linesAreCutByTheGrammar()
{
    QFETCH(QString, line);
    QFETCH(QStringList, fields);
    QCOMPARE(separated(line.toUtf8()), Rows{fields});
    // With the other separator all is the same, the tokens too.
    QString other = line;
    QStringList otherFields = fields;
    QCOMPARE(separated(other.replace(u',', u';').toUtf8(), ';'),
             Rows{otherFields.replaceInStrings(u","_s, u";"_s)});
}

void TableReadersTest::theCutterFindsWhatThePassesFind()
{
    std::mt19937 random(20261121); // NOLINT(cert-msc51-cpp): the same lines each time
    SeparatedLineCutter cutter;
    for (int round = 0; round < 200'000; ++round) {
        QByteArray line;
        std::vector<qsizetype> marked;
        for (auto left = random() % 24; left > 0; --left) {
            const char character = "\"\"\",,,ab"[random() % 8];
            if (character == '"' || character == ',')
                marked.push_back(line.size());
            line.append(character);
        }
        std::vector<QByteArray> fields;
        for (const auto &field : cutter.cut(line, marked)) {
            QByteArray text = cutter.bytesOf(field).toByteArray();
            fields.push_back(field.hasDoubled && !field.isOwn ? text.replace("\"\"", "\"") : text);
        }
        if (fields != cutLiterally(line, ','))
            QFAIL(line.constData());
    }
}

void TableReadersTest::rowsBecomeAsLongAsTheFirst()
{
    Progress progress;
    const auto read =
        readSeparated(textContentOf("a,b,c\np,q,r,s,t\rx\r\n1,2,3\xE2\x80\xA8\n4,5,6"), ',', all, progress);
    QCOMPARE(rowsOf(read),
             (Rows{{u"a"_s, u"b"_s, u"c"_s},
                   {u"p"_s, u"q"_s, u"r <EXTRA FIELD> s <EXTRA FIELD> t"_s},
                   {u"x"_s, u"<MISSING FIELD>"_s, u"<MISSING FIELD>"_s},
                   {u"1"_s, u"2"_s, u"3"_s},
                   {u""_s, u"<MISSING FIELD>"_s, u"<MISSING FIELD>"_s},
                   {u"4"_s, u"5"_s, u"6"_s}}));
    QCOMPARE(read->malformedCount, quint64(6));
    QCOMPARE(separated("a,b\n"), (Rows{{u"a"_s, u"b"_s}}));
}

void TableReadersTest::tabsAloneSeparate()
{
    Progress progress;
    const auto read =
        readTabDelimited(textContentOf("a\t\"b\r\n\t\n\rone\ttwo\tthree\n\xE2\x80\x94\t"), all, progress);
    QCOMPARE(
        rowsOf(read),
        (Rows{
            {u"a"_s, u"\"b"_s}, {u""_s, u""_s}, {u""_s}, {u"one"_s, u"two"_s, u"three"_s}, {u"—"_s, u""_s}}));
}

void TableReadersTest::standardValuesAreQuoted_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Rows>("rows");
    const auto row = [](const char *text, const Rows &rows) {
        QTest::newRow(text) << QByteArray(text) << rows;
    };
    row("a,\"b\nc\",\"d\"\"e\"\r\n1,2,3", {{u"a"_s, u"b\nc"_s, u"d\"e"_s}, {u"1"_s, u"2"_s, u"3"_s}});
    row("a,\"\",b\n", {{u"a"_s, u""_s, u"b"_s}});
    row("\"\"\n\n\"\"", {{u""_s}, {u""_s}});
    row("a,\n,\n", {{u"a"_s, u""_s}, {u""_s, u""_s}});
    row("a,", {{u"a"_s, u""_s}});
    row("x\"y\",z", {{u"x\"y\""_s, u"z"_s}});
    row("\"a\"b\"c\",d", {{u"ab\"c\""_s, u"d"_s}});
    row("\"a\"\"\"\"b", {{u"a\"\"b"_s}});
    row("a,\"b\nc", {{u"a"_s, u"b\nc"_s}});
    row("a\r\rb\rc,d", {{u"a"_s}, {u"b"_s}, {u"c"_s, u"d"_s}});
    row("", {});
}

void TableReadersTest::standardValuesAreQuoted()
{
    QFETCH(QByteArray, text);
    QTEST(standard(text), "rows");
    const Rows single{{u"it's"_s, u"b"_s}};
    QCOMPARE(standard("'it''s';b", {.separator = ';', .quote = '\''}), single);
}

void TableReadersTest::delimitersCutStretches()
{
    const auto cut = [](const QByteArray &text, const QString &delimiter) {
        Progress progress;
        return rowsOf(readCustomDelimited(textContentOf(text), delimiter, progress));
    };
    QCOMPARE(cut("a###b######c###", u"###"_s), (Rows{{u"a"_s}, {u"b"_s}, {u"c"_s}}));
    QCOMPARE(cut("one\n%\ntwo\n", u"\n%\n"_s), (Rows{{u"one"_s}, {u"two\n"_s}}));
    QCOMPARE(cut("whole", u""_s), (Rows{{u"whole"_s}}));
    QCOMPARE(cut("###", u"###"_s), Rows());
}

void TableReadersTest::encodingsAreDetected_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const QString text = u"é,\U0001F600"_s;
    QTest::newRow("UTF-8") << text.toUtf8() << text;
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF").append(text.toUtf8()) << text;
    const auto encoded = [&text](QStringConverter::Encoding encoding) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        return QByteArray(encoder.encode(text));
    };
    QTest::newRow("UTF-16, little") << encoded(QStringConverter::Utf16LE) << text;
    QTest::newRow("UTF-16, big") << encoded(QStringConverter::Utf16BE) << text;
    QTest::newRow("UTF-32, little") << encoded(QStringConverter::Utf32LE) << text;
    QTest::newRow("UTF-32, big") << encoded(QStringConverter::Utf32BE) << text;
    QTest::newRow("no UTF-8") << QByteArray("caf\xE9 \x92") << u"café \u0092"_s;
    QTest::newRow("odd, so no UTF-16") << QByteArray("\xFF\xFE,") << u"\u00FF\u00FE,"_s;
    QTest::newRow("empty") << QByteArray() << QString();
}

void TableReadersTest::encodingsAreDetected()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    const Result<SharedBytes> shared = SharedBytes::copyOf(bytes);
    const Result<TextContent> content = textContent(*shared);
    QVERIFY(content);
    QCOMPARE(QString::fromUtf8(content->utf8), text);
    QCOMPARE(QString::fromUtf8(textContent(*SharedBytes::copyOf("\x92"), TextEncoding::Windows1252)->utf8),
             u"’"_s);
}

// Values of every length, so that marks stand at every place of a block and of a window.
void TableReadersTest::longTextsAreReadAcrossBlocks()
{
    QByteArray quoted;
    QByteArray plain;
    for (int size = 1; size <= 700; ++size) {
        const QByteArray value(size, 'x');
        quoted += "\"" + value + "\",\"\"\"" + value + ", y\"\r\n";
        plain += value + "\ty\n";
    }
    const Rows given = separated(quoted);
    QCOMPARE(standard(quoted), given);
    Progress progress;
    const Rows tabs = rowsOf(readTabDelimited(textContentOf(plain), all, progress));
    QCOMPARE(given.size(), qsizetype(700));
    QCOMPARE(tabs.size(), qsizetype(700));
    for (qsizetype size = 1; size <= 700; ++size) {
        const QString value(size, u'x');
        QCOMPARE(given[size - 1], (QStringList{value, u'"' + value + u", y"_s}));
        QCOMPARE(tabs[size - 1], (QStringList{value, u"y"_s}));
    }
    // Whole windows without a mark.
    const QString longest(20'000, u'x');
    QCOMPARE(standard((longest + u",y\n"_s + longest).toUtf8()), (Rows{{longest, u"y"_s}, {longest}}));
}

QTEST_GUILESS_MAIN(TableReadersTest)
#include "TableReadersTest.moc"
