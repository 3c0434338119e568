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
PresenceChange::removing(DatafileDocument &document, std::vector<quint32> records, const QString &name)
{
    std::unique_ptr<PresenceChange> change = toRemove(std::move(records), name);
    change->exchange(document);
    return change;
}

std::unique_ptr<PresenceChange>
PresenceChange::added(quint32 record, const QString &name, const NumberCount &numberCount)
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

void PresenceChange::begin(DatafileDocument &document)
{
    // Records may have gone otherwise since; the last one of a datafile stays.
    g_staysIn = g_areIn && document.datafileRecords().count() <= static_cast<qsizetype>(g_numbers.size());
    g_records.resize(g_numbers.size());
}

void PresenceChange::makeParts(DatafileDocument &document, size_t from, size_t to)
{
    if (g_staysIn)
        return;
    const size_t half = g_numbers.size();
    for (size_t part = from; part < to; ++part) {
        if (g_areIn && part < half)
            announceDeletion(document, g_numbers[half - 1 - part]); // The last one first.
        else if (g_areIn)
            takeOut(document, part - half);
        else if (part < half)
            putBack(document, part);
    }
}

/// What was announced stays so: nobody shows the record any more.
void PresenceChange::unmakeParts(DatafileDocument &document, size_t from, size_t to)
{
    if (g_staysIn)
        return;
    const size_t half = g_numbers.size();
    for (size_t part = from; part < to; ++part) {
        if (g_areIn && part >= half)
            putBack(document, part - half);
        else if (!g_areIn && part < half)
            takeOut(document, part);
    }
}

void PresenceChange::conclude(DatafileDocument &document)
{
    const bool wereIn = std::exchange(g_areIn, !g_areIn);
    if (g_staysIn)
        return;
    if (wereIn)
        didTakeOut(document);
    else
        didPutBack(document);
}

void PresenceChange::announceDeletion(DatafileDocument &document, quint32 number) const
{
    const QString identifier = document.datafileRecords().identifiers().text(number);
    document.announce(RecordWillBeDeleted{identifier});
    Q_EMIT document.willDeleteRecord(identifier);
}

void PresenceChange::takeOut(DatafileDocument &document, size_t index)
{
    g_records[index] = document.datafileRecords().take(g_numbers[index]);
    g_countOut += g_records[index] ? 1 : 0;
}

void PresenceChange::putBack(DatafileDocument &document, size_t index)
{
    if (!g_records[index])
        return;
    document.datafileRecords().putBack(*std::move(g_records[index]));
    g_records[index].reset();
    --g_countOut;
}

void PresenceChange::didTakeOut(DatafileDocument &document)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    g_entries = catalog.takeEntries(g_numbers);
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
    const QString identifier = document.datafileRecords().identifiers().text(g_numbers.front());
    document.announce(RecordDeleted{identifier});
    Q_EMIT document.didDeleteRecord(identifier);
}

void PresenceChange::didPutBack(DatafileDocument &document)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    putBackEntries(catalog);
    if (g_numberCount)
        count(document, g_numberCount->before, g_numberCount->after);
    const qint64 index = g_entries.empty() ? 0 : g_entries.front().index;
    g_selection.clear();
    g_entries.clear();
    if (g_numbers.size() != 1) {
        document.announceCatalogChange();
        return;
    }
    const QString identifier = document.datafileRecords().identifiers().text(g_numbers.front());
    const QString after = catalog.identifierAtIndex(index - 1);
    document.announce(RecordAdded{identifier, after});
    Q_EMIT document.didAddRecord(identifier, after);
}

void PresenceChange::putBackEntries(SubsetSortedData &catalog) const
{
    // What is selected is given back only to the same records.
    const bool hasOthers = g_selection.empty() || g_selection.size() != static_cast<size_t>(catalog.count());
    catalog.putBackEntries(g_entries);
    if (hasOthers)
        return;
    std::vector<bool> states = selectionOf(catalog);
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
