// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>
#include <thread>

namespace tavrin {

/// Work on a thread of its own, one piece at a time, whose end is told on the thread of this object.
///
/// What the work uses must outlive this object, or belong to the work. The destructor waits for work under
/// way, and then tells nobody.
class BackgroundWork : public QObject
{
    Q_OBJECT

public:
    BackgroundWork();
    ~BackgroundWork() override;

    /// Until `ended` is called.
    bool isRunning() const { return g_isRunning; }

    /// Runs `work` elsewhere, then `ended` here: from the event loop, or from wait(). What `work` holds goes
    /// on its own thread. Not while other work is running.
    void begin(std::function<void()> work, std::function<void()> ended);

    /// Blocks until the work that is under way, if any, has ended and that was told.
    void wait();

private:
    void join();

    std::thread g_thread;
    std::function<void()> g_ended;
    bool g_isRunning = false;
    quint64 g_number = 0; ///< Of the work begun last.
};

} // namespace tavrin
