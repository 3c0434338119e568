// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SubsetSortedData.h"

#include <algorithm>
#include <utility>

namespace tavrin {

SubsetSortedData SubsetSortedData::catalogWithSortedArray(const plist::Array &array,
                                                          const DatafileRecordsData &records,
                                                          const SubsetSortCriteriaData &criteria,
                                                          SelectionOnOpening selection)
{
    SubsetSortedData catalog(records);
    catalog.g_criteria = criteria;
    catalog.g_entries.reserve(static_cast<size_t>(array.size()));
    for (const plist::Value &stored : array)
        catalog.g_entries.push_back(CatalogEntry::entryWithValue(stored));
    if (array.isEmpty())
        catalog.rebuildCatalog();
    if (selection == SelectionOnOpening::AllSelected)
        catalog.selectAll();
    else
        catalog.rebuildSelectedIdentifiers();
    return catalog;
}

const CatalogEntry *SubsetSortedData::objectAtIndex(qint64 index) const
{
    return isValidIndex(index) ? &g_entries[static_cast<size_t>(index)] : nullptr;
}

QString SubsetSortedData::identifierAtIndex(qint64 index) const
{
    const CatalogEntry *entry = objectAtIndex(index);
    return entry ? entry->identifier() : QString();
}

qint64 SubsetSortedData::indexOfIdentifier(const QString &identifier) const
{
    if (g_drift < 0 || g_searched > count())
        indexPositions();
    const auto position = g_positions.constFind(identifier);
    if (position == g_positions.cend())
        return NotFound;
    const qint64 first = std::max<qint64>(0, *position - g_drift);
    const qint64 last = std::min(count() - 1, *position + g_drift);
    g_searched += last - first;
    for (qint64 index = first; index <= last; ++index) {
        if (g_entries[static_cast<size_t>(index)].identifier() == identifier)
            return index;
    }
    return NotFound;
}

QStringList SubsetSortedData::identifiers() const
{
    QStringList identifiers;
    identifiers.reserve(count());
    for (const CatalogEntry &entry : g_entries) {
        if (!entry.isInert())
            identifiers.append(entry.identifier());
    }
    return identifiers;
}

plist::Array SubsetSortedData::sortedArray() const
{
    plist::Array array;
    array.reserve(count());
    for (const CatalogEntry &entry : g_entries)
        array.append(entry.value());
    return array;
}

bool SubsetSortedData::isSelectedIdentifier(const QString &identifier) const
{
    return indexOfSelectedIdentifier(identifier) != NotFound;
}

QString SubsetSortedData::selectedIdentifierAtIndex(qint64 index) const
{
    return isValidSelectedIndex(index) ? identifierAtIndex(g_selected[static_cast<size_t>(index)])
                                       : QString();
}

qint64 SubsetSortedData::indexOfSelectedIdentifier(const QString &identifier) const
{
    const qint64 position = indexOfIdentifier(identifier);
    if (position == NotFound)
        return NotFound;
    auto found = std::ranges::lower_bound(g_selected, position);
    if (found == g_selected.end() || *found != position) {
        if (!g_hasDuplicates)
            return NotFound;
        found = std::ranges::find(
            g_selected, identifier, [this](qint64 index) { return identifierAtIndex(index); });
    }
    return found == g_selected.end() ? NotFound : found - g_selected.begin();
}

QStringList SubsetSortedData::selectedIdentifiers() const
{
    QStringList identifiers;
    identifiers.reserve(countSelected());
    for (const qint64 index : g_selected)
        identifiers.append(identifierAtIndex(index));
    return identifiers;
}

void SubsetSortedData::rebuildSelectedIdentifiers()
{
    g_selected.clear();
    for (size_t i = 0; i < g_entries.size(); ++i) {
        if (g_entries[i].currentlySelected())
            g_selected.push_back(static_cast<qint64>(i));
    }
}

void SubsetSortedData::selectAll()
{
    g_criteria.resetSubsetCriteria();
    g_criteria.setAndSelect(false);
    g_criteria.setOrSelect(false);
    selectWhere([](const CatalogEntry &) { return true; });
}

bool SubsetSortedData::selectWhere(const std::function<bool(const CatalogEntry &)> &rule)
{
    std::vector<bool> selected;
    selected.reserve(g_entries.size());
    for (const CatalogEntry &entry : g_entries)
        selected.push_back(!entry.isInert() && rule(entry));
    for (size_t i = 0; i < g_entries.size(); ++i) {
        g_entries[i].setPreviouslySelected(g_entries[i].currentlySelected());
        g_entries[i].setCurrentlySelected(selected[i]);
    }
    rebuildSelectedIdentifiers();
    if (!g_selected.empty() || std::ranges::all_of(g_entries, &CatalogEntry::isInert))
        return true;
    if (g_selectionWouldBeEmpty)
        g_selectionWouldBeEmpty();
    return revertToPrevious();
}

bool SubsetSortedData::revertToPrevious()
{
    for (CatalogEntry &entry : g_entries) {
        const bool previous = entry.previouslySelected();
        entry.setPreviouslySelected(entry.currentlySelected());
        entry.setCurrentlySelected(previous);
    }
    rebuildSelectedIdentifiers();
    return !g_selected.empty() || std::ranges::all_of(g_entries, &CatalogEntry::isInert);
}

bool SubsetSortedData::switchToOmitted()
{
    const auto isOmitted = [](const CatalogEntry &entry) {
        return !entry.isInert() && !entry.currentlySelected();
    };
    if (std::ranges::none_of(g_entries, isOmitted))
        return false;
    for (CatalogEntry &entry : g_entries)
        entry.setCurrentlySelected(!entry.currentlySelected());
    rebuildSelectedIdentifiers();
    return true;
}

void SubsetSortedData::includeIdentifier(const QString &identifier, bool rebuild)
{
    setSelected(identifier, true, rebuild);
}

void SubsetSortedData::omitIdentifier(const QString &identifier, bool rebuild)
{
    setSelected(identifier, false, rebuild);
}

void SubsetSortedData::observeSelectionWouldBeEmptyErrorNotification(std::function<void()> receiver)
{
    g_selectionWouldBeEmpty = std::move(receiver);
}

void SubsetSortedData::insertIdentifier(const QString &identifier, const QString &afterIdentifier)
{
    const qint64 after = indexOfIdentifier(afterIdentifier);
    insertAt(after == NotFound ? count() : after + 1, identifier);
    rebuildSelectedIdentifiers();
}

void SubsetSortedData::insertIdentifierAtBeginning(const QString &identifier)
{
    insertAt(0, identifier);
    rebuildSelectedIdentifiers();
}

void SubsetSortedData::insertIdentifierAtEnd(const QString &identifier)
{
    insertAt(count(), identifier);
}

void SubsetSortedData::moveIdentifier(const QString &identifier, qint64 toIndex)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index == NotFound)
        return;
    const qint64 target = std::clamp<qint64>(toIndex, 0, count() - 1);
    const auto from = g_entries.begin() + index;
    const auto to = g_entries.begin() + target;
    if (index < target)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    g_positions.insert(identifier, target);
    if (g_hasDuplicates)
        forgetPositions();
    else
        shifted();
    rebuildSelectedIdentifiers();
}

