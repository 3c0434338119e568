// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "document/ContentChange.h"

#include <QCoreApplication>
#include <QStringList>

#include <functional>
#include <vector>

namespace tavrin {

class DatafileDocument;

/// Deleting, reordering and locking the records of a document. Each is one step of the document's Undo, marks
/// it as changed, and announces what happened; what changes nothing is none of this.
class RecordOperations
{
    Q_DECLARE_TR_FUNCTIONS(RecordOperations)

public:
    /// The document outlives it.
    explicit RecordOperations(DatafileDocument &document) : g_document(document) {}

    /// Deletes the records that are there and gives their number. Refused when none would be left.
    Result<qint64> deleteRecords(const QStringList &identifiers);
    /// The same of all that are selected; all others are selected then. Whoever calls it writes a backup
    /// first: see DatafileBackups.
    Result<qint64> deleteAllSelected();

    /// Moves a record. False when it stands there already, or is not there; Refused while records are
    /// omitted, as nobody sees then where it goes.
    Result<bool> moveToFirst(const QString &identifier);
    Result<bool> moveToLast(const QString &identifier);
    Result<bool> moveAfter(const QString &identifier, const QString &afterIdentifier);

    /// Locks or unlocks every record, omitted ones too; each remembers whether it was.
    void setAllLocked(bool locked);
    /// Every record becomes locked or unlocked again as it remembers.
    void revertAllLocked();
    /// Locks or unlocks one; false when it was so already, or is not there.
    bool setLocked(const QString &identifier, bool locked);

private:
    /// What becomes of what a record has.
    using Locking = std::function<LockChange::Record(const LockChange::Record &present)>;

    Result<bool> move(const QString &identifier, qint64 index, const QString &name);
    Result<qint64> remove(const std::vector<quint32> &records, const QString &name);
    void lock(const QString &name, const Locking &locking);

    DatafileDocument &g_document;
};

} // namespace tavrin
