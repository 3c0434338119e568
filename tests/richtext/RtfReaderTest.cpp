// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfReader.h"

#include "richtext/RandomRichText.h"
#include "richtext/RtfWriter.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

class RtfReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesBecomeCharacters_data();
    void bytesBecomeCharacters();
    void whatIsNoTextIsLeftOut_data();
    void whatIsNoTextIsLeftOut();
    void looksAreRead();
    void colorsAreRead();
    void linksAreRead_data();
    void linksAreRead();
    void paragraphsListsAndTablesAreRead();
    void attachmentsAndPicturesAreRead();
    void anyDepthIsFollowed();
    void whatIsCutShortIsReadUpToTheCut();
    void manyFormatsTakeBoundedMemory();
    void otherThingsAreRefused();
};

namespace {

AttributedText read(const QByteArray &body)
{
    const Result<AttributedText> text = readRtf("{\\rtf1\\ansi\n" + body + '}');
    return text ? *text : AttributedText(u"refused: "_s + text.error().detail);
}

} // namespace

void RtfReaderTest::bytesBecomeCharacters_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QByteArray &rtf, const QString &text) {
        QTest::newRow(name) << rtf << text;
    };
    row("cp1252", "\\ansicpg1252 \\'93caf\\'e9\\'94 \\'80\\'81", u"\u201Ccaf\u00E9\u201D \u20AC\u0081"_s);
    row("cp1251 by the document", "\\ansicpg1251 \\'cf\\'f0\\'e8", u"При"_s);
    row("cp1251 by the font", "{\\fonttbl{\\f3\\fcharset204 X;}}\\'cf\\f3\\'cf{\\'f0}\\f0\\'cf", u"ÏПрÏ"_s);
    row("raw bytes", "\\ansicpg1251 a\xCF\xF0z", u"aПрz"_s);
    row("cp932", "{\\fonttbl\\f1\\fnil\\fcharset128 X;}\\f1\\'93\\'fa\\'96{\\'7b}\\'b1", u"日\uFFFD{ｱ"_s);
    row("cp932, ASCII in the second byte", "\\ansicpg932 \\'83A\\'83\\\\\\'83\\}\x93\xFAz", u"アソマ日z"_s);
    row("cp936, 949, 950",
        "{\\fonttbl\\f1\\fcharset134 X;\\f2\\fcharset129 Y;\\f3\\fcharset136 "
        "Z;}\\f1\\'d6\\'d0\\f2\\'c7\\'d1\\f3\\'a4\\'a4",
        u"中한中"_s);
    row("mac roman", "\\mac\\'8e\\'db\\'f0", u"\u00E9\u20AC\uF8FF"_s);
    row("mac roman by the font", "{\\fonttbl\\f0\\fcharset77 Osaka;}\\f0\\'8e", u"\u00E9"_s);
    row("utf-8", "\\ansicpg65001 \xC3\xA9\\'e6\\'97\\'a5\xF0\x9F\x98\x80.\xC3.", u"é日😀.\uFFFD."_s);
    row("symbol", "{\\fonttbl\\f0\\fcharset2 Symbol;}\\f0\\'b7", u"\u00B7"_s);
    row("Vietnamese and Hebrew", "\\ansicpg1258 A\\'cc\\ansicpg1255 \\'e0", u"A\u0300\u05D0"_s);
    row("unknown page", "\\ansicpg7 \\'e9", u"\u00E9"_s);
    row("\\u", "\\u233?\\u-3844?\\uc0\\u26085 \\uc2\\u26085\\'93\\'fax", u"\u00E9\uF0FC\u65E5\u65E5x"_s);
    row("surrogates", "\\uc1\\u-10179?\\u-8704?\\u55357 \\u56832 .", u"😀😀"_s);
    row("fallbacks of all kinds",
        "\\uc4\\u65 a\\b\\'41\\bin2 {}b{\\uc9\\u66 }c\\u67\\par\\~d",
        u"Ab"
        "BcC"_s);
    row("words for characters",
        "\\emdash\\lquote\\tab\\line x\\~\\_\\-\\page\\bullet  y",
        u"\u2014\u2018\t\u2028x\u00A0\u2011\u00AD\f\u2022 y"_s);
    row("line ends", "a\r\nb\\\r\nc\\\nd\\par e\\sect f", u"ab\nc\nd\ne\nf"_s);
    row("escapes", "\\{\\}\\\\ \\'7b\\'zz\\|", u"{}\\ {zz"_s);
}

