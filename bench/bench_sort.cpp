// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-sort [ROWS...]: milliseconds for sorting and selecting made records, and ratios to sorting
// ready strings, ready collation keys and ready numbers, and to one look at the bytes searched. Without rows:
// 100,000 and 1,000,000.

#include "MadeTable.h"
#include "sorting/RecordMatcher.h"
#include "sorting/RecordSort.h"
#include "text/Comparison.h"

#include <QCollator>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>

namespace {

using namespace tavrin;
using bench::MadeTable;
using benchmark::State;

void sortBy(State &state, const MadeTable &table, SortKind kind, const char *field)
{
    SortCriteriaData criteria;
    criteria.setCompareSelector(static_cast<qint64>(kind));
    criteria.setPrimaryFieldIdentifier(QString::fromLatin1(field));
    const SortSettings settings{{}, QLocale(QStringLiteral("en_US"))};
    Progress progress;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(sortedRecords(table.records(), criteria, table, settings, progress));
}

/// Sorts the places of what `make` makes of each text; making it counts when `makingCounts`.
template <typename Make, typename Less>
void stableSort(
    State &state, const MadeTable &table, const char *field, bool makingCounts, Make make, Less less)
{
    const RecordTextReader reader = table.fieldReader(QString::fromLatin1(field));
    QString buffer;
    for ([[maybe_unused]] auto _ : state) {
        if (!makingCounts)
            state.PauseTiming();
        std::vector<decltype(make(QString()))> terms;
        terms.reserve(table.records().size());
        for (const quint32 record : table.records())
            terms.push_back(make(reader(record, buffer).toString()));
        std::vector<quint32> places = table.records();
        if (!makingCounts)
            state.ResumeTiming();
        std::ranges::stable_sort(places, [&](quint32 a, quint32 b) { return less(terms[a], terms[b]); });
        benchmark::DoNotOptimize(places.data());
        state.PauseTiming();
        terms = {};
        state.ResumeTiming();
    }
}

void sortStrings(State &state, const MadeTable &table)
{
    stableSort(
        state,
        table,
        "Person",
        false,
        [](const QString &text) { return text; },
        [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
}

void sortReadyKeys(State &state, const MadeTable &table)
{
    stableSort(
        state,
        table,
        "Person",
        false,
        [](const QString &text) { return text::comparisonKey(text, Qt::CaseInsensitive); },
        std::less<std::string>());
}

void sortCollationKeys(State &state, const MadeTable &table)
{
    QCollator collator(QLocale(QStringLiteral("en_US")));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    stableSort(
        state,
        table,
        "Person",
        true,
        [&](const QString &text) { return collator.sortKey(text); },
        [](const QCollatorSortKey &a, const QCollatorSortKey &b) { return a < b; });
}

void sortReadyNumbers(State &state, const MadeTable &table)
{
    const text::NumberReader reader{QLocale(QStringLiteral("en_US"))};
    stableSort(
        state,
        table,
        "Amount",
        false,
        [&](const QString &text) { return reader.readLeniently(text); },
        std::less<double>());
}

void selectContaining(State &state, const MadeTable &table, const char *needle)
{
    SubsetSortCriteriaData criteria;
    criteria.setSelectAllRecords(false);
    criteria.setWherePopup1(static_cast<qint64>(SelectionOperator::Contains));
    criteria.setBasedOnPopup1(static_cast<qint64>(SelectionBasis::FreeformText));
    criteria.setWhereField1(QString::fromUtf8(needle));
    RecordMatcher matcher(criteria, table, {});
    for ([[maybe_unused]] auto _ : state) {
        qint64 selected = 0;
        for (const quint32 record : table.records())
            selected += matcher.matches(record) ? 1 : 0;
        benchmark::DoNotOptimize(selected);
    }
}

/// Touches every byte, as little as one can.
quint64 sumOfWords(QByteArrayView bytes)
{
    quint64 sum = 0;
    for (qsizetype at = 0; at + 8 <= bytes.size(); at += 8) {
        quint64 word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof(word));
        sum += word;
    }
    return sum;
}

void lookAtTexts(State &state, const MadeTable &table)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(sumOfWords(table.bytesOfTexts()));
}

struct SortJob
{
    const char *name;
    void (*run)(State &state, const MadeTable &table);
    std::vector<const char *> against; ///< Jobs whose times it is divided by.
};

const std::vector<SortJob> jobs{
    {"strings", sortStrings, {}},
    {"ready-keys", sortReadyKeys, {}},
    {"collator", sortCollationKeys, {}},
    {"ready-numbers", sortReadyNumbers, {}},
    {"look", lookAtTexts, {}},
    {"text",
     [](State &s, const MadeTable &t) { sortBy(s, t, SortKind::Text, "Person"); },
     {"strings", "ready-keys", "collator"}},
    {"numbers",
     [](State &s, const MadeTable &t) { sortBy(s, t, SortKind::Numbers, "Amount"); },
     {"ready-numbers"}},
    {"created", [](State &s, const MadeTable &t) { sortBy(s, t, SortKind::CreatedDate, "Person"); }, {}},
    {"freeform", [](State &s, const MadeTable &t) { sortBy(s, t, SortKind::FreeformText, "Person"); }, {}},
    {"names", [](State &s, const MadeTable &t) { sortBy(s, t, SortKind::FreeformName, "Person"); }, {}},
    {"select", [](State &s, const MadeTable &t) { selectContaining(s, t, "straka quinine"); }, {"look"}},
    {"select-é", [](State &s, const MadeTable &t) { selectContaining(s, t, "é"); }, {"look"}},
};

/// Prints what Google Benchmark prints, and keeps the medians.
class Reporter : public benchmark::ConsoleReporter
{
public:
    std::map<std::string, double> medians;

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    std::vector<quint32> counts{100'000, 1'000'000};
    if (argc > 1) {
        counts.clear();
        std::transform(argv + 1, argv + argc, std::back_inserter(counts), [](const char *count) {
            return static_cast<quint32>(std::strtoul(count, nullptr, 10));
        });
    }
    Reporter reporter;
    for (const quint32 count : counts) {
        const MadeTable table(count);
        const std::string rows = '/' + std::to_string(count);
        benchmark::ClearRegisteredBenchmarks();
        for (const SortJob &job : jobs) {
            benchmark::RegisterBenchmark((job.name + rows).c_str(),
                                         [&](State &state) { job.run(state, table); })
                ->Repetitions(3)
                ->Iterations(std::max(1U, 1'000'000 / count))
                ->ReportAggregatesOnly()
                ->Unit(benchmark::kMillisecond);
        }
        benchmark::RunSpecifiedBenchmarks(&reporter);
        for (const SortJob &job : jobs) {
            for (const char *other : job.against) {
                const double ratio = reporter.medians[job.name + rows] / reporter.medians[other + rows];
                std::printf("%s%s: %.3g x %s\n", job.name, rows.c_str(), ratio, other);
            }
        }
    }
    benchmark::Shutdown();
    return 0;
}
