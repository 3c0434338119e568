// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/LongWork.h"
#include "io/ImportChange.h"
#include "io/RecordUpdating.h"
#include "io/TableImport.h"

#include <functional>

namespace tavrin {

/// A part of an import that is done on another thread: what is done, and what comes of it.
template <typename Outcome>
class ImportWork : public LongWork
{
public:
    using Job = std::function<Outcome(Progress &progress)>;

    ImportWork(QString title, Outcome unfinished, Job job)
        : g_title(std::move(title))
        , g_job(std::move(job))
        , g_outcome(std::move(unfinished))
    {}

    QString title() const override { return g_title; }
    void run(Progress &progress) override { g_outcome = g_job(progress); }
    Outcome takeOutcome() { return std::move(g_outcome); }

private:
    QString g_title;
    Job g_job;
    Outcome g_outcome;
};

} // namespace tavrin
