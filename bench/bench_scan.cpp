// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-scan FILE...: gigabytes a second of looking at every byte, in ways that find the same.

#include "Jobs.h"
#include "MappedFile.h"
#include "plist/ByteScan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

using namespace tavrin;

/// Maps the file before the clock starts: what is measured is the scan, not the operating system.
template <typename Scan>
void run(benchmark::State &state, const QString &path)
{
    const bench::MappedFile file(path);
    benchmark::DoNotOptimize(bench::sumOfWords(file.bytes()));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(Scan{}(file.bytes()));
    state.SetBytesProcessed(state.iterations() * file.bytes().size());
}

struct FindNothing
{
    const void *operator()(QByteArrayView bytes) const
    {
        return std::memchr(bytes.data(), '\1', static_cast<std::size_t>(bytes.size()));
    }
};

struct JumpToMarkup
{
    qsizetype operator()(QByteArrayView bytes) const { return bench::countOfMarkup(bytes); }
};

constexpr qsizetype blocksAtOnce = 256;

/// Calls `visit` with the place and the masks of every block.
template <typename Visit>
void classifyAll(QByteArrayView bytes, const Visit &visit)
{
    std::array<plist::ByteMasks, blocksAtOnce> masks{};
    const qsizetype blocks = bytes.size() / 64;
    for (qsizetype block = 0; block < blocks; block += blocksAtOnce) {
        const qsizetype count = std::min(blocksAtOnce, blocks - block);
        plist::classify(bytes.data() + block * 64, count, masks.data());
        for (qsizetype i = 0; i < count; ++i)
            visit((block + i) * 64, masks[static_cast<std::size_t>(i)]);
    }
}

struct Classify
{
    quint64 operator()(QByteArrayView bytes) const
    {
        quint64 sum = 0;
        classifyAll(bytes, [&sum](qsizetype, const plist::ByteMasks &masks) { sum ^= masks.markup; });
        return sum;
    }
};

/// Goes to every tag too, as a reader would.
struct ClassifyMarkup
{
    qsizetype operator()(QByteArrayView bytes) const
    {
        qsizetype sum = 0;
        classifyAll(bytes, [&sum](qsizetype place, const plist::ByteMasks &masks) {
            for (quint64 bits = masks.markup; bits != 0; bits &= bits - 1)
                sum += place + std::countr_zero(bits);
        });
        return sum;
    }
};

struct Validate
{
    bool operator()(QByteArrayView bytes) const { return plist::isValidUtf8(bytes); }
};

struct ValidateByQt
{
    bool operator()(QByteArrayView bytes) const { return bytes.isValidUtf8(); }
};

} // namespace

int main(int argc, char **argv)
{
    return bench::runJobs(argc,
                          argv,
                          {{"memchr, nothing found", run<FindNothing>},
                           {"memchr, tag to tag", run<JumpToMarkup>},
                           {"classify", run<Classify>},
                           {"classify, tag to tag", run<ClassifyMarkup>},
                           {"valid UTF-8", run<Validate>},
                           {"valid UTF-8, by Qt", run<ValidateByQt>}});
}
