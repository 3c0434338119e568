// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ChangeWork.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

#include <algorithm>

namespace tavrin {

ChangeWork::ChangeWork(DatafileDocument &document,
                       std::shared_ptr<SteppedChange> change,
                       size_t made,
                       Way way)
    : g_document(document)
    , g_change(std::move(change))
    , g_made(made)
    , g_way(way)
{}

QString ChangeWork::title() const
{
    return g_way == Way::Back ? tr("Going back to what was…") : g_change->name() + u'…';
}

void ChangeWork::run(Progress &progress)
{
    const size_t parts = std::max<size_t>(1, g_way == Way::Back ? g_made : g_change->partCount());
    while (!isDone()) {
        if (g_way == Way::On && progress.isCancelled() && g_made <= g_change->reversiblePartCount())
            return;
        if (!doSomeThere(progress))
            return;
        const size_t done = g_way == Way::Back ? parts - g_made : g_made;
        progress.setDone(static_cast<qint64>(done), static_cast<qint64>(parts));
    }
}

/// For some milliseconds, on the thread of the records.
void ChangeWork::doSome()
{
    constexpr qint64 longest = 15;
    constexpr size_t atOnce = 64;
    QElapsedTimer timer;
    timer.start();
    while (!isDone() && timer.elapsed() < longest) {
        if (g_way == Way::Back) {
            const size_t left = g_made - std::min(atOnce, g_made);
            g_change->unmakeParts(g_document, left, g_made);
            g_made = left;
        } else {
            const size_t next = std::min(g_made + atOnce, g_change->partCount());
            g_change->makeParts(g_document, g_made, next);
            g_made = next;
        }
    }
}

/// False when it was cancelled and nobody came to do it: whoever waits there for the end of this thread, as a
/// host that goes does, never would.
bool ChangeWork::doSomeThere(const Progress &progress)
{
    if (QThread::currentThread() == thread()) {
        doSome();
        return true;
    }
    const auto done = std::make_shared<QSemaphore>();
    QMetaObject::invokeMethod(
        this,
        [this, done] {
            doSome();
            done->release();
        },
        Qt::QueuedConnection);
    constexpr int patienceMilliseconds = 100;
    while (!done->tryAcquire(1, patienceMilliseconds)) {
        if (progress.isCancelled())
            return false;
    }
    return true;
}

} // namespace tavrin
