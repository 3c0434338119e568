// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/Parallel.h"

#include <algorithm>
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
    for (int part = 1; part < parts; ++part)
        threads.emplace_back([&work, part] { work(part); });
    work(0);
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace tavrin
