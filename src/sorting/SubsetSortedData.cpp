// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/SubsetSortedData.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// Where entries stood once. Each entry takes its rank, so that two of one record take different ones.
class EntryRanks
{
public:
    static constexpr quint32 none = 0xffffffff;

    EntryRanks(const std::vector<CatalogEntry> &entries, quint32 identifierCount)
        : g_identifierCount(identifierCount)
        , g_nextRanks(entries.size(), none)
    {
        for (size_t rank = entries.size(); rank-- > 0;) {
            const size_t name = nameOf(entries[rank]);
            if (name >= g_ranks.size())
                g_ranks.resize(std::max<size_t>(name + 1, identifierCount), none);
            g_nextRanks[rank] = std::exchange(g_ranks[name], static_cast<quint32>(rank));
        }
    }

    quint32 take(const CatalogEntry &entry)
    {
        const size_t name = nameOf(entry);
        const quint32 rank = name < g_ranks.size() ? g_ranks[name] : none;
        if (rank != none)
            g_ranks[name] = g_nextRanks[rank];
        return rank;
    }

private:
    /// Inert entries have no identifier, but each has a form of its own.
    size_t nameOf(const CatalogEntry &entry) const
    {
        return entry.isInert() ? size_t(g_identifierCount) + entry.form() : entry.identifier();
    }

    quint32 g_identifierCount;
    std::vector<quint32> g_ranks;
    std::vector<quint32> g_nextRanks; ///< By rank: that of the next entry of the same name.
};

} // namespace

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

std::vector<CatalogEntry> SubsetSortedData::entries() const
{
    std::vector<CatalogEntry> entries;
    entries.reserve(static_cast<size_t>(count()));
    g_order.forEach([&](const CatalogEntry &entry) { entries.push_back(entry); });
    return entries;
}

CatalogRecords SubsetSortedData::catalogRecords() const
{
    CatalogRecords catalog{entries(), {}};
    catalog.records.reserve(catalog.entries.size());
    for (const CatalogEntry &entry : catalog.entries) {
        const bool isRecord = g_records->view(entry.identifier()).has_value();
        catalog.records.push_back(isRecord ? entry.identifier() : RecordTexts::noRecord);
    }
    return catalog;
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
    SubsetSortCriteriaData everything = g_criteria;
    everything.selectEverything();
    setSelection(everything, std::vector<bool>(static_cast<size_t>(count()), true));
}

bool SubsetSortedData::setSelection(const SubsetSortCriteriaData &criteria, const std::vector<bool> &states)
{
    g_criteria = criteria;
    setStates(states);
    if (countSelected() > 0 || hasOnlyInertEntries())
        return true;
    if (g_selectionWouldBeEmpty)
        g_selectionWouldBeEmpty();
    revertToPrevious();
    return false;
}

void SubsetSortedData::setStates(const std::vector<bool> &states)
{
    size_t place = 0;
    g_order.changeEach([&](CatalogEntry &entry) {
        g_forms.setPreviouslySelected(entry, entry.currentlySelected());
        g_forms.setCurrentlySelected(entry, states[place++]);
    });
}

Result<bool> SubsetSortedData::selectWithCriteria(const SubsetSortCriteriaData &criteria,
                                                  bool fromOmitted,
                                                  const RecordTexts &texts,
                                                  const SelectionSettings &settings,
                                                  Progress &progress)
{
    const auto states =
        selectionByCriteria(catalogRecords(), criteria, fromOmitted, texts, settings, progress);
    if (!states)
        return states.error();
    return setSelection(criteria, *states);
}

