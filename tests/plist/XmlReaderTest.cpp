// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/Reader.h"

#include <QStringEncoder>
#include <QTest>

#include <limits>

using namespace tavrin;
using namespace tavrin::plist;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tavrin::plist::Value)

class XmlReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void acceptsWhatTheFormatAllows_data();
    void acceptsWhatTheFormatAllows();
    void decodesBase64Forgivingly_data();
    void decodesBase64Forgivingly();
    void refusesWhatTheFormatForbids_data();
    void refusesWhatTheFormatForbids();
    void readsItsEncodings_data();
    void readsItsEncodings();
    void readsDownToTheDeepestLevelOnly();
    void namesTheLineOfAFault();
};

namespace {

QByteArray nested(int levels)
{
    return QByteArray("<array>").repeated(levels) + QByteArray("</array>").repeated(levels);
}

} // namespace

void XmlReaderTest::acceptsWhatTheFormatAllows_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Value>("expected");
    const auto row = [](const char *name, const QByteArray &text, const Value &expected) {
        QTest::newRow(name) << text << expected;
    };
    const Value four = Value(4);
    row("bare root", " \n<integer>4</integer>", four);
    row("attributes", "<plist version='9' x=\"a>b\"><integer a='/>'>4</integer></plist>", four);
    row("other doctype", "<!DOCTYPE html>\n<plist><integer>4</integer></plist>", four);
    row("comments", "<!-- a--b --><!----><plist><!--x--><integer>4</integer ><?pi > ?></plist>", four);
    row("junk behind", "<plist><integer>4</integer></plist> junk <<<", four);
    row("key in array", "<array><key>a</key></array>", Array{u"a"_s});
    row("key as value", "<dict><key>a</key><!-- - --><key>b</key></dict>", Dictionary{{u"a"_s, u"b"_s}});
    row("last duplicate wins",
        "<dict><key>a</key><true/><key>a</key><false></false></dict>",
        Dictionary{{u"a"_s, false}});
    row("empty strings", "<array><string/><key/><string></string></array>", Array{u""_s, u""_s, u""_s});
    row("empty containers", "<array><dict/><array/></array>", Array{Dictionary(), Array()});
    row("blanks and line ends", "<string> a\r\nb\r \t</string>", u" a\r\nb\r \t"_s);
    row("controls", QByteArray("<string>a\0\x01&#0;&#1;</string>", 28), QString(u"a\0\x01\0\x01"_s));
    row("entities", "<string>&lt;&gt;&amp;&apos;&quot;&#233;&#xE9;&#x0001F600;</string>", u"<>&'\"éé😀"_s);
    row("CDATA", "<string>a<![CDATA[<b>&amp;]]]]>&gt;<![CDATA[]]>c</string>", u"a<b>&amp;]]>c"_s);
    row("CDATA in a key",
        "<dict><key>ab</key><true/><key>ab<![CDATA[c]]></key><true/></dict>",
        Dictionary{{u"ab"_s, true}, {u"abc"_s, true}});
    row("U+FEFF first in a text", "<string>\xEF\xBB\xBF\xEF\xBB\xBFz</string>", u"\uFEFF\uFEFFz"_s);
    row("integers",
        "<array><integer> \x01+5</integer><integer>- 0x1F</integer><integer>0X10</integer>"
        "<integer>007</integer></array>",
        Array{5, -31, 16, 7});
    row("integer limits",
        "<array><integer>-9223372036854775808</integer><integer>18446744073709551615</integer></array>",
        Array{std::numeric_limits<qint64>::min(), std::numeric_limits<quint64>::max()});
    row("reals",
        "<array><real> 1.5</real><real>.5</real><real>5.</real><real>3</real><real>-1.5e+300</real></array>",
        Array{1.5, 0.5, 5.0, 3.0, -1.5e300});
    constexpr double infinity = std::numeric_limits<double>::infinity();
    row("real names",
        "<array><real>NaN</real><real>inf</real><real>-INF</real><real>+Infinity</real>"
        "<real>1e999</real><real>-1e-999</real></array>",
        Array{std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, infinity, infinity, -0.0});
    row("dates",
        "<array><date>2001-01-01T00:00:00Z</date><date>2000-12-31T23:59:59Z</date>"
        "<date>1970-01-01T00:00:00Z</date><date>2024-02-29T12:00:00Z</date></array>",
        Array{Date{0}, Date{-1}, Date{-978307200}, Date{730900800}});
    row("dates that count on",
        "<array><date>2000-13-01T00:00:00Z</date><date>2001-02-31T00:00:00Z</date>"
        "<date>2000-12-31T24:61:61Z</date><date>2002-00-01T00:00:00Z</date></array>",
        Array{Date{0}, Date{61 * 86400}, Date{3721}, Date{334 * 86400}});
    row("distant dates",
        "<array><date>12001-01-01T00:00:00Z</date><date>-1-01-01T00:00:00Z</date></array>",
        Array{Date{315569520000}, Date{-63177062400}});
    row("uid", "<dict><key>CF$UID</key><integer>7</integer></dict>", Uid{7});
    row("not quite a uid",
        "<dict><key>CF$UID</key><integer>-7</integer></dict>",
        Dictionary{{u"CF$UID"_s, -7}});
}

