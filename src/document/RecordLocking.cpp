// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordLocking.h"

#include "model/RecordKey.h"
#include "sorting/WorkSteps.h"

#include <utility>

namespace tavrin {

RecordLocking::RecordLocking(const DatafileDocument &document, Kind kind)
    : g_kind(kind)
    , g_watch(document)
    , g_stored(document.datafileRecords())
{
    document.datafileRecords().forEach(
        [this](quint32 record, const RecordView &) { g_records.push_back(record); });
}

QString RecordLocking::name() const
{
    switch (g_kind) {
    case Kind::Lock:
        return tr("Lock All Records");
    case Kind::Unlock:
        return tr("Unlock All Records");
    case Kind::Revert:
        break;
    }
    return tr("Revert Locked State");
}

LockChange::Record RecordLocking::wanted(const LockChange::Record &present) const
{
    if (g_kind == Kind::Revert)
        return {present.number, present.wasLocked, present.wasLocked};
    return {present.number, g_kind == Kind::Lock, present.isLocked};
}

void RecordLocking::run(Progress &progress)
{
    WorkSteps steps(progress, g_records.size());
    for (const quint32 number : g_records) {
        if (!steps.goOn())
            break;
        // No record is opened that stays as it is.
        const RecordView record = *g_stored.view(number);
        const LockChange::Record present{
            number, record.recordLocked(), record.value(RecordKey::wasLocked).toBool()};
        if (const LockChange::Record change = wanted(present); change != present)
            g_changed.push_back(change);
    }
    g_wasCancelled = steps.isStopped();
}

std::unique_ptr<SteppedChange> RecordLocking::takeChange()
{
    if (g_wasCancelled || g_changed.empty())
        return nullptr;
    return std::make_unique<LockChange>(name(), std::exchange(g_changed, {}));
}

} // namespace tavrin