void RtfReaderTest::bytesBecomeCharacters()
{
    QFETCH(QByteArray, rtf);
    QTEST(read(rtf).text(), "text");
}

void RtfReaderTest::whatIsNoTextIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("rtf");
    for (const char *rtf : {"{\\*\\whatever x{y}}ab",
                            "{\\*\\b x}{\\unknown a}b",
                            "{\\info{\\title x}}{\\stylesheet{\\s1 x;}}{\\header x\\par}ab",
                            "a{\\upr{x}{\\*\\ud{b}}}",
                            "a{\\*\\shppict{\\*\\nothing x}}{\\nonshppict x}b",
                            "a{\\pict\\wmetafile8 }b",
                            "a\\bin3 x}{b",
                            "{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv x}}{\\shptxt a}}{\\shprslt x}}b",
                            "{\\*\\pn\\pnlvlblt x}a{\\*\\bkmkstart x}\\title b",
                            "{\\object{\\*\\objdata 0102}{\\result ab}}",
                            "ab} after the end {"})
        QTest::newRow(rtf) << QByteArray(rtf);
}

void RtfReaderTest::whatIsNoTextIsLeftOut()
{
    QFETCH(QByteArray, rtf);
    QString text = read(rtf).text();
    QCOMPARE(text.remove(QChar(attachmentCharacter)), u"ab"_s);
}

void RtfReaderTest::looksAreRead()
{
    const AttributedText text =
        read("{\\fonttbl{\\f0\\froman Times-Roman{\\*\\falt x};}{\\f1 Arial-BoldItalicMT;}}"
             "\\deff0\\fs25 a{\\b\\i b}\\f1\\fsmilli9300 c\\plain\\ul d\\ulnone\\uldb\\strike\\striked0 "
             "e\\ulstyle0\\strike0\\super f\\nosupersub\\dn4\\expndtw-20 g\\plain\\kerning0\\b0 h");
    const auto at = [&text](QChar character) {
        return text.characterFormatAt(text.text().indexOf(character));
    };
    QCOMPARE(at(u'a').family, u"Times"_s);
    QCOMPARE(at(u'a').size, 12500);
    QVERIFY(!at(u'a').bold && at(u'b').bold && at(u'b').italic);
    QCOMPARE(at(u'c').family, u"Arial"_s);
    QVERIFY(at(u'c').bold && at(u'c').italic);
    QCOMPARE(at(u'c').size, 9300);
    QCOMPARE(at(u'd').family, u"Times"_s);
    QCOMPARE(at(u'd').size, 12000);
    QCOMPARE(at(u'd').underline, Underline::Single);
    QCOMPARE(at(u'e').underline, Underline::Double);
    QCOMPARE(at(u'e').strike, Strike::Single);
    QCOMPARE(at(u'f').underline, Underline::None);
    QCOMPARE(at(u'f').strike, Strike::None);
    QCOMPARE(at(u'f').script, Script::Super);
    QCOMPARE(at(u'g').baseline, -4);
    QCOMPARE(at(u'g').kerning, std::optional(-20));
    QCOMPARE(at(u'h').kerning, std::optional(0));
}

void RtfReaderTest::colorsAreRead()
{
    const AttributedText text = read("{\\colortbl;\\red255\\green255\\blue255;\\red185\\green188\\blue186;"
                                     "\\red1\\green2\\blue3;\\red9\\green9\\blue9;}"
                                     "{\\*\\expandedcolortbl;;\\cssrgb\\c77255\\c78431\\c77647;"
                                     "\\csgray\\c50000\\c20000;\\cname textColor;}"
                                     "\\cf2\\cb1 a\\cf3\\highlight1 b\\cf4\\cb0 c\\cf99\\cb-1 d");
    QCOMPARE(text.characterFormatAt(0).foreground, std::optional(Color{197, 200, 198}));
    QCOMPARE(text.characterFormatAt(0).background, std::nullopt);
    QCOMPARE(text.characterFormatAt(1).foreground, std::optional(Color{128, 128, 128, 51}));
    QCOMPARE(text.characterFormatAt(1).background, std::optional(Color{255, 255, 255}));
    QCOMPARE(text.characterFormatAt(2).foreground, std::nullopt);
    QCOMPARE(text.characterFormatAt(3), CharacterFormat());
}

