// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "fuzz/PlistFuzz.h"
#include "plist/RandomTree.h"

#include <QTest>
#include <QtEndian>

#include <numeric>

using namespace tavrin;
using namespace tavrin::plist;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tavrin::plist::Value)

class BinaryFormTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryKindOfObject_data();
    void readsEveryKindOfObject();
    void refusesFaultyObjects_data();
    void refusesFaultyObjects();
    void refusesFaultyTrailers();
    void writesTheSmallestList();
    void widensReferencesAndOffsetsWithTheList();
    void sharedContainersAreBuiltOnce();
    void depthIsBoundedHoweverItIsReached();
    void damageIsJudgedAlike();
};

namespace {

/// A list of the given objects, the first being the root, with one-byte references and two-byte offsets.
/// The table may name an object more than once.
QByteArray listOf(const QByteArrayList &objects, const QList<int> &table)
{
    QByteArray bytes("bplist00");
    QList<qsizetype> offsets;
    for (const QByteArray &object : objects) {
        offsets.append(bytes.size());
        bytes += object;
    }
    const qsizetype tablePosition = bytes.size();
    for (const int object : table)
        bytes.append(static_cast<char>(offsets[object] >> 8)).append(static_cast<char>(offsets[object]));
    bytes += QByteArray(6, 'j') + "\x02\x01";
    for (const qint64 number : {table.size(), qsizetype(0), tablePosition}) {
        QByteArray field(8, '\0');
        qToBigEndian(number, field.data());
        bytes += field;
    }
    return bytes;
}

QByteArray listOf(const QByteArrayList &objects)
{
    QList<int> table(objects.size());
    std::iota(table.begin(), table.end(), 0);
    return listOf(objects, table);
}

QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

/// As read(), and so judged by the check that makes no values.
Result<PropertyList> judged(const QByteArray &bytes)
{
    fuzz::checkTable(bytes);
    return read(bytes);
}

} // namespace

void BinaryFormTest::readsEveryKindOfObject_data()
{
    QTest::addColumn<QByteArrayList>("objects");
    QTest::addColumn<Value>("expected");
    const auto row = [](const char *name, const QByteArrayList &objects, const Value &expected) {
        QTest::newRow(name) << objects << expected;
    };
    row("short integers are unsigned",
        {hex("a3010203"), hex("10ff"), hex("11ffff"), hex("12ffffffff")},
        Array{0xFF, 0xFFFF, qint64(0xFFFFFFFF)});
    row("8 bytes are signed", {hex("13ffffffffffffffff")}, -1);
    row("16 bytes", {hex("140000000000000000ffffffffffffffff")}, std::numeric_limits<quint64>::max());
    row("16 bytes, negative", {hex("14fffffffffffffffffffffffffffffffe")}, -2);
    row("reals", {hex("a20102"), hex("223fc00000"), hex("233ff8000000000000")}, Array{1.5F, 1.5});
    row("date", {hex("33c000000000000000")}, Date{-2});
    row("Latin-1 in an ASCII string", {hex("5261e9")}, u"aé"_s);
    row("UTF-16, lone surrogate kept", {hex("62d8000061")}, QString(QChar(0xD800)) + u"a"_s);
    row("long lengths", {hex("4f100201ff"), hex("08")}, hex("01ff"));
    row("length in 8 bytes", {hex("5f13000000000000000161")}, u"a"_s);
    row("uids", {hex("a20102"), hex("80ff"), hex("8300010000")}, Array{Uid{255}, Uid{65536}});
    row("a set", {hex("c101"), hex("09")}, Array{true});
    row("first duplicate wins",
        {hex("d2010103") + "\x04", hex("5161"), hex("00"), hex("09"), hex("08")},
        Dictionary{{u"a"_s, true}});
    row("number as a key", {hex("d10102"), hex("1007"), hex("09")}, Dictionary{{u"7"_s, true}});
    row("null in an array", {hex("a20102"), hex("00"), hex("09")}, Array{Value(), true});
    row("unreferenced objects", {hex("a101"), hex("09"), hex("ff"), hex("7161")}, Array{true});
}

