// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"
#include "base/SharedProgress.h"
#include "editor/LongWork.h"

#include <QObject>
#include <QTimer>

#include <deque>
#include <memory>

class QWidget;

namespace tavrin {

class WorkPanel;

/// Does work on another thread, one piece after the other, and shows a panel while one takes longer.
class WidgetWorkHost : public QObject, public WorkHost
{
    Q_OBJECT

public:
    /// `window`: the one that the work belongs to, and that it keeps busy; null for none. It outlives the
    /// host.
    explicit WidgetWorkHost(QWidget *window);
    ~WidgetWorkHost() override;

    void begin(std::unique_ptr<LongWork> work) override;

private:
    void beginNext();
    void endCurrent();
    void cancel();
    void updatePanel();

    QWidget *g_window;
    std::deque<std::unique_ptr<LongWork>> g_waiting;
    std::unique_ptr<LongWork> g_current;
    std::unique_ptr<SharedProgress> g_progress;
    std::unique_ptr<WorkPanel> g_panel;
    QTimer g_timer;
    BackgroundWork g_thread; ///< Goes first: it uses the work and its progress.
};

} // namespace tavrin
