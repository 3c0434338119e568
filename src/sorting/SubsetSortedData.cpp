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
    CatalogForms forms(records.sharedIdentifiers());
    std::vector<CatalogEntry> entries;
    entries.reserve(static_cast<size_t>(array.size()));
    for (const plist::Value &stored : array)
        entries.push_back(forms.entryWithValue(stored));
    return catalogWithEntries(std::move(forms), std::move(entries), records, criteria, selection);
}

SubsetSortedData SubsetSortedData::catalogWithEntries(CatalogForms forms,
                                                      std::vector<CatalogEntry> entries,
                                                      const DatafileRecordsData &records,
                                                      const SubsetSortCriteriaData &criteria,
                                                      SelectionOnOpening selection)
{
    SubsetSortedData catalog(records, std::move(forms));
    catalog.g_criteria = criteria;
    catalog.g_order.assign(std::move(entries));
    if (catalog.count() == 0)
        catalog.rebuildCatalog();
    if (selection == SelectionOnOpening::AllSelected)
        catalog.selectAll();
    return catalog;
}

const CatalogEntry *SubsetSortedData::objectAtIndex(qint64 index) const
{
    return isValidIndex(index) ? &g_order.at(index) : nullptr;
}

QString SubsetSortedData::identifierAtIndex(qint64 index) const
{
    const CatalogEntry *entry = objectAtIndex(index);
    return entry && !entry->isInert() ? g_forms.identifiers().text(entry->identifier()) : QString();
}

qint64 SubsetSortedData::indexOfIdentifier(const QString &identifier) const
{
    return g_order.indexOf(g_forms.identifiers().number(identifier));
}

QStringList SubsetSortedData::identifiers() const
{
    QStringList identifiers;
    identifiers.reserve(count());
    g_order.forEach([&](const CatalogEntry &entry) {
        if (!entry.isInert())
            identifiers.append(g_forms.identifiers().text(entry.identifier()));
    });
    return identifiers;
}

plist::Array SubsetSortedData::sortedArray() const
{
    plist::Array array;
    array.reserve(count());
    g_order.forEach([&](const CatalogEntry &entry) { array.append(g_forms.valueOf(entry)); });
    return array;
}

CatalogSnapshot SubsetSortedData::snapshot(std::shared_ptr<IdentifierTable> identifiers) const
{
    CatalogSnapshot snapshot{g_forms, g_order};
    snapshot.forms.setIdentifiers(std::move(identifiers));
    return snapshot;
}

bool SubsetSortedData::isSelectedIdentifier(const QString &identifier) const
{
    return indexOfSelectedIdentifier(identifier) != NotFound;
}

QString SubsetSortedData::selectedIdentifierAtIndex(qint64 index) const
{
    return isValidSelectedIndex(index) ? identifierAtIndex(g_order.indexOfSelectedPlace(index)) : QString();
}

qint64 SubsetSortedData::indexOfSelectedIdentifier(const QString &identifier) const
{
    const qint64 index = g_order.indexOfSelected(g_forms.identifiers().number(identifier));
    return index == NotFound ? NotFound : g_order.selectedBefore(index);
}

QStringList SubsetSortedData::selectedIdentifiers() const
{
    QStringList identifiers;
    identifiers.reserve(countSelected());
    g_order.forEach([&](const CatalogEntry &entry) {
        if (entry.currentlySelected())
            identifiers.append(g_forms.identifiers().text(entry.identifier()));
    });
    return identifiers;
}

