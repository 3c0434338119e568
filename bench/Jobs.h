// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <benchmark/benchmark.h>

#include <initializer_list>

namespace tavrin::bench {

/// Something to be timed with a file: its name in the report, and its loop.
struct Job
{
    const char *name;
    void (*run)(benchmark::State &state, const QString &path);
};

/// Times every job with every file that the command line names, a few rounds each, so that a median says
/// something; small files are gone through several times a round. Takes Google Benchmark's options too.
/// The exit status of the program.
int runJobs(int argc, char **argv, std::initializer_list<Job> jobs);

} // namespace tavrin::bench
