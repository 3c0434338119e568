// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "Jobs.h"

#include <QFileInfo>

#include <algorithm>
#include <string>

namespace tavrin::bench {
namespace {

constexpr int rounds = 5;
constexpr qint64 bytesPerRound = 64 << 20;
constexpr qint64 mostPerRound = 50;

void registerJob(const Job &job, const QString &path)
{
    const QFileInfo file(path);
    const std::string name = std::string(job.name) + '/' + file.fileName().toStdString();
    const auto loop = [path, run = job.run](benchmark::State &state) { run(state, path); };
    benchmark::RegisterBenchmark(name.c_str(), loop)
        ->Iterations(std::clamp<qint64>(bytesPerRound / std::max<qint64>(1, file.size()), 1, mostPerRound))
        ->Repetitions(rounds)
        ->ReportAggregatesOnly()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int runJobs(int argc, char **argv, std::initializer_list<Job> jobs)
{
    benchmark::Initialize(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        for (const Job &job : jobs)
            registerJob(job, QString::fromLocal8Bit(argv[i]));
    }
    const bool ran = benchmark::RunSpecifiedBenchmarks() > 0;
    benchmark::Shutdown();
    return ran ? 0 : 1;
}

} // namespace tavrin::bench
