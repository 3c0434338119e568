// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/RecordText.h"
#include "document/UndoHistory.h"
#include "model/RecordData.h"

#include <QList>

#include <memory>
#include <optional>
#include <vector>

namespace tavrin {

class RecordView;

/// Other contents for some records: what is to be put into them, and once exchanged, what stood there.
class ContentChange : public UndoStep
{
public:
    struct Record
    {
        quint32 number;
        QList<std::pair<QString, QString>> fields; ///< By field identifier; a null content is none at all.
        std::optional<RecordText> text;
        /// The record with these contents, when it was made ready; they then are those that stand in it yet.
        std::unique_ptr<RecordData> ready = nullptr;

        bool isEmpty() const { return fields.isEmpty() && !text; }

        /// Does ahead, on any thread, what is slow about the first exchange. `record` is the one of that
        /// number, which stays as it is until then.
        void makeReady(const RecordView &record, const Environment &environment);
    };

    ContentChange(const QString &name, std::vector<Record> records)
        : g_name(name)
        , g_records(std::move(records))
    {}

    const std::vector<Record> &records() const { return g_records; }

    QString name() const override { return g_name; }
    /// Puts the contents into the records and keeps those that stood there. Marks the records as modified
    /// and announces it once. Records that are gone are passed over.
    void exchange(DatafileDocument &document);
    void undo(DatafileDocument &document) override { exchange(document); }
    void redo(DatafileDocument &document) override { exchange(document); }

private:
    QString g_name;
    std::vector<Record> g_records;
};

/// Whether records are, and were, locked: what is to be, and once exchanged, what was.
class LockChange : public UndoStep
{
public:
    struct Record
    {
        quint32 number;
        bool isLocked;
        bool wasLocked;

        friend bool operator==(const Record &, const Record &) = default;
    };

    LockChange(const QString &name, std::vector<Record> records) : g_name(name), g_records(std::move(records))
    {}

    QString name() const override { return g_name; }
    void exchange(DatafileDocument &document);
    void undo(DatafileDocument &document) override { exchange(document); }
    void redo(DatafileDocument &document) override { exchange(document); }

private:
    QString g_name;
    std::vector<Record> g_records;
};

} // namespace tavrin
