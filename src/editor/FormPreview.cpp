// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FormPreview.h"

#include <chrono>

namespace tavrin {

FormPreview::FormPreview(FormSheetController &form, const MakeLook &makeLook)
    : g_form(&form)
    , g_makeLook(makeLook)
{
    using namespace std::chrono_literals;
    g_delay.setSingleShot(true);
    g_delay.setInterval(150ms);
    connect(&g_delay, &QTimer::timeout, this, &FormPreview::begin);
    connect(&form, &FormSheetController::edited, &g_delay, qOverload<>(&QTimer::start));
    begin();
}

FormPreview::~FormPreview()
{
    if (g_progress)
        g_progress->cancel();
}

void FormPreview::begin()
{
    if (!g_form)
        return;
    if (g_work.isRunning()) {
        g_isStale = true;
        g_progress->cancel();
        return;
    }
    g_isStale = false;
    if (!g_form->isAcceptable()) {
        g_form->setPreview({});
        return;
    }
    g_look = g_makeLook();
    g_progress = std::make_shared<SharedProgress>();
    g_work.begin([look = g_look, progress = g_progress] { look->run(*progress); }, [this] { ended(); });
}

void FormPreview::ended()
{
    if (g_isStale)
        begin();
    else if (g_form)
        g_form->setPreview(g_look->preview());
    // What it holds belongs to this thread.
    if (!g_work.isRunning())
        g_look.reset();
}

} // namespace tavrin
