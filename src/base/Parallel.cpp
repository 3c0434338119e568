// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/Parallel.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace tavrin {

int parallelParts()
{
    constexpr int most = 8; // Memory is the limit long before.
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, most);
}

void inParallel(int parts, const std::function<void(int)> &work)
{
    std::vector<std::thread> threads;
    int begun = 1;
    try {
        for (; begun < parts; ++begun)
            threads.emplace_back([&work, part = begun] { work(part); });
    } catch (const std::system_error &) {
        // The system has no more threads to give: the rest is done here.
    }
    work(0);
    for (int part = begun; part < parts; ++part)
        work(part);
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace tavrin
