// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileFixture.h"

using namespace tavrin;
using namespace Qt::StringLiterals;

class AddressBlocksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standsInTheTextWhereTheSettingsSay_data();
    void standsInTheTextWhereTheSettingsSay();
    void isMadeOfFieldsByTheLayout_data();
    void isMadeOfFieldsByTheLayout();

private:
    /// The block of the only record of a datafile with these settings.
    static QString blockOf(const plist::Dictionary &record, const plist::Dictionary &settings)
    {
        const DatafileFixture files;
        plist::Dictionary root = DatafileFixture::root(0);
        root.insert(u"Records"_s, plist::Dictionary{{u"r"_s, record}});
        root.remove(u"Catalog"_s);
        settings.forEach([&root](const QString &key, const plist::Value &value) {
            root = DatafileFixture::withSetting(root, key, value);
        });
        const auto document = DatafileFixture::opened(files.make(u"this.tv3"_s, root));
        return document->addressBlockAtIndex(0);
    }
};

void AddressBlocksTest::standsInTheTextWhereTheSettingsSay_data()
{
    QTest::addColumn<plist::Dictionary>("settings");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("block");
    const plist::Dictionary none;
    const plist::Dictionary second{{u"AddressBlockStartingLine"_s, 2}};
    const plist::Dictionary three{{u"AddressFixedLineCount"_s, true}, {u"AddressBlockLineCount"_s, 3}};
    const plist::Dictionary marker{{u"AddressStartsAtLineNumber"_s, false}};
    const plist::Dictionary star{{u"AddressStartsAtLineNumber"_s, false},
                                 {u"AddressSpecialCharacter"_s, u"**"_s},
                                 {u"AddressFixedLineCount"_s, true},
                                 {u"AddressBlockLineCount"_s, 1}};

    QTest::newRow("to the first empty line") << none << u"Ann\nElm St\n\nnotes"_s << u"Ann\nElm St"_s;
    QTest::newRow("to the end") << none << u"Ann\nElm St"_s << u"Ann\nElm St"_s;
    QTest::newRow("a line of blanks is empty") << none << u"Ann\n \t\nnotes"_s << u"Ann"_s;
    QTest::newRow("an empty start") << none << u"\nAnn"_s << u""_s;
    QTest::newRow("from line 2") << second << u"notes\nAnn\nElm St"_s << u"Ann\nElm St"_s;
    QTest::newRow("line 2 of one") << second << u"notes"_s << u""_s;
    QTest::newRow("other ends of lines")
        << second << u"notes\r\nAnn\rElm St\u2028Town\u2029\nx"_s << u"Ann\nElm St\nTown"_s;
    QTest::newRow("three lines, empty or not") << three << u"Ann\n\nTown\nnotes"_s << u"Ann\n\nTown"_s;
    QTest::newRow("three lines of two") << three << u"Ann\nTown"_s << u"Ann\nTown"_s;
    QTest::newRow("behind the marker's line") << marker << u"notes ~%\nAnn\nTown\n\nx"_s << u"Ann\nTown"_s;
    QTest::newRow("behind the marker") << marker << u"notes\n~% Ann\nTown\n\nx"_s << u"Ann\nTown"_s;
    QTest::newRow("no marker") << marker << u"Ann\nTown"_s << u""_s;
    QTest::newRow("marker at the end") << marker << u"Ann ~%"_s << u""_s;
    QTest::newRow("a marker of one's own") << star << u"x ~%\n**\nAnn\nTown"_s << u"Ann"_s;
}

void AddressBlocksTest::standsInTheTextWhereTheSettingsSay()
{
    QFETCH(const plist::Dictionary, settings);
    QFETCH(const QString, text);
    QTEST(blockOf({{u"TextString"_s, text}}, settings), "block");
}

void AddressBlocksTest::isMadeOfFieldsByTheLayout_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("block");
    QTest::newRow("fields and text") << u"To «Name»\n«City», «State»"_s << u"To Ann\nRome, «Name»"_s;
    QTest::newRow("an empty line falls out") << u"«Name»\n«Company»\n\n«City»"_s << u"Ann\nRome"_s;
    QTest::newRow("a name that no field has") << u"«Town» «Name» «"_s << u"«Town» Ann «"_s;
}

void AddressBlocksTest::isMadeOfFieldsByTheLayout()
{
    QFETCH(const QString, layout);
    plist::Array fields;
    for (const QString &name : {u"Name"_s, u"City"_s, u"State"_s, u"Company"_s})
        fields.append(plist::Dictionary{{u"Identifier"_s, u"id-"_s + name}, {u"Name"_s, name}});
    // What stands in a field is not taken for another field's name.
    const plist::Dictionary contents{
        {u"id-Name"_s, u"Ann"_s}, {u"id-City"_s, u"Rome"_s}, {u"id-State"_s, u"«Name»"_s}};

    const auto blockWith = [&](const plist::Value &stored) {
        return blockOf(
            {{u"Fields"_s, contents}},
            {{u"Fields"_s, fields}, {u"AddressInText"_s, false}, {u"AddressBlockLayout"_s, stored}});
    };

    QTEST(blockWith(layout), "block");
    const plist::Dictionary archive{
        {u"$version"_s, 100000},
        {u"$archiver"_s, u"NSKeyedArchiver"_s},
        {u"$top"_s, plist::Dictionary{{u"root"_s, plist::Uid{1}}}},
        {u"$objects"_s,
         plist::Array{
             u"$null"_s,
             plist::Dictionary{{u"NSString"_s, plist::Uid{2}}, {u"$class"_s, plist::Uid{3}}},
             layout,
             plist::Dictionary{{u"$classname"_s, u"NSAttributedString"_s},
                               {u"$classes"_s, plist::Array{u"NSAttributedString"_s, u"NSObject"_s}}}}}};
    QTEST(blockWith(plist::toBinary(archive)), "block");
    QCOMPARE(blockWith(QByteArray("no archive")), QString());
}

QTEST_GUILESS_MAIN(AddressBlocksTest)
#include "AddressBlocksTest.moc"
