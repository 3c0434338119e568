// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/ByteScan.h"

#include <QRandomGenerator>
#include <QTest>

#include <hwy/highway.h>

#include <array>
#include <vector>

using namespace tavrin::plist;

/// Every test runs once for each set of vector instructions that this processor has.
class ByteScanTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void cleanupTestCase();
    void classifiesLikeThePlainTwin();
    void judgesEveryFormOfCharacter();
    void judgesTextCutAnywhere();
    void judgesDamagedText();
};

namespace {

/// Bytes at either side of every border that UTF-8 draws.
constexpr std::array<uchar, 24> borders{0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                        0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED,
                                        0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xFF};

template <typename T, std::size_t count>
T oneOf(const std::array<T, count> &choices, QRandomGenerator &random)
{
    return choices[random.bounded(quint32(count))];
}

/// The text in hexadecimal if Qt judges it otherwise, else nothing. It is judged in memory of exactly its
/// size, so that the sanitizer sees every read outside of it.
QByteArray disputed(QByteArrayView text)
{
    const std::vector<char> copy(text.begin(), text.end());
    const QByteArrayView bytes(copy.data(), std::ssize(copy));
    return isValidUtf8(bytes) == bytes.isValidUtf8() ? QByteArray() : bytes.toByteArray().toHex();
}

/// Valid text with stretches of each length of character.
QByteArray madeText(QRandomGenerator &random, qsizetype characters)
{
    constexpr std::array<std::array<char32_t, 2>, 5> ranges{
        {{0, 0x7F}, {0x80, 0x7FF}, {0x800, 0xD7FF}, {0xE000, 0xFFFF}, {0x10000, 0x10FFFF}}};
    QList<char32_t> text;
    while (text.size() < characters) {
        const auto [first, last] = oneOf(ranges, random);
        for (auto run = random.bounded(40); run > 0; --run)
            text += first + random.bounded(static_cast<quint32>(last - first + 1));
    }
    return QString::fromUcs4(text.data(), characters).toUtf8();
}

} // namespace

void ByteScanTest::initTestCase_data()
{
    QTest::addColumn<qint64>("target");
    for (const auto target : hwy::SupportedAndGeneratedTargets())
        QTest::newRow(hwy::TargetName(target)) << qint64(target);
}

void ByteScanTest::init()
{
    QFETCH_GLOBAL(qint64, target);
    hwy::SetSupportedTargetsForTest(target);
}

void ByteScanTest::cleanupTestCase()
{
    hwy::SetSupportedTargetsForTest(0);
}

void ByteScanTest::classifiesLikeThePlainTwin()
{
    constexpr std::array<uchar, 12> kinds{'<', '<', '&', '&', '=', ';', '%', '\'', 0x00, 0x7F, 0x80, 0xFF};
    QRandomGenerator random(7);
    for (int round = 0; round < 400; ++round) {
        const qsizetype offset = random.bounded(64);
        const qsizetype count = random.bounded(6);
        std::vector<char> bytes(static_cast<std::size_t>(offset + count * 64));
        for (char &byte : bytes)
            byte = static_cast<char>(oneOf(kinds, random));
        std::vector<ByteMasks> expected(static_cast<std::size_t>(count), ByteMasks{1, 2, 3});
        std::vector<ByteMasks> found(expected.size(), ByteMasks{4, 5, 6});
        classifyPlainly(bytes.data() + offset, count, expected.data());
        classify(bytes.data() + offset, count, found.data());
        for (std::size_t i = 0; i < found.size(); ++i) {
            QCOMPARE(found[i].markup, expected[i].markup);
            QCOMPARE(found[i].ampersand, expected[i].ampersand);
            QCOMPARE(found[i].beyondAscii, expected[i].beyondAscii);
        }
    }
    const QByteArray block = "<&" + QByteArray(61, '\x80') + '<';
    ByteMasks masks{};
    classifyPlainly(block.data(), 1, &masks);
    QCOMPARE(masks.markup, 0x8000'0000'0000'0001U);
    QCOMPARE(masks.ampersand, 2U);
    QCOMPARE(masks.beyondAscii, 0x7FFF'FFFF'FFFF'FFFCU);
}

void ByteScanTest::judgesEveryFormOfCharacter()
{
    constexpr std::array<const char *, 7> rests{
        "", "\x80", "\xBF", "\x80\x80", "\x80\xBF", "\xBF\xC2", "\xBF\x80\x80"};
    QRandomGenerator random(11);
    for (const uchar first : borders) {
        for (const uchar second : borders) {
            for (const char *rest : rests) {
                const QByteArray form = QByteArray(1, char(first)) + char(second) + rest;
                // Across the borders of the vectors, whatever their width, and at both ends of the text.
                for (const int before : {0, 13 + int(random.bounded(4)), 61 + int(random.bounded(4))}) {
                    const QByteArray head(before, 'a');
                    QCOMPARE(disputed(head + form), QByteArray());
                    const QByteArray tail(int(random.bounded(70)), 'a');
                    QCOMPARE(disputed(head + form + tail), QByteArray());
                }
            }
        }
    }
}

void ByteScanTest::judgesTextCutAnywhere()
{
    QRandomGenerator random(13);
    const QByteArray text = madeText(random, 150);
    QVERIFY(isValidUtf8(text));
    for (qsizetype size = 0; size <= text.size(); ++size) {
        QCOMPARE(disputed(text.first(size)), QByteArray());
        QCOMPARE(disputed(text.sliced(size)), QByteArray());
    }
}

void ByteScanTest::judgesDamagedText()
{
    QRandomGenerator random(17);
    int valid = 0;
    constexpr int rounds = 6000;
    for (int round = 0; round < rounds; ++round) {
        QByteArray text = madeText(random, 1 + random.bounded(120));
        for (auto faults = random.bounded(3); faults > 0; --faults) {
            const qsizetype place = random.bounded(int(text.size()));
            const char byte = char(oneOf(borders, random));
            switch (random.bounded(3)) {
            case 0:
                text[place] = byte;
                break;
            case 1:
                text.insert(place, byte);
                break;
            default:
                text[place] = char(text[place] ^ (1 << random.bounded(8)));
                break;
            }
        }
        QCOMPARE(disputed(text), QByteArray());
        valid += text.isValidUtf8() ? 1 : 0;
    }
    QVERIFY(valid > rounds / 5 && valid < rounds * 4 / 5);
}

QTEST_GUILESS_MAIN(ByteScanTest)
#include "ByteScanTest.moc"
