// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/NotFound.h"
#include "model/DatafileRecordsData.h"
#include "sorting/CatalogForms.h"
#include "sorting/CatalogOrder.h"
#include "sorting/RecordSelection.h"
#include "sorting/RecordSort.h"
#include "sorting/SubsetSortCriteriaData.h"

#include <QSet>
#include <QStringList>

#include <functional>
#include <span>
#include <vector>

namespace tavrin {

/// What opening a catalog does to its stored selection.
enum class SelectionOnOpening { AllSelected, AsStored };

/// What a catalog holds at one moment. It can be read on another thread while the catalog changes.
struct CatalogSnapshot
{
    CatalogForms forms;
    CatalogOrder order;
};

/// An entry, and where it stood.
struct PlacedEntry
{
    qint64 index;
    CatalogEntry entry;
};

/// The catalog of a datafile: the order of its records, and which of them are selected.
///
/// Selected positions count selected records only. What is done to one entry takes microseconds, however many
/// there are. The records outlive it. A copy is independent, but announces to the same receiver.
class SubsetSortedData
{
public:
    /// An empty array is replaced by one entry for each record, in the order of the records.
    static SubsetSortedData catalogWithSortedArray(const plist::Array &array,
                                                   const DatafileRecordsData &records,
                                                   const SubsetSortCriteriaData &criteria,
                                                   SelectionOnOpening selection);

    /// The same of entries that were read already; there are none, too, when the file has no catalog.
    static SubsetSortedData catalogWithEntries(CatalogForms forms,
                                               std::vector<CatalogEntry> entries,
                                               const DatafileRecordsData &records,
                                               const SubsetSortCriteriaData &criteria,
                                               SelectionOnOpening selection);

    // The catalog.

    qint64 count() const { return g_order.count(); }
    bool isValidIndex(qint64 index) const { return index >= 0 && index < count(); }
    /// Null when the index is out of range; otherwise valid until the catalog changes.
    const CatalogEntry *objectAtIndex(qint64 index) const;
    /// Null when the index is out of range.
    QString identifierAtIndex(qint64 index) const;
    qint64 indexOfIdentifier(const QString &identifier) const;
    QStringList identifiers() const;
    std::vector<CatalogEntry> entries() const;
    /// What is stored, whole.
    plist::Array sortedArray() const;
    /// What is stored, for a look at it on another thread: identifiers are then taken from that table.
    CatalogSnapshot snapshot(std::shared_ptr<IdentifierTable> identifiers) const;
    /// What sorting and selecting go over, on whatever thread.
    CatalogRecords catalogRecords() const;

    const SubsetSortCriteriaData &criteria() const { return g_criteria; }
    void setCriteria(const SubsetSortCriteriaData &criteria) { g_criteria = criteria; }
    const DatafileRecordsData &records() const { return *g_records; }

    // The selected records.

    qint64 countSelected() const { return g_order.countSelected(); }
    bool isValidSelectedIndex(qint64 index) const { return index >= 0 && index < countSelected(); }
    bool isSelectedIdentifier(const QString &identifier) const;
    QString selectedIdentifierAtIndex(qint64 index) const;
    qint64 indexOfSelectedIdentifier(const QString &identifier) const;
    QStringList selectedIdentifiers() const;
    /// The numbers of the identifiers of so many selected records from a valid index on, or of as many as
    /// there are.
    std::vector<quint32> selectedNumbers(qint64 from, qint64 most) const;

    // Changing the selection.

    void selectAll();
    /// Stores the criteria, gives each entry the state of its place, and remembers the one it had. A
    /// selection of nothing is announced and taken back: false.
    bool setSelection(const SubsetSortCriteriaData &criteria, const std::vector<bool> &states);
    /// The same of the records that meet the criteria; see selectionByCriteria(). Cancelled.
    Result<bool> selectWithCriteria(const SubsetSortCriteriaData &criteria,
                                    bool fromOmitted,
                                    const RecordTexts &texts,
                                    const SelectionSettings &settings,
                                    Progress &progress);
    /// Gives each entry the state of its place; false, and no change, when that would select nothing.
    bool setFindSelection(const std::vector<bool> &states);
    /// Swaps the selection with the one before; a second time swaps back. False when that left nothing.
    bool revertToPrevious();
    /// Shows the omitted records instead. False, and no change, when there are none.
    bool switchToOmitted();
    void includeIdentifier(const QString &identifier) { setSelected(identifier, true); }
    void omitIdentifier(const QString &identifier) { setSelected(identifier, false); }
    /// Receives the notification of that name.
    void observeSelectionWouldBeEmptyErrorNotification(std::function<void()> receiver);

    // Changing the catalog. New entries are selected.

    /// At the end when the other identifier is unknown.
    void insertIdentifier(const QString &identifier, const QString &afterIdentifier);
    void insertIdentifierAtBeginning(const QString &identifier);
    void insertIdentifierAtEnd(const QString &identifier);
    /// The same for many, by number, in one pass.
    void insertNumbersAtEnd(std::span<const quint32> numbers);
    /// The index counts without the moved entry; past the end means the end.
    void moveIdentifier(const QString &identifier, qint64 toIndex);
    void deleteIdentifier(const QString &identifier);
    /// In one pass.
    void deleteIdentifiers(const QSet<QString> &identifiers);
    /// Takes out the entries of those identifiers, by number. In catalog order, with their indexes of before.
    std::vector<PlacedEntry> takeEntries(std::span<const quint32> identifiers);
    /// Puts entries back that were taken so; past the end means the end.
    void putBackEntries(std::span<const PlacedEntry> entries);
    /// One entry for each record, in the order of the records, all selected.
    void rebuildCatalog();
    /// The same, giving back what was there before, for popCatalog() to put back.
    CatalogSnapshot pushCatalog();
    void popCatalog(CatalogSnapshot catalog);

    // The order.

    /// Sorts all entries, omitted ones too, as criteria() say. On failure they stay as they are; the place is
    /// an index.
    tl::expected<void, SortFailure>
    sort(const RecordTexts &texts, const SortSettings &settings, Progress &progress);
    /// Makes the entry at places[0] the first, and so on; each place is there once.
    void arrange(std::span<const quint32> places);
    /// Puts the entries in the order of those, with the flags that they have now. Entries that are not among
    /// those go to the end.
    void restoreOrder(const std::vector<CatalogEntry> &entries);

private:
    SubsetSortedData(const DatafileRecordsData &records, CatalogForms forms)
        : g_records(&records)
        , g_forms(std::move(forms))
    {}

    void insertAt(qint64 index, const QString &identifier);
    void setSelected(const QString &identifier, bool selected);
    void setStates(const std::vector<bool> &states);
    bool hasOnlyInertEntries() const;

    const DatafileRecordsData *g_records;
    SubsetSortCriteriaData g_criteria;
    CatalogForms g_forms;
    CatalogOrder g_order;
    std::function<void()> g_selectionWouldBeEmpty;
};

} // namespace tavrin
