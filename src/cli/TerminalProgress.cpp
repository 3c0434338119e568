// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/TerminalProgress.h"

#include "cli/Arguments.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace tavrin {

namespace {

constexpr qint64 millisecondsBeforeBar = 400; // What is done by then needs none.
constexpr qint64 millisecondsBetween = 100;
constexpr int barLength = 40;

} // namespace

TerminalProgress::TerminalProgress(const Arguments &arguments)
    : g_isWanted(!arguments.has(QStringLiteral("--quiet")) && ::isatty(STDERR_FILENO) == 1)
{
    g_sinceBegin.start();
}

TerminalProgress::~TerminalProgress()
{
    clear();
}

void TerminalProgress::setDone(qint64 done, qint64 total)
{
    if (!g_isWanted || total <= 0)
        return;
    const std::scoped_lock lock(g_mutex);
    const qint64 now = g_sinceBegin.elapsed();
    if (done >= total) {
        clear();
        return;
    }
    if (now < millisecondsBeforeBar || now - g_shownAt < millisecondsBetween)
        return;
    g_shownAt = now;
    const double share = std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0);
    const int filled = static_cast<int>(share * barLength);
    const QByteArray bar = QByteArray(filled, '#') + QByteArray(barLength - filled, '.');
    std::fprintf(stderr, "\r[%s] %3d %%", bar.constData(), static_cast<int>(share * 100));
    std::fflush(stderr);
}

void TerminalProgress::clear()
{
    if (g_shownAt == 0)
        return;
    g_shownAt = 0;
    constexpr QByteArrayView eraseLine = "\r\033[K";
    std::fwrite(eraseLine.data(), 1, static_cast<size_t>(eraseLine.size()), stderr);
    std::fflush(stderr);
}

} // namespace tavrin
