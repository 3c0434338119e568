// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/SteppedChange.h"
#include "model/DatafileRecordsData.h"
#include "sorting/SubsetSortedData.h"

#include <optional>
#include <span>
#include <vector>

namespace tavrin {

/// Records that came into a datafile or went out of it. A record that comes back has its identifier, its
/// place and its content.
///
/// On the way out, the first half of the parts announces each record that goes, as the window that shows it
/// has to know, and the other half takes them out. That the catalog changed is announced once. All records
/// are selected when no selected one is left.
class PresenceChange : public SteppedChange
{
public:
    /// What the count of automatic numbers was before and after a record was added.
    struct NumberCount
    {
        qint64 before;
        qint64 after;
    };

    /// Of records that are still to be taken out, given by number.
    static std::unique_ptr<PresenceChange> toRemove(std::vector<quint32> records, const QString &name)
    {
        return added(std::move(records), name);
    }
    /// Takes them out.
    static std::unique_ptr<PresenceChange>
    removing(DatafileDocument &document, std::vector<quint32> records, const QString &name);

    /// Of a record that was just added.
    static std::unique_ptr<PresenceChange>
    added(quint32 record, const QString &name, const NumberCount &numberCount);

    /// Of records that were just added.
    static std::unique_ptr<PresenceChange> added(std::vector<quint32> records, const QString &name);

    QString name() const override { return g_name; }
    size_t partCount() const override { return 2 * g_numbers.size(); }
    void begin(DatafileDocument &document) override;
    void makeParts(DatafileDocument &document, size_t from, size_t to) override;
    void unmakeParts(DatafileDocument &document, size_t from, size_t to) override;
    void conclude(DatafileDocument &document) override;

    bool isAddingOf(quint32 record) const override
    {
        return g_numberCount && g_numbers.size() == 1 && g_numbers.front() == record;
    }

    /// How many records are out now.
    size_t countOut() const { return g_countOut; }

private:
    explicit PresenceChange(const QString &name) : g_name(name) {}

    void announceDeletion(DatafileDocument &document, quint32 number) const;
    void takeOut(DatafileDocument &document, size_t index);
    void putBack(DatafileDocument &document, size_t index);
    void didTakeOut(DatafileDocument &document);
    void didPutBack(DatafileDocument &document);
    void putBackEntries(SubsetSortedData &catalog) const;
    void count(DatafileDocument &document, qint64 from, qint64 to) const;

    QString g_name;
    std::optional<NumberCount> g_numberCount;
    bool g_areIn = true;
    bool g_staysIn = false; ///< None would be left without them.
    std::vector<quint32> g_numbers;
    std::vector<PlacedEntry> g_entries; ///< Of the records that are out, as are
    std::vector<std::optional<QVKeyedCollectionData::Taken>> g_records; ///< each at the place of its number.
    size_t g_countOut = 0;
    std::vector<bool> g_selection; ///< Of the other records; empty unless all were selected in its place.
};

/// A record that was moved to another place of the catalog.
class MoveChange : public UndoStep
{
public:
    MoveChange(const QString &name, quint32 record, qint64 otherIndex)
        : g_name(name)
        , g_record(record)
        , g_otherIndex(otherIndex)
    {}

    QString name() const override { return g_name; }
    void undo(DatafileDocument &document) override;
    void redo(DatafileDocument &document) override { undo(document); }

private:
    QString g_name;
    quint32 g_record;
    qint64 g_otherIndex;
};

} // namespace tavrin
