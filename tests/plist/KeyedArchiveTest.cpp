// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/KeyedArchive.h"

#include "plist/Writer.h"

#include <QTest>

using namespace tavrin::plist;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::optional<tavrin::plist::ArchivedColor>)

class KeyedArchiveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsColors_data();
    void readsColors();
    void refusesWhatIsNoColor_data();
    void refusesWhatIsNoColor();
    void writesTheSmallestArchive();
    void writtenColorsAreStable();
};

namespace {

/// An archive of the root object, with the color class second and further objects from index 3.
QByteArray archiveOf(const Value &root, const Array &further = {})
{
    const Dictionary colorClass{{u"$classname"_s, u"NSColor"_s},
                                {u"$classes"_s, Array{u"NSColor"_s, u"NSObject"_s}}};
    return toBinary(Dictionary{{u"$version"_s, 100000},
                               {u"$archiver"_s, u"NSKeyedArchiver"_s},
                               {u"$top"_s, Dictionary{{u"root"_s, Uid{1}}}},
                               {u"$objects"_s, Array{u"$null"_s, root, colorClass} + further}});
}

Dictionary color(int space, const QString &key, const QByteArray &parts)
{
    return {{u"NSColorSpace"_s, space}, {key, parts}, {u"$class"_s, Uid{2}}};
}

} // namespace

void KeyedArchiveTest::readsColors_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<std::optional<ArchivedColor>>("expected");
    const auto row = [](const char *name, const QByteArray &data, ArchivedColor expected) {
        QTest::newRow(name) << data << std::optional(expected);
    };
    row("RGB", archiveOf(color(1, u"NSRGB"_s, QByteArray("0.25 1 0\0", 9))), {0.25, 1, 0, 1});
    row("RGB with alpha", archiveOf(color(2, u"NSRGB"_s, " 0.5 0 1 0.5 ")), {0.5, 0, 1, 0.5});
    row("white", archiveOf(color(3, u"NSWhite"_s, QByteArray("0.9\0", 4))), {0.9, 0.9, 0.9, 1});
    row("white with alpha", archiveOf(color(4, u"NSWhite"_s, "0 0.9")), {0, 0, 0, 0.9});
    row("inks", archiveOf(color(5, u"NSCMYK"_s, "0 0.5 1 0.5")), {0.5, 0.25, 0, 1});

    Dictionary custom = color(1, u"NSRGB"_s, "0.1564897 0.413073808 0.9984152317");
    custom.insert(u"NSComponents"_s, QByteArray("0.1973060291 0.5129697036 1 1"));
    custom.insert(u"NSCustomColorSpace"_s, Uid{3});
    row("what was picked", archiveOf(custom, {Dictionary()}), {0.1973060291, 0.5129697036, 1, 1});

    Dictionary named{{u"NSColorSpace"_s, 6}, {u"NSColorName"_s, Uid{3}}, {u"$class"_s, Uid{2}}};
    row("named text", archiveOf(named, {u"controlTextColor"_s}), {0, 0, 0, 1});
    row("named background", archiveOf(named, {u"selectedTextBackgroundColor"_s}), {1, 1, 1, 1});
    named.insert(u"NSColor"_s, Uid{4});
    row("named, with its color",
        archiveOf(named, {u"textColor"_s, color(3, u"NSWhite"_s, "0.5")}),
        {0.5, 0.5, 0.5, 1});
    named.insert(u"NSColor"_s, Uid{1});
    row("named after itself", archiveOf(named, {u"textColor"_s}), {0, 0, 0, 1});
}

void KeyedArchiveTest::readsColors()
{
    QFETCH(const QByteArray, data);
    QFETCH(const std::optional<ArchivedColor>, expected);
    QVERIFY(unarchiveColor(data) == expected);
}

void KeyedArchiveTest::refusesWhatIsNoColor_data()
{
    QTest::addColumn<QByteArray>("data");
    const Dictionary red = color(1, u"NSRGB"_s, "1 0 0");
    Dictionary other = red;
    other.insert(u"$class"_s, Uid{3});
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("garbage") << QByteArray("\x01\x02\x03");
    QTest::newRow("stream of the older archiver") << QByteArray::fromHex("040b73747265616d747970656481e803");
    QTest::newRow("plain list") << toBinary(red);
    QTest::newRow("no color") << archiveOf(u"text"_s);
    QTest::newRow("another class") << archiveOf(other, {Dictionary{{u"$classname"_s, u"NSFont"_s}}});
    other.insert(u"$class"_s, Uid{77});
    QTest::newRow("class out of range") << archiveOf(other);
    QTest::newRow("root refers on") << archiveOf(Uid{1});
    QTest::newRow("unknown space") << archiveOf(color(99, u"NSRGB"_s, "1 0 0"));
    QTest::newRow("pattern") << archiveOf(color(10, u"NSImage"_s, "1 0 0"));
    QTest::newRow("two parts") << archiveOf(color(1, u"NSRGB"_s, "1 0"));
    QTest::newRow("no numbers") << archiveOf(color(1, u"NSRGB"_s, "1 x 0"));
    QTest::newRow("not finite") << archiveOf(color(1, u"NSRGB"_s, "1 nan 0"));
    QTest::newRow("unknown name") << archiveOf(
        Dictionary{{u"NSColorSpace"_s, 6}, {u"NSColorName"_s, u"odd"_s}, {u"$class"_s, Uid{2}}});
}

void KeyedArchiveTest::refusesWhatIsNoColor()
{
    QFETCH(const QByteArray, data);
    QVERIFY(!unarchiveColor(data));
}

void KeyedArchiveTest::writesTheSmallestArchive()
{
    const QByteArray red = archiveColor({1, 0, 0, 1});
    QCOMPARE(red.size(), 239);
    QVERIFY(red.startsWith(QByteArray::fromHex("62706c6973743030d401020304050607 0a582476657273696f6e")));
}

void KeyedArchiveTest::writtenColorsAreStable()
{
    for (const double part : {0.0, -0.0, 1.0, 1.0 / 3, 1e-7, 0.99999999999, 2.0, -1.0}) {
        const ArchivedColor before{part, 1 - part, 0.5, part};
        const QByteArray written = archiveColor(before);
        const auto after = unarchiveColor(written);
        QVERIFY(after);
        QVERIFY(qAbs(after->red - qBound(0.0, part, 1.0)) < 1e-9);
        QVERIFY(qAbs(after->alpha - qBound(0.0, part, 1.0)) < 1e-9);
        QCOMPARE(archiveColor(*after), written);
    }
}

QTEST_GUILESS_MAIN(KeyedArchiveTest)
#include "KeyedArchiveTest.moc"
