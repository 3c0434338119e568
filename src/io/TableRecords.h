// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/SharedBytes.h"
#include "io/TableElements.h"
#include "io/TextTable.h"
#include "model/ElementSource.h"

#include <memory>
#include <span>

namespace tavrin {

/// What becomes of the columns of a table in the records made of its rows.
struct TableMapping
{
    struct FieldColumn
    {
        FieldKey field;
        quint32 column;
    };

    std::vector<FieldColumn> fields;  ///< No field twice.
    std::vector<quint32> textColumns; ///< Joined by line ends, they are the text.
    quint32 firstRow = 0;
    std::vector<quint32> rows; ///< Only these; all from the first one on when it is empty.
    bool cleansValues = false; ///< Fields take values as one line; for tables read by readStandard().
};

/// How many rows become records.
inline quint32 rowCountOf(const TextTable &table, const TableMapping &mapping)
{
    return mapping.rows.empty() ? table.rowCount() - mapping.firstRow
                                : static_cast<quint32>(mapping.rows.size());
}

/// The text that is in those columns of a row, joined by line ends; never absent.
TextView textOfRow(const TextTable &table, quint32 row, std::span<const quint32> columns);

/// The rows of a table as records, without anything being made of a row until somebody asks for it.
class TableRecords : public ElementSource
{
public:
    /// Each record takes what is neither field, text nor identifier from the pattern, which has all keys that
    /// a record has. The identifiers are as newIdentifiers() gives them.
    TableRecords(std::shared_ptr<const TextTable> table,
                 TableMapping mapping,
                 plist::Dictionary pattern,
                 const SharedBytes &identifiers);

    quint32 count() const override { return rowCountOf(*g_table, g_mapping); }
    bool needsOpening(quint32 /*place*/) const override { return false; }
    plist::Dictionary dictionary(quint32 place) const override;
    plist::Value value(quint32 place, const QString &key) const override;
    TextView fieldValue(quint32 place, const FieldKey &field) const override;
    bool visitFields(quint32 place, const FieldVisitor &visitor) const override;
    TextView textString(quint32 place) const override;
    bool mayHold(quint32 place, const text::TextSieve &sieve) const override;
    void writeElement(quint32 place, plist::XmlWriter &writer) const override;

    TextTable::Row cells(quint32 place) const { return g_table->cells(rowOf(place)); }
    /// The cell as a field holds it; absent where the row is too short.
    TextView fieldCell(const TextTable::Row &cells, quint32 column) const
    {
        return g_mapping.cleansValues ? cells.cellAsLine(column) : cells.cell(column);
    }
    QByteArrayView identifierBytes(quint32 place) const;

private:
    quint32 rowOf(quint32 place) const
    {
        return g_mapping.rows.empty() ? place + g_mapping.firstRow : g_mapping.rows[place];
    }
    plist::Dictionary fields(quint32 place) const;
    QString identifier(quint32 place) const;

    std::shared_ptr<const TextTable> g_table;
    TableMapping g_mapping;
    plist::Dictionary g_pattern;
    TableElements g_elements;
    std::vector<quint64> g_fieldStarts; ///< Of the fields' identifiers, which differ in them nearly always.
    SharedBytes g_identifiers;
};

} // namespace tavrin