void RtfReaderTest::linksAreRead_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("link");
    const auto row = [](const char *field, const QString &link) {
        QTest::newRow(field) << QByteArray(field) << link;
    };
    row("{\\field{\\*\\fldinst{HYPERLINK \"mailto:i@x.com\"}}{\\fldrslt \\b X}}", u"mailto:i@x.com"_s);
    row("{\\field\\fldedit{\\*\\fldinst HYPERLINK \"uuid://1\" }{\\fldrslt {\\plain X}}}", u"uuid://1"_s);
    row("{\\field{\\fldinst hyperlink tel:1 \\\\o \"tip\"}{\\fldrslt{X}}}", u"tel:1"_s);
    row("{\\field{\\*\\fldinst HYPERLINK \\\\l \"here\"}{\\fldrslt X}}", u"#here"_s);
    row("{\\field{\\*\\fldinst{HYPERLINK \"file://\\{a\\}\\uc0\\u233 /\\'e9\"}}{\\fldrslt X}}",
        u"file://{a}\u00E9/\u00E9"_s);
    row("{\\field{\\*\\fldinst PAGE }{\\fldrslt X}}", QString());
    row("{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt {\\field{\\*\\fldinst PAGE}{\\fldrslt X}}}}",
        u"a"_s);
    row("{\\fldrslt X}", QString());
}

void RtfReaderTest::linksAreRead()
{
    QFETCH(QByteArray, field);
    const AttributedText text = read('a' + field + "b\\par");
    QCOMPARE(text.text(), u"aXb\n"_s);
    QTEST(text.characterFormatAt(1).link, "link");
    QCOMPARE(text.characterFormatAt(2).link, QString());
}

void RtfReaderTest::paragraphsListsAndTablesAreRead()
{
    const AttributedText text = read(
        "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226 "
        "?;}}{\\listlevel\\levelnfc0\\levelstartat4}"
        "\\listid9}}{\\*\\listoverridetable{\\listoverride\\listid9\\ls2}}\\deftab500"
        "\\pard\\qc\\li720\\fi-360\\sl360\\slmult1\\tqr\\tx900\\tx1000 a\\par{\\pard\\qr b\\par}c\\par"
        "\\pard\\sl-200\\ilvl5\\ls2 {\\listtext\\pard\\qj\\tab 4.\\tab}d\\par"
        "\\trowd\\trleft-108\\clvmgf\\clbrdrt\\brdrs\\brdrw20\\cellx1892\\cellx3000\\pard\\intbl e\\par "
        "f\\cell g\\cell\\row"
        "\\pard\\intbl h\\cell\\nestcell i\\cell\\lastrow\\row\\trowd\\pard\\intbl j\\cell\\row\\pard k");
    QCOMPARE(text.text(), u"a\nb\nc\n\t4.\td\ne\nf\ng\nh\n\ni\nj\nk"_s);
    const auto at = [&text](QChar character) {
        return text.paragraphFormatAt(text.text().indexOf(character));
    };
    QCOMPARE(at(u'a').alignment, Alignment::Center);
    QCOMPARE(at(u'a').firstLineIndent, -360);
    QCOMPARE(at(u'a').lineMultiple, 360);
    QCOMPARE(at(u'a').minimumLineHeight, 0);
    QCOMPARE(at(u'a').tabInterval, 500);
    QCOMPARE(at(u'a').tabStops, (QList<TabStop>{{900, TabKind::Right}, {1000, TabKind::Left}}));
    QCOMPARE(at(u'b').alignment, Alignment::Right);
    QCOMPARE(at(u'c'), at(u'a'));
    QCOMPARE(at(u'd').list, (ListItem{2, 1, {{u"{disc}"_s, 1}, {u"{decimal}."_s, 4}}}));
    QCOMPARE(at(u'd').alignment, Alignment::Natural);
    QCOMPARE(at(u'd').maximumLineHeight, 200);
    const auto place = [&at](QChar character) {
        const TableCell cell = at(character).cell;
        return QList<int>{cell.table, cell.row, cell.column};
    };
    QCOMPARE(place(u'd'), QList<int>({0, 0, 0}));
    QCOMPARE(place(u'e'), QList<int>({1, 0, 0}));
    QCOMPARE(place(u'f'), QList<int>({1, 0, 0}));
    QCOMPARE(place(u'g'), QList<int>({1, 0, 1}));
    QCOMPARE(place(u'h'), QList<int>({1, 1, 0}));
    QCOMPARE(place(u'i'), QList<int>({1, 1, 1}));
    QCOMPARE(place(u'j'), QList<int>({2, 0, 0}));
    QCOMPARE(place(u'k'), QList<int>({0, 0, 0}));
    QCOMPARE(at(u'e').cell.style.width, 2000);
    QCOMPARE(at(u'e').cell.style.vertical, Merge::First);
    QCOMPARE(at(u'e').cell.style.sides[0].borderWidth, 20);
    QCOMPARE(at(u'g').cell.style.sides[0].borderWidth, 0);
}

