// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"
#include "base/SharedProgress.h"
#include "editor/FormSheetController.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

namespace tavrin {

/// Shows a form what would come of it, while it is filled in. Each look is made on this thread and run on
/// another one; a newer one stops the work for an older one.
class FormPreview : public QObject
{
    Q_OBJECT

public:
    /// One look at what would be done.
    class Look
    {
    public:
        Look() = default;
        Look(const Look &) = delete;
        Look &operator=(const Look &) = delete;
        virtual ~Look() = default;

        virtual void run(Progress &progress) = 0;
        virtual FormSheetController::Preview preview() const = 0;
    };
    using MakeLook = std::function<std::shared_ptr<Look>()>;

    FormPreview(FormSheetController &form, const MakeLook &makeLook);
    ~FormPreview() override;

private:
    void begin();
    void ended();

    QPointer<FormSheetController> g_form;
    MakeLook g_makeLook;
    std::shared_ptr<Look> g_look; ///< The one under way.
    std::shared_ptr<SharedProgress> g_progress;
    bool g_isStale = false; ///< The form changed since it began.
    QTimer g_delay;
    BackgroundWork g_work;
};

} // namespace tavrin
