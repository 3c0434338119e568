// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordOperations.h"

#include "document/ContentChange.h"
#include "document/DatafileDocument.h"
#include "document/RecordChanges.h"
#include "document/RecordLocking.h"

namespace tavrin {

namespace {

void done(DatafileDocument &document, std::unique_ptr<UndoStep> step)
{
    document.undoHistory().push(std::move(step));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

void lockAll(DatafileDocument &document, RecordLocking::Kind kind)
{
    RecordLocking locking(document, kind);
    Progress progress;
    locking.run(progress);
    std::unique_ptr<SteppedChange> change = locking.takeChange();
    if (!change)
        return;
    change->exchange(document);
    done(document, std::move(change));
}

Result<std::unique_ptr<SteppedChange>>
deletion(const DatafileDocument &document, std::vector<quint32> records, const QString &name)
{
    if (records.empty())
        return std::unique_ptr<SteppedChange>();
    if (document.datafileRecords().count() <= static_cast<qsizetype>(records.size()))
        return Error{Error::Kind::Refused,
                     RecordOperations::tr("The last record of a datafile cannot be deleted."),
                     {}};
    return PresenceChange::toRemove(std::move(records), name);
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
    const bool isOne = numbers.size() == 1;
    return remove(std::move(numbers), isOne ? tr("Delete Record") : tr("Delete Records"));
}

Result<qint64> RecordOperations::deleteAllSelected()
{
    return remove(selectedRecords(), tr("Delete All Selected Records"));
}

std::vector<quint32> RecordOperations::selectedRecords() const
{
    const SubsetSortedData &catalog = g_document.datafileCatalog();
    std::vector<quint32> numbers = catalog.selectedNumbers(0, catalog.countSelected());
    std::erase_if(numbers,
                  [this](quint32 number) { return !g_document.datafileRecords().view(number).has_value(); });
    return numbers;
}

Result<std::unique_ptr<SteppedChange>> RecordOperations::deletionOf(std::vector<quint32> records) const
{
    std::erase_if(records,
                  [this](quint32 number) { return !g_document.datafileRecords().view(number).has_value(); });
    return deletion(g_document, std::move(records), tr("Delete All Selected Records"));
}

Result<qint64> RecordOperations::remove(std::vector<quint32> records, const QString &name)
{
    const auto count = static_cast<qint64>(records.size());
    Result<std::unique_ptr<SteppedChange>> change = deletion(g_document, std::move(records), name);
    if (!change)
        return change.error();
    if (!*change)
        return 0;
    (*change)->exchange(g_document);
    done(g_document, *std::move(change));
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
    lockAll(g_document, locked ? RecordLocking::Kind::Lock : RecordLocking::Kind::Unlock);
}

void RecordOperations::revertAllLocked()
{
    lockAll(g_document, RecordLocking::Kind::Revert);
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
