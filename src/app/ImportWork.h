// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/LongWork.h"
#include "io/ImportChange.h"
#include "io/RecordUpdating.h"
#include "io/TableImport.h"

#include <QLocale>

#include <functional>

namespace tavrin {

/// What a part of an import is called, and what it counts.
struct ImportJob
{
    enum class Counts { Things, Rows, Bytes };

    QString title;
    Counts counts = Counts::Things;
};

/// A part of an import that is done on another thread: what is done, and what comes of it.
template <typename Outcome>
class ImportWork : public LongWork
{
public:
    using Job = std::function<Outcome(Progress &progress)>;

    ImportWork(ImportJob what, Outcome unfinished, Job job)
        : g_what(std::move(what))
        , g_job(std::move(job))
        , g_outcome(std::move(unfinished))
    {}

    QString title() const override { return g_what.title; }
    QString doneText(qint64 done, qint64 total) const override
    {
        switch (g_what.counts) {
        case ImportJob::Counts::Rows:
            // Of how many nobody knows before they are read.
            return done > 0 ? LongWork::tr("Rows: %1").arg(QLocale().toString(done)) : QString();
        case ImportJob::Counts::Bytes:
            return doneTextOfBytes(done, total);
        case ImportJob::Counts::Things:
            break;
        }
        return LongWork::doneText(done, total);
    }
    void run(Progress &progress) override { g_outcome = g_job(progress); }
    Outcome takeOutcome() { return std::move(g_outcome); }

private:
    ImportJob g_what;
    Job g_job;
    Outcome g_outcome;
};

} // namespace tavrin
