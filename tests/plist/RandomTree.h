// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <QRandomGenerator>

#include <limits>

namespace tavrin::plist {

/// Grows random trees that use every type, the same ones for the same seed.
class RandomTree
{
public:
    /// What a tree must leave out so that the other side can hold it.
    struct Limits
    {
        bool plainText = false;  ///< No control characters, as other XML readers demand.
        bool wholeDates = false; ///< Dates in the four-digit years, in whole seconds.
        bool uids = true;
        bool singles = true;
    };

    RandomTree(quint32 seed, Limits limits) : g_random(seed), g_limits(limits) {}

    Value dictionary(int depth = 0)
    {
        Dictionary dictionary;
        for (int left = g_random.bounded(depth == 0 ? 40 : 12); left > 0; --left)
            dictionary.insert(text(), value(depth + 1));
        return dictionary;
    }

private:
    Value value(int depth)
    {
        switch (g_random.bounded(depth < 4 ? 11 : 8)) {
        case 0:
            return g_random.bounded(2) == 1;
        case 1:
            return static_cast<qint64>(g_random.generate64() >> g_random.bounded(64));
        case 2:
            return -static_cast<qint64>(g_random.generate64() >> (1 + g_random.bounded(63)));
        case 3:
            return g_random.generate64();
        case 4:
            return real();
        case 5:
            return date();
        case 6:
            return data();
        case 7:
            return g_limits.uids && g_random.bounded(4) == 0 ? Value(Uid{g_random.generate()})
                                                             : Value(text());
        case 8:
            return array(depth);
        default:
            return dictionary(depth);
        }
    }

    Value real()
    {
        if (g_limits.singles && g_random.bounded(3) == 0)
            return static_cast<float>(g_random.generateDouble());
        constexpr double infinity = std::numeric_limits<double>::infinity();
        const double specials[] = {0, infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 1e-310};
        return g_random.bounded(4) == 0 ? specials[g_random.bounded(5)]
                                        : (g_random.generateDouble() - 0.5) * 1e12;
    }

    Date date()
    {
        if (g_limits.wholeDates)
            return {static_cast<double>(g_random.bounded(2'000'000'000) - 1'000'000'000)};
        return {(g_random.generateDouble() - 0.5) * 1e11};
    }

    QByteArray data()
    {
        QByteArray bytes(g_random.bounded(200), Qt::Uninitialized);
        for (char &byte : bytes)
            byte = static_cast<char>(g_random.bounded(256));
        return bytes;
    }

    Value array(int depth)
    {
        Array array;
        for (int left = g_random.bounded(12); left > 0; --left)
            array.append(value(depth + 1));
        return array;
    }

    QString text()
    {
        static constexpr char32_t samples[] = {U'a',
                                               U'Z',
                                               U'<',
                                               U'&',
                                               U'>',
                                               U'"',
                                               U' ',
                                               U'\t',
                                               U'\n',
                                               U'é',
                                               U'€',
                                               0x2028,
                                               0x1F600,
                                               0xFEFF,
                                               U'\r',
                                               U'\0',
                                               0x01,
                                               0xFFFF};
        constexpr int plainSamples = 14;
        QString text = QStringLiteral("");
        for (int left = g_random.bounded(30); left > 0; --left)
            text += QChar::fromUcs4(samples[g_random.bounded(g_limits.plainText ? plainSamples : 18)]);
        return text;
    }

    QRandomGenerator g_random;
    Limits g_limits;
};

} // namespace tavrin::plist
