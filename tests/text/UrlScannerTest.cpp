// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/UrlScanner.h"

#include <QTest>

using namespace tavrin::text;
using namespace Qt::StringLiterals;

class UrlScannerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linksOfTexts_data();
    void linksOfTexts();
    void aRangeIsNotLeft();
    void manyAddressesAndHalfAddressesTakeLittleTime();
};

void UrlScannerTest::linksOfTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("urls");
    const auto row = [](const char *name, const QString &text, const QStringList &urls) {
        QTest::newRow(name) << text << urls;
    };
    row("www at the end of a sentence", u"See www.a.example."_s, {u"http://www.a.example"_s});
    row("only one sign is left out", u"http://a.example?!"_s, {u"http://a.example?"_s});
    row("mail in an exclamation", u"Write to me@a.example!"_s, {u"mailto:me@a.example"_s});
    row("mail at the very start", u"me@a.example x"_s, {u"mailto:me@a.example"_s});
    row("one character behind the @", u"a@b or a@b. or me@host"_s, {});
    row("a full stop right behind the @", u"a@.bc a@b."_s, {});
    row("https before http",
        u"https://a.example http://b.example"_s,
        {u"https://a.example"_s, u"http://b.example"_s});
    row("every scheme",
        u"ftp://a uuid://1-2 file:///x%20y mailto:a@b.cd tel://+1"_s,
        {u"ftp://a"_s, u"uuid://1-2"_s, u"file:///x%20y"_s, u"mailto:a@b.cd"_s, u"tel://+1"_s});
    row("mail before www", u"me@www.a.example"_s, {u"mailto:me@www.a.example"_s});
    row("www inside an address", u"http://www.a.example"_s, {u"http://www.a.example"_s});
    row("case counts", u"HTTP://a.example Www.a"_s, {});
    row("ends at what no address has",
        u"http://a.example\u00E9 <http://b.example> http://c\nd"_s,
        {u"http://a.example"_s, u"http://b.example"_s, u"http://c"_s});
    row("brackets", u"http://a/[1]"_s, {u"http://a/[1]"_s});
    row("no URL", u"http://a/%zz http://a/#b#c http://ok"_s, {u"http://ok"_s});
    row("too short", u"@ @@ @."_s, {});
}

void UrlScannerTest::linksOfTexts()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, urls);
    QStringList found;
    for (const Link &link : linksIn(text))
        found.append(link.url);
    QCOMPARE(found, urls);
}

void UrlScannerTest::aRangeIsNotLeft()
{
    const QString text = u"http://a.example [http://b.example]"_s;
    QCOMPARE(urlRangeInString(text, {1, 10}).range, FoundRange());
    QCOMPARE(urlRangeInString(text, {0, 9}).range, (FoundRange{0, 8}));
    QCOMPARE(urlRangeInString(text, {10, 25}).range, (FoundRange{18, 17}));
    QCOMPARE(urlRangeInString(text, {10, 25}, UrlPlace::Field).range, (FoundRange{18, 16}));
}

void UrlScannerTest::manyAddressesAndHalfAddressesTakeLittleTime()
{
    // Would take hours if each address were looked for through the whole rest.
    for (const QString &piece : {u"@ "_s, u"www. http:// "_s, u"a@b.cd "_s, u"@"_s})
        linksIn(piece.repeated(100'000));
    QCOMPARE(linksIn(u"tel://1 "_s.repeated(100'000)).size(), 100'000U);
}

QTEST_APPLESS_MAIN(UrlScannerTest)
#include "UrlScannerTest.moc"
