// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordOperations.h"

#include "document/ContentChange.h"
#include "document/DatafileDocument.h"
#include "document/RecordChanges.h"
#include "model/RecordKey.h"

namespace tavrin {

namespace {

void done(DatafileDocument &document, std::unique_ptr<UndoStep> step)
{
    document.undoHistory().push(std::move(step));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

} // namespace

// Deleting.

Result<qint64> RecordOperations::deleteRecords(const QStringList &identifiers)
{
    const DatafileRecordsData &records = g_document.datafileRecords();
    std::vector<quint32> numbers;
    QSet<QString> seen;
    for (const QString &identifier : identifiers) {
        if (records.contains(identifier) && !seen.contains(identifier))
            numbers.push_back(records.identifiers().number(identifier));
        seen.insert(identifier);
    }
    return remove(numbers, numbers.size() == 1 ? tr("Delete Record") : tr("Delete Records"));
}

Result<qint64> RecordOperations::deleteAllSelected()
{
    const SubsetSortedData &catalog = g_document.datafileCatalog();
    std::vector<quint32> numbers = catalog.selectedNumbers(0, catalog.countSelected());
    std::erase_if(numbers,
                  [this](quint32 number) { return !g_document.datafileRecords().view(number).has_value(); });
    return remove(numbers, tr("Delete All Selected Records"));
}

Result<qint64> RecordOperations::remove(const std::vector<quint32> &records, const QString &name)
{
    if (records.empty())
        return 0;
    if (g_document.datafileRecords().count() <= static_cast<qsizetype>(records.size()))
        return Error{Error::Kind::Refused, tr("The last record of a datafile cannot be deleted."), {}};
    std::unique_ptr<PresenceChange> change = PresenceChange::removing(g_document, records, name);
    const auto count = static_cast<qint64>(change->countOut());
    done(g_document, std::move(change));
    return count;
}

// Reordering.

Result<bool> RecordOperations::moveToFirst(const QString &identifier)
{
    return move(identifier, 0, tr("Make First Record"));
}

Result<bool> RecordOperations::moveToLast(const QString &identifier)
{
    return move(identifier, g_document.datafileCatalog().count() - 1, tr("Make Last Record"));
}

Result<bool> RecordOperations::moveAfter(const QString &identifier, const QString &afterIdentifier)
{
    const SubsetSortedData &catalog = g_document.datafileCatalog();
    const qint64 index = catalog.indexOfIdentifier(identifier);
    const qint64 after = catalog.indexOfIdentifier(afterIdentifier);
    if (index == NotFound || after == NotFound || index == after)
        return false;
    return move(identifier, index < after ? after : after + 1, tr("Move Record"));
}

Result<bool> RecordOperations::move(const QString &identifier, qint64 index, const QString &name)
{
    SubsetSortedData &catalog = g_document.datafileCatalog();
    const qint64 present = catalog.indexOfIdentifier(identifier);
    if (catalog.countSelected() != catalog.count())
        return Error{
            Error::Kind::Refused, tr("Records can be moved only while all records are selected."), {}};
    if (present == NotFound || present == index)
        return false;
    catalog.moveIdentifier(identifier, index);
    g_document.announceCatalogChange();
    done(g_document,
         std::make_unique<MoveChange>(
             name, g_document.datafileRecords().identifiers().number(identifier), present));
    return true;
}

// Locking.

void RecordOperations::setAllLocked(bool locked)
{
    lock(locked ? tr("Lock All Records") : tr("Unlock All Records"),
         [locked](const LockChange::Record &record) {
             return LockChange::Record{record.number, locked, record.isLocked};
         });
}

void RecordOperations::revertAllLocked()
{
    lock(tr("Revert Locked State"), [](const LockChange::Record &record) {
        return LockChange::Record{record.number, record.wasLocked, record.wasLocked};
    });
}

void RecordOperations::lock(const QString &name, const Locking &locking)
{
    std::vector<LockChange::Record> changed;
    // No record is opened that stays as it is.
    g_document.datafileRecords().forEach([&](quint32 number, const RecordView &record) {
        const LockChange::Record present{
            number, record.recordLocked(), record.value(RecordKey::wasLocked).toBool()};
        const LockChange::Record wanted = locking(present);
        if (wanted != present)
            changed.push_back(wanted);
    });
    if (changed.empty())
        return;
    auto change = std::make_unique<LockChange>(name, std::move(changed));
    change->exchange(g_document);
    done(g_document, std::move(change));
}

bool RecordOperations::setLocked(const QString &identifier, bool locked)
{
    const std::optional<RecordView> record = g_document.datafileRecords().view(identifier);
    if (!record || record->recordLocked() == locked)
        return false;
    const quint32 number = g_document.datafileRecords().identifiers().number(identifier);
    auto change = std::make_unique<LockChange>(locked ? tr("Lock Record") : tr("Unlock Record"),
                                               std::vector<LockChange::Record>{{number, locked, !locked}});
    change->exchange(g_document);
    done(g_document, std::move(change));
    return true;
}

} // namespace tavrin
