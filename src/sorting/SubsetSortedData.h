// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/NotFound.h"
#include "model/DatafileRecordsData.h"
#include "sorting/CatalogEntry.h"
#include "sorting/SubsetSortCriteriaData.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>
#include <vector>

namespace tavrin {

/// What opening a catalog does to its stored selection.
enum class SelectionOnOpening { AllSelected, AsStored };

/// The catalog of a datafile: the order of its records, and which of them are selected.
///
/// Selected positions count selected records only. The selected list follows every operation but those
/// that say that they leave it to the caller. Looking up an identifier is constant time, or O(log n) for
/// its selected position; now and then, after many changes of order, a look-up is O(n).
/// The records outlive it. A copy is independent, but announces to the same receiver.
class SubsetSortedData
{
public:
    /// An empty array is replaced by one entry for each record, in the order of the records.
    static SubsetSortedData catalogWithSortedArray(const plist::Array &array,
                                                   const DatafileRecordsData &records,
                                                   const SubsetSortCriteriaData &criteria,
                                                   SelectionOnOpening selection);

    // The catalog.

    qint64 count() const { return static_cast<qint64>(g_entries.size()); }
    bool isValidIndex(qint64 index) const { return index >= 0 && index < count(); }
    /// Null when the index is out of range; otherwise valid until the catalog changes.
    const CatalogEntry *objectAtIndex(qint64 index) const;
    /// Null when the index is out of range.
    QString identifierAtIndex(qint64 index) const;
    qint64 indexOfIdentifier(const QString &identifier) const;
    QStringList identifiers() const;
    /// What is stored, whole; value() of the entries gives it piece by piece.
    plist::Array sortedArray() const;

    const SubsetSortCriteriaData &criteria() const { return g_criteria; }
    void setCriteria(const SubsetSortCriteriaData &criteria) { g_criteria = criteria; }
    const DatafileRecordsData &records() const { return *g_records; }

    // The selected records.

    qint64 countSelected() const { return static_cast<qint64>(g_selected.size()); }
    bool isValidSelectedIndex(qint64 index) const { return index >= 0 && index < countSelected(); }
    bool isSelectedIdentifier(const QString &identifier) const;
    QString selectedIdentifierAtIndex(qint64 index) const;
    qint64 indexOfSelectedIdentifier(const QString &identifier) const;
    QStringList selectedIdentifiers() const;
    void rebuildSelectedIdentifiers();

    // Changing the selection.

    void selectAll();
    /// Gives every entry the state that the rule says, the rule seeing all of them as they were. A selection
    /// of nothing is announced and taken back. False when nothing is selected in the end.
    bool selectWhere(const std::function<bool(const CatalogEntry &)> &rule);
    /// Swaps the selection with the one before; a second time swaps back. False when that left nothing.
    bool revertToPrevious();
    /// Shows the omitted records instead. False, and no change, when there are none.
    bool switchToOmitted();
    /// With `rebuild` false the selected list is the caller's to rebuild, once for many.
    void includeIdentifier(const QString &identifier, bool rebuild);
    void omitIdentifier(const QString &identifier, bool rebuild);
    /// Receives the notification of that name.
    void observeSelectionWouldBeEmptyErrorNotification(std::function<void()> receiver);

    // Changing the catalog. New entries are selected.

    /// At the end when the other identifier is unknown.
    void insertIdentifier(const QString &identifier, const QString &afterIdentifier);
    void insertIdentifierAtBeginning(const QString &identifier);
    /// Leaves the selected list to the caller.
    void insertIdentifierAtEnd(const QString &identifier);
    /// The index counts without the moved entry; past the end means the end.
    void moveIdentifier(const QString &identifier, qint64 toIndex);
    void deleteIdentifier(const QString &identifier);
    /// In one pass.
    void deleteIdentifiers(const QSet<QString> &identifiers);
    /// One entry for each record, in the order of the records, all selected.
    void rebuildCatalog();

private:
    explicit SubsetSortedData(const DatafileRecordsData &records) : g_records(&records) {}

    void insertAt(qint64 index, const QString &identifier);
    void setSelected(const QString &identifier, bool selected, bool rebuild);
    void removeAt(qint64 index);
    void indexPositions() const;
    void shifted();
    void forgetPositions() { g_drift = -1; }

    static constexpr qint64 greatestDrift = 256;

    const DatafileRecordsData *g_records;
    SubsetSortCriteriaData g_criteria;
    std::vector<CatalogEntry> g_entries;
    std::vector<qint64> g_selected; ///< Positions in g_entries, ascending.
    std::function<void()> g_selectionWouldBeEmpty;
    /// Where each identifier stands, give or take g_drift places.
    mutable QHash<QString, qint64> g_positions;
    mutable qint64 g_drift = -1;   ///< How many places; -1 when the positions are to be taken anew.
    mutable qint64 g_searched = 0; ///< Places that look-ups searched since then.
    mutable bool g_hasDuplicates = false;
};

} // namespace tavrin
