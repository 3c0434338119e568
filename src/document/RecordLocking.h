// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "document/ChangeWatch.h"
#include "document/ContentChange.h"
#include "document/StoredRecords.h"

#include <QCoreApplication>

namespace tavrin {

/// Locking or unlocking every record, omitted ones too, in three steps: it is made and ended on the
/// document's thread, and runs in between on any. Each record remembers whether it was locked.
class RecordLocking
{
    Q_DECLARE_TR_FUNCTIONS(RecordLocking)

public:
    enum class Kind {
        Lock,
        Unlock,
        Revert ///< Each becomes locked or unlocked again as it remembers.
    };

    RecordLocking(const DatafileDocument &document, Kind kind);

    /// What Undo calls it.
    QString name() const;
    /// Once.
    void run(Progress &progress);

    bool wasCancelled() const { return g_wasCancelled; }
    /// The document has changed since this was made: it is to be done anew.
    bool isStale() const { return g_watch.hasChanged(); }

    /// The change, to be made and remembered by the caller; null when all records stay as they are.
    std::unique_ptr<SteppedChange> takeChange();

private:
    LockChange::Record wanted(const LockChange::Record &present) const;

    Kind g_kind;
    ChangeWatch g_watch;
    StoredRecords g_stored;
    std::vector<quint32> g_records;
    std::vector<LockChange::Record> g_changed;
    bool g_wasCancelled = false;
};

} // namespace tavrin
