// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordChanges.h"

#include "document/DatafileDocument.h"

#include <ranges>
#include <utility>

namespace tavrin {

namespace {

std::vector<bool> selectionOf(const SubsetSortedData &catalog)
{
    std::vector<bool> states;
    for (const CatalogEntry &entry : catalog.entries())
        states.push_back(entry.currentlySelected());
    return states;
}

} // namespace

std::unique_ptr<PresenceChange>
PresenceChange::removing(DatafileDocument &document, std::span<const quint32> records, const QString &name)
{
    std::unique_ptr<PresenceChange> change(new PresenceChange(name));
    change->g_numbers.assign(records.begin(), records.end());
    change->exchange(document);
    return change;
}

std::unique_ptr<PresenceChange>
PresenceChange::added(quint32 record, const QString &name, std::optional<NumberCount> numberCount)
{
    std::unique_ptr<PresenceChange> change(new PresenceChange(name));
    change->g_numbers.push_back(record);
    change->g_numberCount = numberCount;
    return change;
}

std::unique_ptr<PresenceChange> PresenceChange::added(std::vector<quint32> records, const QString &name)
{
    std::unique_ptr<PresenceChange> change(new PresenceChange(name));
    change->g_numbers = std::move(records);
    return change;
}

void PresenceChange::exchange(DatafileDocument &document)
{
    if (std::exchange(g_areIn, !g_areIn))
        takeOut(document);
    else
        putBack(document);
}

void PresenceChange::takeOut(DatafileDocument &document)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    DatafileRecordsData &records = document.datafileRecords();
    // Records may have gone otherwise since; the last one of a datafile stays.
    if (records.count() <= static_cast<qsizetype>(g_numbers.size()))
        return;
    for (const quint32 number : std::views::reverse(g_numbers)) {
        const QString identifier = records.identifiers().text(number);
        document.announce(RecordWillBeDeleted{identifier});
        Q_EMIT document.willDeleteRecord(identifier);
    }
    g_entries = catalog.takeEntries(g_numbers);
    g_records.reserve(g_numbers.size());
    for (const quint32 number : g_numbers) {
        if (auto taken = records.take(number))
            g_records.push_back(std::move(*taken));
    }
    if (g_numberCount)
        count(document, g_numberCount->after, g_numberCount->before);
    if (catalog.countSelected() == 0) {
        g_selection = selectionOf(catalog);
        catalog.selectAll();
    }
    if (g_numbers.size() > 1) {
        document.announceCatalogChange();
        return;
    }
    const QString identifier = records.identifiers().text(g_numbers.front());
    document.announce(RecordDeleted{identifier});
    Q_EMIT document.didDeleteRecord(identifier);
}

void PresenceChange::putBack(DatafileDocument &document)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    DatafileRecordsData &records = document.datafileRecords();
    // What is selected is given back only to the same records.
    if (g_selection.size() == static_cast<size_t>(catalog.count()) && !g_selection.empty()) {
        catalog.putBackEntries(g_entries);
        std::vector<bool> states;
        for (const CatalogEntry &entry : catalog.entries())
            states.push_back(entry.currentlySelected());
        auto out = g_entries.begin();
        size_t other = 0;
        for (size_t index = 0; index < states.size(); ++index) {
            const bool wasOut = out != g_entries.end() && out->index == static_cast<qint64>(index);
            if (wasOut)
                ++out;
            else
                states[index] = g_selection[other++];
        }
        catalog.setFindSelection(states);
    } else {
        catalog.putBackEntries(g_entries);
    }
    g_selection.clear();
    for (QVKeyedCollectionData::Taken &record : g_records)
        records.putBack(std::move(record));
    if (g_numberCount)
        count(document, g_numberCount->before, g_numberCount->after);
    const size_t back = g_records.size();
    const qint64 index = g_entries.empty() ? 0 : g_entries.front().index;
    g_records.clear();
    g_entries.clear();
    if (back != 1) {
        document.announceCatalogChange();
        return;
    }
    const QString identifier = records.identifiers().text(g_numbers.front());
    const QString after = catalog.identifierAtIndex(index - 1);
    document.announce(RecordAdded{identifier, after});
    Q_EMIT document.didAddRecord(identifier, after);
}

/// The count goes on from where somebody else brought it meanwhile.
void PresenceChange::count(DatafileDocument &document, qint64 from, qint64 to) const
{
    DatafileSettingsData &settings = document.datafileSettings();
    if (settings.lastAutoAddInteger() != from)
        return;
    settings.setLastAutoAddInteger(to);
    settings.setDatafileSettingsDidChange(true);
}

void MoveChange::undo(DatafileDocument &document)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    const QString identifier = document.datafileRecords().identifiers().text(g_record);
    const qint64 index = catalog.indexOfIdentifier(identifier);
    if (index == NotFound)
        return;
    catalog.moveIdentifier(identifier, std::exchange(g_otherIndex, index));
    document.announceCatalogChange();
}

} // namespace tavrin
