// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "fuzz/PlistFuzz.h"
#include "plist/RandomTree.h"

#include <QTest>

using namespace tavrin::plist;
using namespace Qt::StringLiterals;

/// The cursor against the reader: both go over the same bytes, and only one of them is simple.
class XmlCursorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unusualFormsAreJudgedAlike_data();
    void unusualFormsAreJudgedAlike();
    void damageIsJudgedAlike();
    void textsAcrossWindowsAreJudgedAlike();
    void entriesAreMetInOrder();
};

void XmlCursorTest::unusualFormsAreJudgedAlike_data()
{
    QTest::addColumn<QByteArray>("xml");
    const auto row = [](const char *name, const QByteArray &body) {
        QTest::newRow(name) << "<plist version='1.0'><dict><key>k</key>" + body + "</dict></plist>";
    };
    row("comments", "<!-- <dict> --><array><!---->  <true/><?pi <?><false></false></array><!--x-->");
    row("attributes", "<string a='>' b=\"<\">x</string ><key>l</key ><dict x='/'/>");
    row("CDATA", "<string>a<![CDATA[</string>&]]>b&amp;</string><key><![CDATA[q]]></key><data/>");
    row("empty elements", "<string/><key/><array/><key>d</key><dict/><key>i</key><integer/>");
    row("entities", "<string>&lt;&#65;&#x41;</string><key>&quot;</key><string>&nbsp;</string>");
    row("a reference without end", "<string>&amp</string>");
    row("beyond ASCII in data", "<data>AA\u00e9=</data>");
    row("dates", "<date>2026-11-21T16:47:12Z</date><key>l</key><date>2026-11-21T16:47:1:Z</date>");
    row("an empty date", "<date/>2026-11-21T16:47:12Z</date>");
    row("the same entry, then not",
        "<array><dict><key>a</key><true/></dict><dict><key>a</key></true></dict></array>");
    row("odd leaves", "<integer> 0x1F</integer><key>r</key><real>1e400</real><key>d</key><date>1-1</date>");
    row("a list inside", "<plist/>");
    row("an unknown element", "<set/>");
    row("keys alone", "<string>v</string><key>alone</key>");
    row("text between", "x<true/>");
    row("the wrong closing tag", "<array><dict></array></dict>");
    QTest::newRow("no plist element") << QByteArray(" <dict><key>a</key><true/></dict> trailing < junk");
    QTest::newRow("a declared type of its own") << QByteArray("<!DOCTYPE plist [<!ENTITY a 'b'>]><plist/>");
    QTest::newRow("nothing") << QByteArray("<plist/>");
    QTest::newRow("no end") << QByteArray("<plist><dict>");
    QTest::newRow("as deep as may be")
        << QByteArray("<array>").repeated(512) + QByteArray("</array>").repeated(512);
    QTest::newRow("too deep") << QByteArray("<array>").repeated(513) + QByteArray("</array>").repeated(513);
}

void XmlCursorTest::unusualFormsAreJudgedAlike()
{
    QFETCH(QByteArray, xml);
    fuzz::checkCursor(xml);
    for (qsizetype size = 0; size < xml.size() && size < 1000; ++size)
        fuzz::checkCursor(xml.first(size));
}

void XmlCursorTest::damageIsJudgedAlike()
{
    QRandomGenerator random(20261121);
    constexpr QByteArrayView damage("</>&;!?\"' \0adkxz\xC3\xA9", 18);
    for (quint32 seed = 0; seed < 12; ++seed) {
        const Value tree = RandomTree(seed, {}).dictionary();
        // Twice, so that the second is told by what the first was like.
        const QByteArray whole = toXml(Array{tree, tree});
        fuzz::checkCursor(whole);
        for (int i = 0; i < 80; ++i) {
            QByteArray damaged = whole;
            const int at = random.bounded(static_cast<int>(damaged.size()));
            switch (random.bounded(3)) {
            case 0:
                damaged[at] = damage[random.bounded(static_cast<int>(damage.size()))];
                break;
            case 1:
                damaged.remove(at, 1 + random.bounded(9));
                break;
            default:
                damaged.insert(at, whole.mid(random.bounded(static_cast<int>(whole.size())), 12));
            }
            fuzz::checkCursor(damaged);
        }
    }
}

void XmlCursorTest::textsAcrossWindowsAreJudgedAlike()
{
    for (const int size : {1, 63, 64, 65, 511, 512, 16383, 16384, 16385, 70000}) {
        for (const char *end : {"", "&amp;", "&bad;", "\u00e9", "<", "<![CDATA[<]]>"}) {
            const QByteArray text = QByteArray(size, 'x') + end;
            fuzz::checkCursor("<array><string>" + text + "</string><data>" + text + "</data></array>");
            fuzz::checkCursor("<array><data>" + text + "</data><string>" + text);
        }
    }
}

void XmlCursorTest::entriesAreMetInOrder()
{
    const QByteArray xml = "<plist><dict><key>a&amp;b</key><string>x&lt;</string><key>list</key>"
                           "<array><true/><dict/><string>y</string></array></dict></plist>"
                           + QByteArray(MarkupScanner::blockSize, '\0');
    XmlCursor cursor(QByteArrayView(xml).chopped(MarkupScanner::blockSize));
    QVERIFY(cursor.enterRoot() && cursor.enter() && cursor.nextKey());
    QCOMPARE(cursor.key(), QByteArrayView("a&b"));
    QByteArrayView content;
    QVERIFY(cursor.nextValue() && cursor.readString(content) && cursor.isEncoded());
    QCOMPARE(content, QByteArrayView("x&lt;"));
    QVERIFY(cursor.nextKey() && cursor.nextValue() && cursor.enter());
    QList<Element> elements;
    while (cursor.nextElement()) {
        elements.append(cursor.tag().element);
        QVERIFY(cursor.skipValue());
    }
    QCOMPARE(elements, (QList<Element>{Element::True, Element::Dict, Element::String}));
    QVERIFY(!cursor.nextKey() && !cursor.hasFailed() && cursor.leaveRoot());
}

QTEST_GUILESS_MAIN(XmlCursorTest)
#include "XmlCursorTest.moc"