bool SubsetSortedData::setFindSelection(const std::vector<bool> &states)
{
    const bool isAnySelected = std::ranges::find(states, true) != states.end();
    if (isAnySelected)
        setStates(states);
    return isAnySelected;
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

void SubsetSortedData::insertNumbersAtEnd(std::span<const quint32> numbers)
{
    std::vector<CatalogEntry> all;
    all.reserve(static_cast<size_t>(count()) + numbers.size());
    g_order.forEach([&](const CatalogEntry &entry) { all.push_back(entry); });
    for (const quint32 number : numbers)
        all.emplace_back(number);
    g_order.assign(std::move(all));
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

std::vector<PlacedEntry> SubsetSortedData::takeEntries(std::span<const quint32> identifiers)
{
    std::vector<PlacedEntry> taken;
    constexpr size_t few = 16;
    if (identifiers.size() <= few) {
        for (const quint32 identifier : identifiers) {
            if (const qint64 index = g_order.indexOf(identifier); index != NotFound)
                taken.push_back({index, g_order.at(index)});
        }
        std::ranges::sort(taken, {}, &PlacedEntry::index);
        for (auto last = taken.rbegin(); last != taken.rend(); ++last)
            g_order.remove(last->index);
        return taken;
    }
    std::vector<bool> isGone(g_forms.identifiers().count());
    for (const quint32 identifier : identifiers)
        isGone[identifier] = true;
    qint64 index = 0;
    g_order.removeWhere([&](const CatalogEntry &entry) {
        const bool gone = !entry.isInert() && isGone[entry.identifier()];
        if (gone)
            taken.push_back({index, entry});
        ++index;
        return gone;
    });
    return taken;
}

void SubsetSortedData::putBackEntries(std::span<const PlacedEntry> entries)
{
    constexpr size_t few = 16;
    if (entries.size() <= few) {
        for (const PlacedEntry &placed : entries)
            g_order.insert(std::min(placed.index, count()), placed.entry);
        return;
    }
    std::vector<CatalogEntry> all;
    all.reserve(static_cast<size_t>(count()) + entries.size());
    auto next = entries.begin();
    g_order.forEach([&](const CatalogEntry &entry) {
        for (; next != entries.end() && next->index <= static_cast<qint64>(all.size()); ++next)
            all.push_back(next->entry);
        all.push_back(entry);
    });
    for (; next != entries.end(); ++next)
        all.push_back(next->entry);
    g_order.assign(std::move(all));
}

void SubsetSortedData::rebuildCatalog()
{
    std::vector<CatalogEntry> entries;
    entries.reserve(static_cast<size_t>(g_records->count()));
    g_records->forEach([&](quint32 identifier, const RecordView &) { entries.emplace_back(identifier); });
    g_order.assign(std::move(entries));
}

CatalogSnapshot SubsetSortedData::pushCatalog()
{
    CatalogSnapshot pushed{g_forms, g_order};
    rebuildCatalog();
    return pushed;
}

void SubsetSortedData::popCatalog(CatalogSnapshot catalog)
{
    g_forms = std::move(catalog.forms);
    g_order = std::move(catalog.order);
}

tl::expected<void, SortFailure>
SubsetSortedData::sort(const RecordTexts &texts, const SortSettings &settings, Progress &progress)
{
    const auto places = sortedRecords(catalogRecords().records, g_criteria, texts, settings, progress);
    if (!places)
        return tl::unexpected(places.error());
    arrange(*places);
    return {};
}

void SubsetSortedData::arrange(std::span<const quint32> places)
{
    const std::vector<CatalogEntry> entries = this->entries();
    std::vector<CatalogEntry> arranged;
    arranged.reserve(places.size());
    for (const quint32 place : places)
        arranged.push_back(entries[place]);
    g_order.assign(std::move(arranged));
}

void SubsetSortedData::restoreOrder(const std::vector<CatalogEntry> &entries)
{
    EntryRanks ranks(entries, g_forms.identifiers().count());
    const std::vector<CatalogEntry> present = this->entries();
    std::vector<const CatalogEntry *> ranked(entries.size());
    std::vector<CatalogEntry> added;
    for (const CatalogEntry &entry : present) {
        const quint32 rank = ranks.take(entry);
        if (rank == EntryRanks::none)
            added.push_back(entry);
        else
            ranked[rank] = &entry;
    }
    std::vector<CatalogEntry> restored;
    restored.reserve(present.size());
    for (const CatalogEntry *entry : ranked) {
        if (entry)
            restored.push_back(*entry);
    }
    restored.insert(restored.end(), added.begin(), added.end());
    g_order.assign(std::move(restored));
}

void SubsetSortedData::setSelected(const QString &identifier, bool selected)
{
    const qint64 index = indexOfIdentifier(identifier);
    if (index != NotFound)
        g_order.changeAt(index, [&](CatalogEntry &entry) { g_forms.setCurrentlySelected(entry, selected); });
}

} // namespace tavrin