void RtfReaderTest::attachmentsAndPicturesAreRead()
{
    const QByteArray rtf =
        "{\\rtf1 a{{\\NeXTGraphic 2__#$!@%!#__b \xC3\xA9.png \\width40 \\height60 \\appleaqc\n}\xAC}"
        "b{{\\NeXTGraphic gone.tiff}\\'ac}{{\\NeXTGraphic x}}\\'ac"
        "{\\pict\\pngblip\\picw9\\picwgoal200\\pichgoal100\\picscalex50 8950 4\n{\\*\\blipuid 00}e}"
        "{\\pict\\jpegblip\\bin3 }\\{}z}";
    QStringList asked;
    const AttributedText text = readRtf(rtf, [&asked](const QString &name) {
                                    asked.append(name);
                                    return name.endsWith(u"png") ? QByteArray("png") : QByteArray();
                                }).value();
    QCOMPARE(text.text(), u"a\uFFFCb\uFFFC\uFFFC\u00AC\uFFFC\uFFFCz"_s);
    QCOMPARE(asked, QStringList({u"2__#$!@%!#__b é.png"_s, u"gone.tiff"_s, u"x"_s}));
    QCOMPARE(text.characterFormatAt(1).attachment, std::optional(Attachment{u"b é.png"_s, "png", 40, 60}));
    QVERIFY(text.characterFormatAt(3).attachment->bytes.isNull());
    QCOMPARE(text.characterFormatAt(6).attachment,
             std::optional(Attachment{u"Picture 1.png"_s, "\x89PN", 100, 100}));
    QCOMPARE(text.characterFormatAt(7).attachment->bytes, "}\\{");
    QVERIFY(!text.characterFormatAt(8).attachment);
}

void RtfReaderTest::anyDepthIsFollowed()
{
    constexpr int depth = 1'000'000;
    const QByteArray opening(depth, '{');
    const QByteArray closing(depth, '}');
    QCOMPARE(read("a" + opening + "\\b b" + closing + "c").text(), u"abc"_s);
    QCOMPARE(read("a" + opening + "b").text(), u"ab"_s);
    QCOMPARE(read("a" + QByteArray("{\\pard\\qc x").repeated(depth)).size(), depth + 1);
    QCOMPARE(read("a" + QByteArray("{\\field{\\fldrslt ").repeated(100'000) + 'b').text(), u"ab"_s);
}

void RtfReaderTest::whatIsCutShortIsReadUpToTheCut()
{
    for (quint32 seed = 1; seed <= 60; ++seed) {
        const AttributedText whole = RandomRichText(seed).text();
        const QByteArray rtf = writeRtf(whole);
        if (rtf.size() > 1500)
            continue;
        for (qsizetype size = 0; size < rtf.size(); ++size) {
            const Result<AttributedText> part = readRtf(rtf.first(size));
            QCOMPARE(part.has_value(), size >= 5);
            if (part && !part->isEmpty()) {
                const qsizetype length = part->size() - 1;
                QCOMPARE(QStringView(part->text()).first(length), QStringView(whole.text()).first(length));
            }
        }
    }
}

void RtfReaderTest::manyFormatsTakeBoundedMemory()
{
    QByteArray rtf;
    constexpr int count = 200'000;
    for (int i = 1; i <= count; ++i)
        rtf += "\\li" + QByteArray::number(i) + "\\fs" + QByteArray::number(i) + " x\\\n";
    const AttributedText text = read(rtf);
    QCOMPARE(text.size(), 2 * count);
    QCOMPARE(text.characterFormatAt(2).size, 1000);
    QVERIFY(text.characterRuns().runs().size() < count);
}

void RtfReaderTest::otherThingsAreRefused()
{
    for (const char *bytes : {"", "{", "{\\rt", "text", "<html>", "x{\\rtf1 a}", "{rtf1}"})
        QVERIFY2(!readRtf(bytes), bytes);
    QCOMPARE(readRtf("\xEF\xBB\xBF \r\n{\\rtf1 a}").value().text(), u"a"_s);
}

QTEST_GUILESS_MAIN(RtfReaderTest)
#include "RtfReaderTest.moc"
