// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/UndoHistory.h"
#include "model/DatafileRecordsData.h"
#include "sorting/SubsetSortedData.h"

#include <optional>
#include <span>
#include <vector>

namespace tavrin {

/// Records that came into a datafile or went out of it. A record that comes back has its identifier, its
/// place and its content.
class PresenceChange : public UndoStep
{
public:
    /// What the count of automatic numbers was before and after a record was added.
    struct NumberCount
    {
        qint64 before;
        qint64 after;
    };

    /// Takes records out, given by number. Announces each that goes, as the window that shows it has to know,
    /// and that the catalog changed. All records are selected when no selected one is left.
    static std::unique_ptr<PresenceChange>
    removing(DatafileDocument &document, std::span<const quint32> records, const QString &name);

    /// Of a record that was just added.
    static std::unique_ptr<PresenceChange>
    added(quint32 record, const QString &name, std::optional<NumberCount> numberCount = {});

    /// Of records that were just added.
    static std::unique_ptr<PresenceChange> added(std::vector<quint32> records, const QString &name);

    QString name() const override { return g_name; }
    void undo(DatafileDocument &document) override { exchange(document); }
    void redo(DatafileDocument &document) override { exchange(document); }

    /// How many records are out now.
    size_t countOut() const { return g_records.size(); }

private:
    explicit PresenceChange(const QString &name) : g_name(name) {}

    void exchange(DatafileDocument &document);
    void takeOut(DatafileDocument &document);
    void putBack(DatafileDocument &document);
    void count(DatafileDocument &document, qint64 from, qint64 to) const;

    QString g_name;
    std::optional<NumberCount> g_numberCount;
    bool g_areIn = true;
    std::vector<quint32> g_numbers;
    std::vector<PlacedEntry> g_entries; ///< Of the records that are out, as are
    std::vector<QVKeyedCollectionData::Taken> g_records;
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