void BinaryFormTest::readsEveryKindOfObject()
{
    QFETCH(const QByteArrayList, objects);
    QFETCH(const Value, expected);
    const auto list = judged(listOf(objects));
    QVERIFY2(list, list ? "" : qPrintable(list.error().detail));
    QVERIFY(list->root == expected);
    QCOMPARE(list->root.type(), expected.type());
}

void BinaryFormTest::refusesFaultyObjects_data()
{
    QTest::addColumn<QByteArrayList>("objects");
    const auto row = [](const char *name, const QByteArrayList &objects) { QTest::newRow(name) << objects; };
    row("contains itself", {hex("a100")});
    row("contains its container", {hex("a101"), hex("d10200"), hex("5161")});
    row("reference out of range", {hex("a102"), hex("09")});
    row("string too long", {hex("5f100561"), hex("09")});
    row("huge count", {hex("af13ffffffffffffffff01"), hex("09")});
    row("huge even count", {hex("6f138000000000000001"), hex("09")});
    row("no length", {hex("5f0161")});
    row("container as a key", {hex("d10102"), hex("a0"), hex("09")});
    row("data as a key", {hex("d10102"), hex("4161"), hex("09")});
    row("UTF-8 string", {hex("7161")});
    row("integer beyond 64 bits", {hex("1400000000000000010000000000000000")});
    row("integer of 16 bytes below 64 bits", {hex("14ffffffffffffffff7fffffffffffffff")});
    row("integer of 32 bytes", {hex("15") + QByteArray(32, '\0')});
    row("half-precision real", {hex("210000")});
    row("date that is no number", {hex("337ff8000000000000")});
    row("uid beyond 32 bits", {hex("840100000000")});
    row("unknown marker", {hex("b0")});
    row("nothing", {hex("00")});
    row("too many objects for the references", QByteArrayList(256, hex("09")));
}

void BinaryFormTest::refusesFaultyObjects()
{
    QFETCH(const QByteArrayList, objects);
    const auto list = judged(listOf(objects));
    QVERIFY(!list);
    QCOMPARE(list.error().kind, Error::Kind::Corrupt);
    QVERIFY(list.error().detail.startsWith(u"offset "));
}

void BinaryFormTest::refusesFaultyTrailers()
{
    const QByteArray sound = listOf({hex("d10102"), hex("516b"), hex("5176")});
    QVERIFY(judged(sound));
    QVERIFY(!judged(sound + '\0'));
    QVERIFY(!judged(sound.left(20) + sound.mid(21)));
    const auto damaged = [&sound](qsizetype fromEnd, char byte) {
        QByteArray bytes = sound;
        bytes[bytes.size() - fromEnd] = byte;
        return bytes;
    };
    for (const auto &[fromEnd, byte] : {std::pair<int, char>{26, '\0'}, // offset size
                                        {26, '\x09'},
                                        {25, '\0'},   // reference size
                                        {24, '\x7F'}, // number of objects, highest byte
                                        {17, '\0'},
                                        {17, '\x04'},
                                        {9, '\x03'}, // root
                                        {1, '\x08'}, // table position
                                        {1, '\x7F'},
                                        {8, '\x7F'},
                                        {33, '\x7F'}}) // an offset
        QVERIFY2(!judged(damaged(fromEnd, byte)), qPrintable(u"%1 from the end"_s.arg(fromEnd)));
}

void BinaryFormTest::writesTheSmallestList()
{
    const QByteArray expected = hex("62706c6973743030d10102516b5176080b0d"
                                    "0000000000000101000000000000000300000000000000000000"
                                    "00000000000f");
    QCOMPARE(toBinary(Dictionary{{u"k"_s, u"v"_s}}).toHex(), expected.toHex());
}

