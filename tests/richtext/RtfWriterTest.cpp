// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfWriter.h"

#include "richtext/ListMarker.h"
#include "richtext/RandomRichText.h"
#include "richtext/RtfReader.h"
#include "richtext/Rtfd.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

class RtfWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whateverTheModelHoldsComesBack();
    void theDialectIsTheOneThatOthersExpect();
    void unlikeListsOfOneNumberStayApart();
    void markersAreWrittenAsTextSaysThem();
};

void RtfWriterTest::whateverTheModelHoldsComesBack()
{
    for (quint32 seed = 1; seed <= 600; ++seed) {
        const AttributedText text = RandomRichText(seed).text();
        const QByteArray rtf = writeRtf(text);
        QVERIFY(std::all_of(rtf.cbegin(), rtf.cend(), [](char byte) { return byte > 0; }));
        const Result<AttributedText> back = readRichText(writeRichText(text));
        QVERIFY(back);
        if (*back == text && writeRtf(*back) == rtf)
            continue;
        qWarning() << "seed" << seed << rtf << text.text() << back->text();
        QCOMPARE(back->text(), text.text());
        QVERIFY(back->characterRuns() == text.characterRuns());
        QVERIFY(back->paragraphRuns() == text.paragraphRuns());
        QCOMPARE(writeRtf(*back), rtf);
    }
}

void RtfWriterTest::theDialectIsTheOneThatOthersExpect()
{
    CharacterFormat bold;
    bold.bold = true;
    bold.foreground = Color{0, 0, 238};
    bold.link = u"uuid://A {1}"_s;
    ParagraphFormat item;
    item.headIndent = 720;
    item.firstLineIndent = -720;
    item.list = {1, 0, {{u"{disc}"_s}}};
    AttributedText text(u"\t\u2022\t\u00E9\n"_s, {}, item);
    text.append(AttributedText(u"shown"_s, bold, item));
    CharacterFormat picture;
    picture.attachment = Attachment{u"a b.png"_s, "x", 20, 40};
    text.insert(text.size(), QString(QChar(attachmentCharacter)), picture);
    QCOMPARE(writeRtf(text),
             R"({\rtf1\ansi\ansicpg1252\cocoartf2639
\cocoatextscaling0\cocoaplatform0{\fonttbl\f0\fnil\fcharset0 Helvetica;}
{\colortbl;\red255\green255\blue255;\red0\green0\blue238;}
{\*\expandedcolortbl;;\cssrgb\c0\c0\c93333;}
{\*\listtable{\list\listtemplateid1\listhybrid{\listlevel\levelnfc23\levelnfcn23\leveljc0\leveljcn0)"
             R"(\levelfollow0\levelstartat1\levelspace360\levelindent0{\*\levelmarker \{disc\}})"
             R"({\leveltext\leveltemplateid1\'01\uc0\u8226 ;}{\levelnumbers;}\fi-360\li720\lin720 })"
             R"({\listname ;}\listid1}
}
{\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1}}
\pard\li720\fi-720\pardirnatural\partightenfactor0
\ls1\ilvl0{\listtext
\f0\fs24\cf0 	\uc0\u8226 	}
\f0\fs24\cf0 \uc0\u233 \
{\field{\*\fldinst{HYPERLINK "uuid://A \{1\}"}}{\fldrslt \b\cf2 shown}}{{\NeXTGraphic a b.png )"
             R"(\width20 \height40 \appleattachmentpadding0 \appleembedtype0 \appleaqc
}\'ac}})");
    QCOMPARE(writeRtf(AttributedText()),
             "{\\rtf1\\ansi\\ansicpg1252\\cocoartf2639\n\\cocoatextscaling0\\cocoaplatform0{\\fonttbl}\n"
             "{\\colortbl;\\red255\\green255\\blue255;}\n{\\*\\expandedcolortbl;;}\n"
             "\\pard\\pardirnatural\\partightenfactor0\n}");
}

void RtfWriterTest::unlikeListsOfOneNumberStayApart()
{
    ParagraphFormat one;
    one.list = {4, 0, {{u"{disc}"_s}}};
    ParagraphFormat other;
    other.list = {4, 0, {{u"{decimal}."_s}}};
    AttributedText text(u"a\n"_s, {}, one);
    text.append(AttributedText(u"b"_s, {}, other));
    const AttributedText back = readRtf(writeRtf(text)).value();
    QCOMPARE(back.paragraphFormatAt(0), one);
    QCOMPARE(back.paragraphFormatAt(2).list.levels, other.list.levels);
    QVERIFY(back.paragraphFormatAt(2).list.identifier != 4);
}

void RtfWriterTest::markersAreWrittenAsTextSaysThem()
{
    QCOMPARE(markerText(u"{disc}"_s, 5), u"\u2022"_s);
    QCOMPARE(markerText(u"({lower-alpha})"_s, 28), u"(ab)"_s);
    QCOMPARE(markerText(u"{upper-roman}."_s, 1994), u"MCMXCIV."_s);
    QCOMPARE(markerText(u"{decimal}"_s, -3), u"-3"_s);
    QCOMPARE(markerText(u"{lower-roman}"_s, 0), u"0"_s);
    QCOMPARE(markerText(u"->"_s, 1), u"->"_s);
}

QTEST_GUILESS_MAIN(RtfWriterTest)
#include "RtfWriterTest.moc"
