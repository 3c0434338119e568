// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <QByteArray>

#include <vector>

namespace tavrin {

namespace plist {
class XmlWriter;
}

class TableRecords;
struct TableMapping;

/// Writes the records of a table as elements of an XML datafile. What is the same in all of them is written
/// once, and the cells go there from where they stand, so that saving a large import costs little more than
/// its bytes.
class TableElements
{
public:
    /// The pattern has all keys of a record, in their order.
    TableElements(const plist::Dictionary &pattern, const TableMapping &mapping);

    void write(const TableRecords &records, quint32 place, plist::XmlWriter &writer) const;

private:
    enum class Part { Identifier, Fields, Text };

    /// Bytes that are the same in all records, and what stands behind them.
    struct Step
    {
        QByteArray bytes;
        Part part;
    };
    struct Field
    {
        QByteArray bytes; ///< Up to the cell.
        quint32 column;
    };

    void writeFields(const TableRecords &records, quint32 place, plist::XmlWriter &writer) const;

    std::vector<Step> g_steps;
    QByteArray g_end; ///< Behind the last part.
    std::vector<Field> g_fields;
};

} // namespace tavrin
