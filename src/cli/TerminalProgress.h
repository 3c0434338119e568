// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"

#include <QElapsedTimer>

#include <mutex>

namespace tavrin {

class Arguments;

/// Shows how far long work is, as a bar on standard error: only where that is a terminal, and without
/// --quiet. The bar is gone when the work is done.
class TerminalProgress : public Progress
{
public:
    explicit TerminalProgress(const Arguments &arguments);
    ~TerminalProgress() override;

    void setDone(qint64 done, qint64 total) override;

private:
    void clear();

    std::mutex g_mutex; ///< Work may tell from several threads.
    QElapsedTimer g_sinceBegin;
    qint64 g_shownAt = 0; ///< In milliseconds since it began; 0 while no bar is shown.
    bool g_isWanted;
};

} // namespace tavrin
