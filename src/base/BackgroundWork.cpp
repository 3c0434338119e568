// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/BackgroundWork.h"

#include "base/InternalInconsistency.h"

#include <memory>
#include <system_error>
#include <utility>

namespace tavrin {

BackgroundWork::BackgroundWork() = default;

BackgroundWork::~BackgroundWork()
{
    join();
}

void BackgroundWork::begin(std::function<void()> work, std::function<void()> ended)
{
    if (isRunning())
        throw InternalInconsistency("BackgroundWork: begun while other work is running");
    g_ended = std::move(ended);
    const auto tell = [this, number = ++g_number] {
        // wait() may have told this end before, and other work may be running by now.
        if (number == g_number)
            wait();
    };
    const auto shared = std::make_shared<std::function<void()>>(std::move(work));
    const auto run = [this, shared, tell] {
        std::exchange(*shared, nullptr)();
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    };
    // Not a QThread: the thread sanitizer does not see that one of those was waited for.
    try {
        g_thread = std::thread(run);
    } catch (const std::system_error &) {
        // The system has no more threads to give: the work is done here.
        run();
    }
    g_isRunning = true;
}

void BackgroundWork::wait()
{
    if (!isRunning())
        return;
    join();
    g_isRunning = false;
    std::exchange(g_ended, nullptr)();
}

void BackgroundWork::join()
{
    if (g_thread.joinable())
        g_thread.join();
}

} // namespace tavrin
