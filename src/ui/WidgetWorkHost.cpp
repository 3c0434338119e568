// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WidgetWorkHost.h"

#include "ui/WorkPanel.h"

#include <utility>

namespace tavrin {

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 300ms; // before the panel is shown
constexpr auto lookAgain = 100ms;

} // namespace

WidgetWorkHost::WidgetWorkHost(QWidget *window) : g_window(window)
{
    connect(&g_timer, &QTimer::timeout, this, &WidgetWorkHost::updatePanel);
}

WidgetWorkHost::~WidgetWorkHost()
{
    if (g_current)
        cancel();
}

void WidgetWorkHost::begin(std::unique_ptr<LongWork> work)
{
    g_waiting.push_back(std::move(work));
    if (!g_current)
        beginNext();
}

void WidgetWorkHost::beginNext()
{
    if (g_current || g_waiting.empty())
        return;
    g_current = std::move(g_waiting.front());
    g_waiting.pop_front();
    g_progress = std::make_unique<SharedProgress>();
    g_timer.start(patience);
    g_thread.begin([work = g_current.get(), progress = g_progress.get()] { work->run(*progress); },
                   [this] { endCurrent(); });
}

void WidgetWorkHost::updatePanel()
{
    if (!g_panel) {
        g_panel = std::make_unique<WorkPanel>(g_current->title(), g_window);
        connect(g_panel.get(), &QDialog::rejected, this, &WidgetWorkHost::cancel);
        g_panel->show();
        g_timer.start(lookAgain);
    }
    g_panel->setFraction(g_progress->fraction());
    g_panel->setDoneText(g_current->doneText(g_progress->done(), g_progress->total()));
}

/// The panel goes at once. The work has ended when it has noticed.
void WidgetWorkHost::cancel()
{
    g_progress->cancel();
    g_timer.stop();
    if (g_panel)
        g_panel->hide();
}

void WidgetWorkHost::endCurrent()
{
    g_timer.stop();
    g_panel.reset();
    LongWork *ended = g_current.release();
    Q_EMIT ended->ended();
    // Whoever heard of it may still be at it.
    ended->deleteLater();
    beginNext();
}

} // namespace tavrin