std::vector<quint32> SubsetSortedData::selectedNumbers(qint64 from, qint64 most) const
{
    const auto wanted = static_cast<size_t>(std::min(most, countSelected() - from));
    std::vector<quint32> numbers;
    numbers.reserve(wanted);
    g_order.visitFrom(g_order.indexOfSelectedPlace(from), [&](const CatalogEntry &entry) {
        if (entry.currentlySelected())
            numbers.push_back(entry.identifier());
        return numbers.size() < wanted;
    });
    return numbers;
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
    // All are judged before any is changed.
    std::vector<bool> selected;
    selected.reserve(static_cast<size_t>(count()));
    g_order.forEach([&](const CatalogEntry &entry) { selected.push_back(!entry.isInert() && rule(entry)); });
    size_t place = 0;
    g_order.changeEach([&](CatalogEntry &entry) {
        g_forms.setPreviouslySelected(entry, entry.currentlySelected());
        g_forms.setCurrentlySelected(entry, selected[place++]);
    });
    if (countSelected() > 0 || hasOnlyInertEntries())
        return true;
    if (g_selectionWouldBeEmpty)
        g_selectionWouldBeEmpty();
    return revertToPrevious();
}

bool SubsetSortedData::hasOnlyInertEntries() const
{
    bool onlyInert = true;
    g_order.forEach([&onlyInert](const CatalogEntry &entry) { onlyInert = onlyInert && entry.isInert(); });
    return onlyInert;
}

bool SubsetSortedData::revertToPrevious()
{
    g_order.changeEach([this](CatalogEntry &entry) {
        const bool previous = entry.previouslySelected();
        g_forms.setPreviouslySelected(entry, entry.currentlySelected());
        g_forms.setCurrentlySelected(entry, previous);
    });
    return countSelected() > 0 || hasOnlyInertEntries();
}

bool SubsetSortedData::switchToOmitted()
{
    bool someAreOmitted = false;
    g_order.forEach([&](const CatalogEntry &entry) {
        someAreOmitted = someAreOmitted || (!entry.isInert() && !entry.currentlySelected());
    });
    if (!someAreOmitted)
        return false;
    g_order.changeEach(
        [this](CatalogEntry &entry) { g_forms.setCurrentlySelected(entry, !entry.currentlySelected()); });
    return true;
}

void SubsetSortedData::observeSelectionWouldBeEmptyErrorNotification(std::function<void()> receiver)
{
    g_selectionWouldBeEmpty = std::move(receiver);
}

void SubsetSortedData::insertIdentifier(const QString &identifier, const QString &afterIdentifier)
{
    const qint64 after = indexOfIdentifier(afterIdentifier);
    insertAt(after == NotFound ? count() : after + 1, identifier);
}

void SubsetSortedData::insertIdentifierAtBeginning(const QString &identifier)
{
    insertAt(0, identifier);
}

void SubsetSortedData::insertIdentifierAtEnd(const QString &identifier)
{
    insertAt(count(), identifier);
}

void SubsetSortedData::insertAt(qint64 index, const QString &identifier)
{
    if (!identifier.isEmpty())
        g_order.insert(index, CatalogEntry(g_forms.identifiers().add(identifier)));
}

void SubsetSortedData::moveIdentifier(const QString &identifier, qint64 toIndex)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index == NotFound)
        return;
    const CatalogEntry entry = g_order.remove(index);
    g_order.insert(std::clamp<qint64>(toIndex, 0, count()), entry);
}

void SubsetSortedData::deleteIdentifier(const QString &identifier)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index != NotFound)
        g_order.remove(index);
}

void SubsetSortedData::deleteIdentifiers(const QSet<QString> &identifiers)
{
    QSet<quint32> numbers;
    for (const QString &identifier : identifiers)
        numbers.insert(g_forms.identifiers().number(identifier));
    g_order.removeWhere(
        [&](const CatalogEntry &entry) { return !entry.isInert() && numbers.contains(entry.identifier()); });
}

void SubsetSortedData::rebuildCatalog()
{
    std::vector<CatalogEntry> entries;
    entries.reserve(static_cast<size_t>(g_records->count()));
    g_records->forEach([&](quint32 identifier, const RecordView &) { entries.emplace_back(identifier); });
    g_order.assign(std::move(entries));
}

void SubsetSortedData::setSelected(const QString &identifier, bool selected)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index != NotFound)
        g_order.changeAt(index, [&](CatalogEntry &entry) { g_forms.setCurrentlySelected(entry, selected); });
}

} // namespace tavrin