void XmlReaderTest::acceptsWhatTheFormatAllows()
{
    QFETCH(const QByteArray, text);
    QFETCH(const Value, expected);
    const auto list = read(text);
    QVERIFY2(list, list ? "" : qPrintable(list.error().detail));
    QCOMPARE(list->format, Format::Xml);
    QVERIFY(list->root == expected);
}

void XmlReaderTest::decodesBase64Forgivingly_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("plain") << QByteArray("AAECAwT/") << QByteArray::fromHex("0001020304ff");
    QTest::newRow("blanks") << QByteArray("\n\tAAEC\n\tAw==\n") << QByteArray::fromHex("00010203");
    QTest::newRow("incomplete") << QByteArray("AAE") << QByteArray();
    QTest::newRow("incomplete behind a group") << QByteArray("AAECAw") << QByteArray::fromHex("000102");
    QTest::newRow("padded twice") << QByteArray("AA==AA==") << QByteArray::fromHex("0000");
    QTest::newRow("blank in padding") << QByteArray("AA= =") << QByteArray::fromHex("00");
    QTest::newRow("foreign symbols") << QByteArray("AA!EC*") << QByteArray::fromHex("000102");
}

void XmlReaderTest::decodesBase64Forgivingly()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArray, expected);
    const auto list = read("<data>" + text + "</data>");
    QVERIFY(list);
    QVERIFY(list->root.isData());
    QCOMPARE(*list->root.data(), expected);
}

void XmlReaderTest::refusesWhatTheFormatForbids_data()
{
    QTest::addColumn<QByteArray>("text");
    // The element, then the contents that it must not have.
    const QList<std::pair<QByteArray, QByteArrayList>> contents = {
        {"integer",
         {"5 ",
          "5.0",
          "",
          "-",
          "0x",
          "5a",
          "<![CDATA[5]]>",
          "&#53;",
          "18446744073709551616",
          "-9223372036854775809"}},
        {"real", {"1.5 ", "", "0x10", "1,5", "-", "1e", "nan(1)", "infinit"}},
        {"date",
         {"2001-01-01T00:00:00.5Z",
          "2001-01-01T00:00:00",
          "2001-01-01T00:00:00+01:00",
          " 2001-01-01T00:00:00Z",
          "2001-01-01",
          "-01-01T00:00:00Z",
          ""}},
        {"data", {"AA\x80=", "\xC3\xA9", "AA<!-- -->=="}},
        {"true", {" ", "1"}},
        {"string",
         {"a<!-- -->",
          "a<?pi?>",
          "&nbsp;",
          "a & b",
          "a &",
          "&#XE9;",
          "&#xD800;",
          "&#x110000;",
          "&#;",
          "&#65",
          "<b>",
          "\xFF",
          "\xED\xA0\x80",
          "\xC0\x80",
          "<![CDATA[x"}},
        {"dict",
         {"text",
          "<string>a</string><true/>",
          "<key>a</key>",
          "<key>a</key><true/><key>b</key>",
          "<key>a</key>x<true/>"}},
        {"array", {"x<true/>", "<true/>x", "<!DOCTYPE a><true/>", "<plist><true/></plist>"}},
        {"Dict", {""}},
        {"set", {""}},
        {"strin", {""}},
        {"plist", {"", "<true/><false/>", "<true/>x", "<!-- "}},
    };
    for (const auto &[element, texts] : contents) {
        for (const QByteArray &text : texts)
            QTest::addRow("%s %s", element.constData(), text.toPercentEncoding().constData())
                << "<" + element + ">" + text + "</" + element + ">";
    }
    for (const char *whole : {"<integer/>",
                              "<real/>",
                              "<date/>",
                              "<data/>",
                              "<null/>",
                              "<plist/>",
                              "<plist><true/>",
                              "<dict></array>",
                              "<array><string>a</key></array>",
                              "<!DOCTYPE plist [<!ENTITY a 'b'>]><string>a</string>",
                              "<?xml version='1.0' encoding='klingon'?><true/>",
                              "<?xml version='1.0' encoding='us-ascii'?><string>\xC3\xA9</string>",
                              "<true",
                              "<!-- <true/>"})
        QTest::newRow(whole) << QByteArray(whole);
    QTest::newRow("nothing") << QByteArray();
}

