// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace tavrin {

class DatafileDocument;

/// Other contents for some records: what is to be put into them, and once exchanged, what stood there.
class TextChanges
{
public:
    struct Record
    {
        QString identifier;
        QList<std::pair<QString, QString>> fields; ///< By field identifier.
        std::optional<QString> text;
        QByteArray textRTFD; ///< Goes with the text; empty for none.

        bool isEmpty() const { return fields.isEmpty() && !text; }
    };

    void add(const Record &record) { g_records.append(record); }
    qsizetype count() const { return g_records.size(); }

    /// Puts the contents into the records and takes those that stand there, so that doing it again undoes
    /// it. Marks the records as modified, but not the document as changed. Passes over records that are
    /// gone, and fields that have no identifier.
    void exchange(DatafileDocument &document);

private:
    QList<Record> g_records;
};

} // namespace tavrin
