// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/BackgroundWork.h"

#include "base/InternalInconsistency.h"

#include <QThread>

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
    g_thread.reset(QThread::create([work = std::move(work)]() mutable { std::exchange(work, nullptr)(); }));
    const auto tell = [this, number = ++g_number] {
        // wait() may have told this end before, and other work may be running by now.
        if (number == g_number)
            wait();
    };
    connect(g_thread.get(), &QThread::finished, this, tell, Qt::QueuedConnection);
    g_thread->start();
}

void BackgroundWork::wait()
{
    if (!isRunning())
        return;
    join();
    std::exchange(g_ended, nullptr)();
}

void BackgroundWork::join()
{
    if (!g_thread)
        return;
    g_thread->wait();
    g_thread.reset();
}

} // namespace tavrin
