// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "Measure.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>

namespace tavrin::bench {
namespace {

double secondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double median(std::vector<Seconds> times, double Seconds::*clock)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end(), [clock](const Seconds &left, const Seconds &right) {
        return left.*clock < right.*clock;
    });
    return (*middle).*clock;
}

} // namespace

Seconds Seconds::sinceStart()
{
    return {secondsOf(CLOCK_PROCESS_CPUTIME_ID), secondsOf(CLOCK_MONOTONIC)};
}

Memory Memory::now()
{
    Memory memory;
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "RssAnon:")
            status >> memory.anonymous;
        else if (word == "VmHWM:")
            status >> memory.peak;
    }
    return {memory.anonymous * 1024, memory.peak * 1024};
}

bool isMapped(const std::string &path)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.ends_with(path))
            return true;
    }
    return false;
}

bool timeInTurn(int rounds, const std::vector<Work> &works)
{
    std::vector<std::vector<Seconds>> times(works.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < works.size(); ++index) {
            const Work &work = works[index];
            const bool prepared = work.prepare();
            const Seconds start = Seconds::sinceStart();
            if (!prepared || !work.run()) {
                std::fprintf(stderr, "%s: failed\n", work.name);
                return false;
            }
            times[index].push_back(Seconds::sinceStart() - start);
        }
    }
    for (std::size_t index = 0; index < works.size(); ++index)
        std::printf("%s %.9f %.9f\n",
                    works[index].name,
                    median(times[index], &Seconds::processor),
                    median(times[index], &Seconds::elapsed));
    return true;
}

bool writeAndRename(const std::string &path, std::string_view bytes)
{
    const std::string temporary = path + ".part";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    bool written = file >= 0;
    while (written && !bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        written = count > 0;
        if (written)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    written = written && ::fsync(file) == 0;
    if (file >= 0)
        ::close(file);
    return written && std::rename(temporary.c_str(), path.c_str()) == 0;
}

void printMemory(const std::string &path, double fileSize, const Memory &before)
{
    const Memory after = Memory::now();
    const double bytesHeld = isMapped(path) ? 0 : fileSize;
    const double own = after.anonymous - before.anonymous - bytesHeld;
    std::printf("memory %.4f %.0f\n", own / fileSize, after.peak);
}

} // namespace tavrin::bench