void BinaryFormTest::widensReferencesAndOffsetsWithTheList()
{
    for (const int count : {253, 254, 255, 256, 300, 70'000}) {
        Array numbers;
        for (int i = 0; i < count; ++i)
            numbers.append(i * 3);
        // Equal scalars are one object.
        const QByteArray bytes = toBinary(Array{numbers, numbers});
        const auto list = judged(bytes);
        QVERIFY(list);
        QVERIFY(list->root == Value(Array{numbers, numbers}));
        const quint64 objects = qFromBigEndian<quint64>(bytes.last(24).constData());
        QCOMPARE(objects, quint64(count) + 3);
        QCOMPARE(int(bytes[bytes.size() - 25]), objects <= 255 ? 1 : objects <= 65535 ? 2 : 4);
    }
}

void BinaryFormTest::sharedContainersAreBuiltOnce()
{
    // Each of the levels refers to the next one twice: 2^levels values when unfolded.
    const auto doubling = [](int levels) {
        QByteArrayList objects;
        for (int i = 1; i <= levels; ++i)
            objects.append(QByteArray("\xA2").append(2, static_cast<char>(i)));
        return listOf(objects << hex("09"));
    };
    QVERIFY(judged(doubling(10)));
    QVERIFY(!judged(doubling(100)));

    // Many arrays in the same bytes: each would take memory of its own.
    QByteArray root = hex("af10c8");
    for (int i = 1; i <= 200; ++i)
        root.append(static_cast<char>(i));
    QList<int> table(202, 1);
    table.first() = 0;
    table.last() = 2;
    QVERIFY(!judged(listOf({root, hex("af10c8") + QByteArray(200, '\xC9'), hex("09")}, table)));
    QVERIFY(judged(listOf({root, hex("a0"), hex("09")}, QList<int>(1, 0) + QList<int>(201, 2))));
}

void BinaryFormTest::depthIsBoundedHoweverItIsReached()
{
    const auto chain = [](int levels, Value value) {
        for (; levels > 0; --levels)
            value = Array{value};
        return value;
    };
    const auto with = [](const Value &root, const QByteArray &object, const QByteArray &other) {
        QByteArray bytes = toBinary(root);
        return bytes.replace(bytes.indexOf(object), object.size(), other);
    };
    const Value deepest = chain(maximumDepth, 5);
    QVERIFY(judged(toBinary(deepest)));
    QVERIFY(!judged(with(deepest, hex("1005"), hex("a005"))));
    QVERIFY(!judged(with(deepest, hex("1005"), hex("8005")))); // a reference has a level of its own
    // The second chain, objects 302 and on, leads into the first one: 300 levels, met before.
    QVERIFY(judged(with(Array{chain(300, 5), chain(200, 6)}, hex("a101f6"), hex("a10001"))));
    QVERIFY(!judged(with(Array{chain(300, 5), chain(300, 6)}, hex("a1025a"), hex("a10001"))));
}

void BinaryFormTest::damageIsJudgedAlike()
{
    QRandomGenerator random(20261121);
    int accepted = 0;
    for (quint32 seed = 0; seed < 12; ++seed) {
        const QByteArray whole = toBinary(RandomTree(seed, {}).dictionary());
        for (int i = 0; i < 100; ++i) {
            QByteArray damaged = whole;
            for (int left = random.bounded(3); left >= 0; --left) {
                // Often a marker, or a reference or offset that is sound elsewhere.
                const int at = random.bounded(static_cast<int>(damaged.size()));
                damaged[at] = random.bounded(2) == 0
                                  ? static_cast<char>(random.bounded(256))
                                  : damaged[random.bounded(static_cast<int>(damaged.size()))];
            }
            accepted += judged(damaged) ? 1 : 0;
        }
    }
    QVERIFY(accepted > 30);
}

QTEST_GUILESS_MAIN(BinaryFormTest)
#include "BinaryFormTest.moc"
