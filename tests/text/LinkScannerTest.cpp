// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/LinkScanner.h"

#include <QTest>

using namespace tavrin::text;
using namespace Qt::StringLiterals;

class LinkScannerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstElementIsFound_data();
    void theFirstElementIsFound();
    void nothingOutsideTheRangeCounts();
    void addressesNeedADomain();
};

void LinkScannerTest::theFirstElementIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("email");
    QTest::addColumn<QString>("web");
    QTest::addColumn<QString>("phone");
    const auto row = [](const char *name,
                        const char16_t *text,
                        const char16_t *email,
                        const char16_t *web,
                        const char16_t *phone) {
        const auto string = [](const char16_t *part) { return QString::fromUtf16(part); };
        QTest::newRow(name) << string(text) << string(email) << string(web) << string(phone);
    };
    row("nothing", u"no address", u"", u"", u"");
    row("at the very start", u"a@b.org!", u"a@b.org", u"", u"");
    row("in a sentence",
        u"Ask joe.x@b.org, or see www.b.org/x?y=1.",
        u"joe.x@b.org",
        u"www.b.org/x?y=1",
        u"");
    row("ends before signs of its own", u"<a@b.org> https://b.org/x#y", u"a@b.org", u"https://b.org/x", u"");
    row("only one sign goes", u"a@b.org..", u"a@b.org.", u"", u"");
    row("the first of both", u"https://b.org http://c.org", u"", u"https://b.org", u"");
    row("a scheme alone is none", u"http:// www. http://d.org", u"", u"http://d.org", u"");
    row("telephone", u"call 555-1234 now", u"", u"", u"555-1234");
    row("the longest", u"(206) 555-1234", u"", u"", u"(206) 555-1234");
    row("not in a longer number", u"1555-12345 555-12346 5551555-1234", u"", u"", u"");
}

void LinkScannerTest::theFirstElementIsFound()
{
    QFETCH(const QString, text);
    const FoundRange whole{0, text.size()};
    const QStringList templates{u"###-####"_s, u"(###) ###-####"_s};
    const auto found = [&text](const FoundRange &range) { return text.mid(range.location, range.length); };
    QTEST(found(emailRangeInString(text, whole)), "email");
    QTEST(found(webLinkRangeInString(text, whole)), "web");
    QTEST(found(phoneNumberInString(text, whole, templates)), "phone");
}

void LinkScannerTest::nothingOutsideTheRangeCounts()
{
    const QString text = u"a@b.org c@d.org"_s;
    QCOMPARE(emailRangeInString(text, {2, 13}), (FoundRange{8, 7}));
    QCOMPARE(emailRangeInString(text, {0, 5}), (FoundRange{0, 5}));
    QVERIFY(webLinkRangeInString(u"www.b", {0, 4}).isEmpty());
    QVERIFY(phoneNumberInString(u"12", {0, 1}, {u"##"_s}).isEmpty());
}

void LinkScannerTest::addressesNeedADomain()
{
    QVERIFY(isPlausibleEmailAddress(u"a@b.c"));
    for (const QStringView none : {u"a", u"a@b", u"a@bc", u"a@.c", u"a@bc."})
        QVERIFY(!isPlausibleEmailAddress(none));
}

QTEST_GUILESS_MAIN(LinkScannerTest)
#include "LinkScannerTest.moc"
