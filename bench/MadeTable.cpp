// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "MadeTable.h"

#include <array>
#include <cstdio>
#include <numeric>
#include <random>

namespace tavrin::bench {

namespace {

unsigned pick(std::mt19937 &random, unsigned below)
{
    return static_cast<unsigned>(random() % below);
}

std::string word(std::mt19937 &random, unsigned syllables)
{
    constexpr std::array parts{
        "ba", "den", "lo", "mar", "ti", "ka", "ros", "el", "vin", "sch", "o", "ner", "qui", "stra"};
    std::string result;
    for (unsigned i = 0; i < syllables; ++i)
        result += parts[pick(random, parts.size())];
    return result;
}

std::string name(std::mt19937 &random)
{
    std::string last = word(random, 2 + pick(random, 3));
    std::string first = word(random, 1 + pick(random, 3));
    last.front() = static_cast<char>(last.front() - 0x20);
    first.front() = static_cast<char>(first.front() - 0x20);
    if (pick(random, 10) == 0)
        last += "é";
    return last + ", " + first;
}

std::string amount(std::mt19937 &random)
{
    std::array<char, 32> text{};
    const unsigned cents = pick(random, 10000000);
    const unsigned units = cents / 100;
    if (units >= 1000)
        std::snprintf(text.data(), text.size(), "$%u,%03u.%02u", units / 1000, units % 1000, cents % 100);
    else
        std::snprintf(text.data(), text.size(), "$%u.%02u", units, cents % 100);
    return text.data();
}

std::string freeformText(std::mt19937 &random)
{
    std::string text;
    for (unsigned words = 20 + pick(random, 30); words > 0; --words)
        text += word(random, 1 + pick(random, 4)) + (words % 9 == 0 ? '\n' : ' ');
    return text;
}

} // namespace

MadeTable::MadeTable(quint32 count) : g_records(count)
{
    std::iota(g_records.begin(), g_records.end(), 0U);
    std::mt19937 random(count);
    for (quint32 i = 0; i < count; ++i) {
        g_names.add(name(random));
        g_amounts.add(amount(random));
        g_texts.add(freeformText(random));
    }
}

RecordTextReader MadeTable::reader(const Column &column)
{
    return [&column](quint32 record, QString &) {
        const size_t start = column.ends[record];
        return QAnyStringView(QUtf8StringView(column.bytes.data() + start,
                                              static_cast<qsizetype>(column.ends[record + 1] - start)));
    };
}

RecordTextReader MadeTable::fieldReader(const QString &fieldIdentifier) const
{
    return reader(fieldIdentifier == QLatin1StringView("Person") ? g_names : g_amounts);
}

QStringList MadeTable::fieldIdentifiers() const
{
    return {QStringLiteral("Person"), QStringLiteral("Amount")};
}

} // namespace tavrin::bench
