// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/OrderedMap.h"

#include <QRandomGenerator>
#include <QTest>

using namespace tavrin;

class OrderedMapTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesWithAPlainListUnderRandomEdits();
};

void OrderedMapTest::agreesWithAPlainListUnderRandomEdits()
{
    constexpr quint32 seed = 20010101;
    QRandomGenerator random(seed);
    OrderedMap<int, int> map;
    QList<std::pair<int, int>> plain;
    const auto place = [&plain](int key) {
        return std::ranges::find_if(plain, [key](const auto &entry) { return entry.first == key; });
    };

    for (int step = 0; step < 20000; ++step) {
        // Long runs of mostly inserting, then of mostly removing: both sides of the hashing threshold.
        const bool inserting = random.bounded(100) < ((step / 1000) % 2 == 0 ? 80 : 20);
        const int key = random.bounded(60);
        const auto found = place(key);
        if (inserting) {
            map.insert(key, step);
            if (found != plain.end())
                found->second = step;
            else
                plain.append({key, step});
        } else {
            const int taken = map.take(key);
            QCOMPARE(taken, found == plain.end() ? 0 : found->second);
            if (found != plain.end())
                plain.erase(found);
        }
        QCOMPARE(map.size(), plain.size());
    }
    QList<std::pair<int, int>> walked;
    map.forEach([&walked](int key, int value) { walked.append({key, value}); });
    QCOMPARE(walked, plain);
    for (int key = 0; key < 60; ++key)
        QCOMPARE(map.contains(key), place(key) != plain.end());
}

QTEST_GUILESS_MAIN(OrderedMapTest)
#include "OrderedMapTest.moc"
