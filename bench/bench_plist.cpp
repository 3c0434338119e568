// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-plist FILE...: seconds for reading and writing property lists, and for what no reader or
// writer can do without.

#include "Jobs.h"
#include "MappedFile.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

#include <cstring>
#include <memory>

namespace {

using namespace tavrin;
using bench::MappedFile;

void touchBytes(benchmark::State &state, const QString &path)
{
    for ([[maybe_unused]] auto _ : state) {
        const MappedFile file(path);
        benchmark::DoNotOptimize(bench::sumOfWords(file.bytes()));
    }
}

void findMarkup(benchmark::State &state, const QString &path)
{
    for ([[maybe_unused]] auto _ : state) {
        const MappedFile file(path);
        benchmark::DoNotOptimize(bench::countOfMarkup(file.bytes()));
    }
}

/// Mapping the file counts, letting go of the tree does not: a program does that when it closes.
void readPlist(benchmark::State &state, const QString &path)
{
    for ([[maybe_unused]] auto _ : state) {
        const MappedFile file(path);
        auto list = plist::read(file.bytes());
        state.PauseTiming();
        if (!list) {
            state.SkipWithError("the file is no property list");
            break;
        }
        list = Error{};
        state.ResumeTiming();
    }
}

void copyBytes(benchmark::State &state, const QString &path)
{
    const MappedFile file(path);
    const auto size = static_cast<std::size_t>(file.bytes().size());
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<char[]> copy(new char[size]);
        std::memcpy(copy.get(), file.bytes().data(), size);
        benchmark::DoNotOptimize(copy.get());
    }
}

void writePlist(benchmark::State &state, const QString &path)
{
    const MappedFile file(path);
    const auto list = plist::read(file.bytes());
    if (!list) {
        state.SkipWithError("the file is no property list");
        return;
    }
    for ([[maybe_unused]] auto _ : state) {
        QByteArray written;
        written.reserve(file.bytes().size());
        plist::writeXml(list->root, [&written](QByteArrayView piece) {
            written.append(piece);
            return true;
        });
        benchmark::DoNotOptimize(written.data());
    }
}

} // namespace

int main(int argc, char **argv)
{
    return bench::runJobs(argc,
                          argv,
                          {{"touch", touchBytes},
                           {"scan", findMarkup},
                           {"copy", copyBytes},
                           {"read", readPlist},
                           {"write", writePlist}});
}
