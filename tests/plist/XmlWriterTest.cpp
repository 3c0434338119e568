// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/Reader.h"
#include "plist/Writer.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::plist;
using namespace Qt::StringLiterals;

class XmlWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laysOutEveryTypeAndReadsItBackByteForByte();
    void breaksDataIntoLinesByLevel_data();
    void breaksDataIntoLinesByLevel();
    void replacesLoneSurrogates();
    void writesLongTextInPieces();
    void stopsWhenTheSinkRefuses();
};

void XmlWriterTest::laysOutEveryTypeAndReadsItBackByteForByte()
{
    const Dictionary list{
        {u"Zed"_s, u"a<b>&\"'é\r\x01 😀"_s},
        {u"b&"_s, u""_s},
        {u"Array"_s, Array{-5, std::numeric_limits<quint64>::max(), true, false, Array(), Dictionary()}},
        {u"Reals"_s, Array{1.0, -0.0, 0.1, 0.1F, 1e20, 1e16, 1e-5, -std::numeric_limits<double>::infinity()}},
        {u"Dates"_s, Array{Date{0}, Date{-0.5}, Date{-63177062400}}},
        {u"Data"_s, QByteArray(60, '\x07')},
        {u"Empty"_s, QByteArray()},
        {u"Uid"_s, Uid{9}},
    };
    const QByteArray expected = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Zed</key>
	<string>a&lt;b&gt;&amp;"'é)"
                                "\r\x01"
                                R"( 😀</string>
	<key>b&amp;</key>
	<string></string>
	<key>Array</key>
	<array>
		<integer>-5</integer>
		<integer>18446744073709551615</integer>
		<true/>
		<false/>
		<array/>
		<dict/>
	</array>
	<key>Reals</key>
	<array>
		<real>1</real>
		<real>0.0</real>
		<real>0.10000000000000001</real>
		<real>0.10000000149011612</real>
		<real>1e+20</real>
		<real>10000000000000000</real>
		<real>1.0000000000000001e-05</real>
		<real>-infinity</real>
	</array>
	<key>Dates</key>
	<array>
		<date>2001-01-01T00:00:00Z</date>
		<date>2000-12-31T23:59:59Z</date>
		<date>-001-01-01T00:00:00Z</date>
	</array>
	<key>Data</key>
	<data>
	BwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcH
	BwcHBwcHBwcH
	</data>
	<key>Empty</key>
	<data>
	</data>
	<key>Uid</key>
	<dict>
		<key>CF$UID</key>
		<integer>9</integer>
	</dict>
</dict>
</plist>
)";
    QCOMPARE(toXml(list), expected);
    const auto again = read(expected);
    QVERIFY(again);
    QCOMPARE(toXml(again->root), expected);
}

void XmlWriterTest::breaksDataIntoLinesByLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("symbols");
    QTest::newRow("root") << 0 << 76;
    QTest::newRow("a record's text") << 3 << 52;
    QTest::newRow("deepest own width") << 8 << 12;
    QTest::newRow("beyond") << 11 << 12;
}

void XmlWriterTest::breaksDataIntoLinesByLevel()
{
    QFETCH(const int, level);
    QFETCH(const int, symbols);
    // Fills whole lines only: no blank line may follow.
    Value value = QByteArray(symbols / 4 * 3 * 4, 'x');
    for (int i = 0; i < level; ++i)
        value = Array{value};
    const QByteArray text = toXml(value);
    const QByteArray tag = QByteArray(level, '\t') + "<data>\n";
    const qsizetype start = text.indexOf(tag) + tag.size();
    const QByteArray closing = QByteArray(level, '\t') + "</data>";
    const QByteArrayList lines = text.sliced(start).split('\n');
    const QByteArray indentation(std::min(level, 8), '\t');
    for (int i = 0; i < 4; ++i)
        QCOMPARE(lines[i].size(), indentation.size() + symbols);
    QVERIFY(lines[0].startsWith(indentation + "eHh4"));
    QCOMPARE(lines[4], closing);
}

void XmlWriterTest::replacesLoneSurrogates()
{
    const QString text = QString(u"a"_s) + QChar(0xD800) + u"b"_s + QChar(0xDC00);
    QCOMPARE(read(toXml(text))->root.toText(), u"a\uFFFDb\uFFFD"_s);
}

void XmlWriterTest::writesLongTextInPieces()
{
    // Surrogate pairs at odd places meet every boundary inside the writer.
    const QString text = u"&"_s + u"😀"_s.repeated(300'000);
    QByteArray written;
    int pieces = 0;
    QVERIFY(writeXml(text, [&](QByteArrayView piece) {
        ++pieces;
        written.append(piece);
        return piece.size() <= 1 << 20;
    }));
    QVERIFY(pieces > 2);
    QCOMPARE(read(written)->root.toText(), text);
}

void XmlWriterTest::stopsWhenTheSinkRefuses()
{
    int calls = 0;
    const Array list(200'000, u"some text"_s);
    QVERIFY(!writeXml(list, [&calls](QByteArrayView) { return ++calls < 2; }));
    QCOMPARE(calls, 2);
}

QTEST_GUILESS_MAIN(XmlWriterTest)
#include "XmlWriterTest.moc"
