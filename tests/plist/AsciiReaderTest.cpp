// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/Reader.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::plist;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tavrin::plist::Value)

class AsciiReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void acceptsWhatTheFormatAllows_data();
    void acceptsWhatTheFormatAllows();
    void refusesWhatTheFormatForbids_data();
    void refusesWhatTheFormatForbids();
};

void AsciiReaderTest::acceptsWhatTheFormatAllows_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Value>("expected");
    const auto row = [](const char *name, const QByteArray &text, const Value &expected) {
        QTest::newRow(name) << text << expected;
    };
    const Value pair = Dictionary{{u"a"_s, u"b"_s}};
    row("dictionary", "{a=b;}", pair);
    row("pairs without braces", "a = b;", pair);
    row("with a mark", "\xEF\xBB\xBF// first\n{ a /* x */ = \"b\" ; } // end", pair);
    row("Unicode blanks",
        "{a\xE2\x80\xA8=\xE2\x80\xA9"
        "b;}",
        pair);
    row("last duplicate wins", "{a=c;a=b;}", pair);
    row("key alone", "{key;}", Dictionary{{u"key"_s, u"key"_s}});
    row("blanks only", " \n\t", Dictionary());
    row("a word", " hello ", u"hello"_s);
    row("word characters", "(a_$/:.-9)", Array{u"a_$/:.-9"_s});
    row("arrays", "((), (a,), ('x y', {}))", Array{Array(), Array{u"a"_s}, Array{u"x y"_s, Dictionary()}});
    row("data", "<0fbd 77\n1C>", QByteArray::fromHex("0fbd771c"));
    row("empty data", "(<>)", Array{QByteArray()});
    row("data that begins like an element", "<da7a>", QByteArray::fromHex("da7a"));
    row("escapes", R"("\a\b\f\n\r\t\v\"\\\'\q")", u"\a\b\f\n\r\t\v\"\\'q"_s);
    row("escaped newline", "'a\\\nb'", u"a\nb"_s);
    row("units", R"("\U00e9\Ue9z\u00e9\ud83d")", u"éézu00e9ud83d"_s);
    row("pair of units", R"("\UD83D\UDE00")", u"😀"_s);
    row("octal", R"("\341\101\1018\0777")", u"ÆAA8?7"_s);
    row("UTF-8", "\"é\\é😀\"", u"éé😀"_s);
}

void AsciiReaderTest::acceptsWhatTheFormatAllows()
{
    QFETCH(const QByteArray, text);
    QFETCH(const Value, expected);
    const auto list = read(text);
    QVERIFY2(list, list ? "" : qPrintable(list.error().detail));
    QCOMPARE(list->format, Format::Ascii);
    QVERIFY(list->root == expected);
}

void AsciiReaderTest::refusesWhatTheFormatForbids_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char *text : {"{a=b}",
                             "{a=b;} x",
                             "(a) b",
                             "hello world",
                             "a = b",
                             "(a,,b)",
                             "(,)",
                             "(a b)",
                             "{(a)=b;}",
                             "{a=;}",
                             "<0f b>",
                             "<0fg0>",
                             "<0f",
                             "'open",
                             "'open\\",
                             "{a=b;} /* open",
                             "é",
                             "(a",
                             "{"})
        QTest::newRow(text) << QByteArray(text);
    QTest::newRow("too deep") << QByteArray("(").repeated(maximumDepth + 1)
                                     + QByteArray(")").repeated(maximumDepth + 1);
    QTest::newRow("far too deep") << QByteArray("{a=").repeated(300'000);
}

void AsciiReaderTest::refusesWhatTheFormatForbids()
{
    QFETCH(const QByteArray, text);
    const auto list = read(text);
    QVERIFY(!list);
    QCOMPARE(list.error().kind, Error::Kind::Corrupt);
}

QTEST_GUILESS_MAIN(AsciiReaderTest)
#include "AsciiReaderTest.moc"