void XmlReaderTest::refusesWhatTheFormatForbids()
{
    QFETCH(const QByteArray, text);
    const auto list = read(text);
    QVERIFY(!list);
    QCOMPARE(list.error().kind, Error::Kind::Corrupt);
    QVERIFY(!list.error().message.isEmpty());
    QVERIFY(!list.error().detail.isEmpty());
}

void XmlReaderTest::readsItsEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray utf8 = "<string>é€😀</string>";
    const QString text = QString::fromUtf8(utf8);
    const auto encoded = [&text](QStringConverter::Encoding encoding, bool marked) {
        QStringEncoder encoder(encoding,
                               marked ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
        return QByteArray(encoder(text));
    };
    QTest::newRow("UTF-8 with mark") << encoded(QStringConverter::Utf8, true);
    QTest::newRow("UTF-8 declared") << "<?xml version='1.0' encoding='utf-8'?>" + utf8;
    QTest::newRow("UTF-16LE") << encoded(QStringConverter::Utf16LE, true);
    QTest::newRow("UTF-16BE") << encoded(QStringConverter::Utf16BE, true);
    QTest::newRow("UTF-16LE unmarked") << encoded(QStringConverter::Utf16LE, false);
    QTest::newRow("UTF-16BE unmarked") << encoded(QStringConverter::Utf16BE, false);
    QTest::newRow("UTF-32LE") << encoded(QStringConverter::Utf32LE, true);
    QTest::newRow("UTF-32BE") << encoded(QStringConverter::Utf32BE, true);
    QTest::newRow("Windows-1252") << QByteArray("<?xml version=\"1.0\" encoding=\"Windows-1252\"?>"
                                                "<string>\xE9\x80&#x1F600;</string>");
    QTest::newRow("Latin-1") << QByteArray("<?xml encoding='ISO-8859-1'?>"
                                           "<string>\xE9&#8364;&#x1F600;</string>");
}

void XmlReaderTest::readsItsEncodings()
{
    QFETCH(const QByteArray, bytes);
    const auto list = read(bytes);
    QVERIFY2(list, list ? "" : qPrintable(list.error().detail));
    QCOMPARE(list->root.toText(), u"é€😀"_s);
}

void XmlReaderTest::readsDownToTheDeepestLevelOnly()
{
    QVERIFY(read(nested(maximumDepth)));
    QVERIFY(!read(nested(maximumDepth + 1)));
    QVERIFY(!read(QByteArray("<array>").repeated(1'000'000)));
}

void XmlReaderTest::namesTheLineOfAFault()
{
    const auto list = read("<plist>\n<dict>\r\n<key>a</key>\r<integer>x</integer>\n</dict></plist>");
    QVERIFY(!list);
    QCOMPARE(list.error().detail, u"line 4: not an integer"_s);
    QCOMPARE(read("<plist>\n<string>\n\xFF\n</string></plist>").error().detail, u"line 3: not valid UTF-8"_s);
}

QTEST_GUILESS_MAIN(XmlReaderTest)
#include "XmlReaderTest.moc"