void SubsetSortedData::deleteIdentifier(const QString &identifier)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index == NotFound)
        return;
    removeAt(index);
    rebuildSelectedIdentifiers();
}

void SubsetSortedData::deleteIdentifiers(const QSet<QString> &identifiers)
{
    std::erase_if(g_entries, [&identifiers](const CatalogEntry &entry) {
        return !entry.isInert() && identifiers.contains(entry.identifier());
    });
    forgetPositions();
    rebuildSelectedIdentifiers();
}

void SubsetSortedData::rebuildCatalog()
{
    g_entries.clear();
    g_entries.reserve(static_cast<size_t>(g_records->count()));
    g_records->forEach(
        [this](const QString &identifier, const RecordData &) { g_entries.emplace_back(identifier); });
    forgetPositions();
    rebuildSelectedIdentifiers();
}

void SubsetSortedData::insertAt(qint64 index, const QString &identifier)
{
    if (identifier.isEmpty())
        return;
    const bool atEnd = index == count();
    g_entries.insert(g_entries.begin() + index, CatalogEntry(identifier));
    if (g_drift < 0)
        return;
    if (g_positions.contains(identifier)) {
        forgetPositions();
        return;
    }
    g_positions.insert(identifier, index);
    if (!atEnd)
        shifted();
}

void SubsetSortedData::setSelected(const QString &identifier, bool selected, bool rebuild)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index != NotFound)
        g_entries[static_cast<size_t>(index)].setCurrentlySelected(selected);
    if (rebuild)
        rebuildSelectedIdentifiers();
}

void SubsetSortedData::removeAt(qint64 index)
{
    const auto entry = g_entries.begin() + index;
    g_positions.remove(entry->identifier());
    g_entries.erase(entry);
    if (g_hasDuplicates)
        forgetPositions();
    else
        shifted();
}

void SubsetSortedData::indexPositions() const
{
    g_positions.clear();
    g_positions.reserve(count());
    qsizetype identified = 0;
    // From the end, so that the first place of an identifier is the one that stays.
    for (qint64 index = count() - 1; index >= 0; --index) {
        const CatalogEntry &entry = g_entries[static_cast<size_t>(index)];
        if (entry.isInert())
            continue;
        g_positions.insert(entry.identifier(), index);
        ++identified;
    }
    g_hasDuplicates = g_positions.size() < identified;
    g_drift = 0;
    g_searched = 0;
}

// An insertion or a removal moves the entries behind it by one place each. Taking all positions anew would
// make each such edit of a large datafile slow, so a look-up searches the few places around instead, until
// the look-ups have searched as much as taking the positions anew would cost.
void SubsetSortedData::shifted()
{
    if (++g_drift > greatestDrift)
        forgetPositions();
}

} // namespace tavrin
