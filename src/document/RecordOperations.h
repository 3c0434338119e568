// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "document/SteppedChange.h"

#include <QCoreApplication>
#include <QStringList>

#include <memory>
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
    /// The numbers of all selected records that are there.
    std::vector<quint32> selectedRecords() const;
    /// The change that deletes those of them that are still there, to be made and remembered by the caller;
    /// null when there are none. Refused when no record would be left.
    Result<std::unique_ptr<SteppedChange>> deletionOf(std::vector<quint32> records) const;

    /// Moves a record. False when it stands there already, or is not there; Refused while records are
    /// omitted, as nobody sees then where it goes.
    Result<bool> moveToFirst(const QString &identifier);
    Result<bool> moveToLast(const QString &identifier);
    Result<bool> moveAfter(const QString &identifier, const QString &afterIdentifier);

    /// See RecordLocking.
    void setAllLocked(bool locked);
    void revertAllLocked();
    /// Locks or unlocks one; false when it was so already, or is not there.
    bool setLocked(const QString &identifier, bool locked);

private:
    Result<bool> move(const QString &identifier, qint64 index, const QString &name);
    Result<qint64> remove(std::vector<quint32> records, const QString &name);

    DatafileDocument &g_document;
};

} // namespace tavrin
