// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/RecordText.h"
#include "document/SteppedChange.h"

#include <QList>

#include <optional>
#include <vector>

namespace tavrin {

/// Other contents for some records: what is to be put into them, and once exchanged, what stood there. It is
/// announced once.
class ContentChange : public SteppedChange
{
public:
    struct Record
    {
        quint32 number;
        QList<std::pair<QString, QString>> fields; ///< By field identifier; a null content is none at all.
        std::optional<RecordText> text;

        bool isEmpty() const { return fields.isEmpty() && !text; }
    };

    ContentChange(const QString &name, std::vector<Record> records)
        : g_name(name)
        , g_records(std::move(records))
    {}

    const std::vector<Record> &records() const { return g_records; }

    QString name() const override { return g_name; }
    /// The first half puts the contents into the records and keeps those that stood there, the second marks
    /// the records as modified. Records that are gone are passed over.
    size_t partCount() const override { return 2 * g_records.size(); }
    size_t reversiblePartCount() const override { return g_records.size(); }
    void makeParts(DatafileDocument &document, size_t from, size_t to) override;
    void conclude(DatafileDocument &document) override;

private:
    void exchangeContents(DatafileDocument &document, Record &changed) const;

    QString g_name;
    std::vector<Record> g_records;
};

/// Whether records are, and were, locked: what is to be, and once exchanged, what was.
class LockChange : public SteppedChange
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
    size_t partCount() const override { return g_records.size(); }
    void makeParts(DatafileDocument &document, size_t from, size_t to) override;
    void conclude(DatafileDocument &document) override;

private:
    QString g_name;
    std::vector<Record> g_records;
};

} // namespace tavrin
