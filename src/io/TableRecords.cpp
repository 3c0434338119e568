// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableRecords.h"

#include "io/RecordBatch.h"
#include "model/RecordKey.h"
#include "text/TextSieve.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tavrin {

namespace {

quint64 startOf(const FieldKey &field)
{
    std::array<char, sizeof(quint64)> start{};
    std::copy_n(field.utf8.begin(), std::min<qsizetype>(field.utf8.size(), sizeof(quint64)), start.begin());
    return std::bit_cast<quint64>(start);
}

} // namespace

TextView textOfRow(const TextTable &table, quint32 row, std::span<const quint32> columns)
{
    if (columns.size() == 1) {
        const TextView text = table.cell(row, columns.front());
        return text.isAbsent() ? TextView(QStringLiteral("")) : text;
    }
    QString joined = QStringLiteral("");
    for (const quint32 column : columns) {
        const TextView text = table.cell(row, column);
        if (!joined.isEmpty() && !text.isEmpty())
            joined.append(u'\n');
        joined.append(text.toString());
    }
    return TextView(joined);
}

TableRecords::TableRecords(std::shared_ptr<const TextTable> table,
                           TableMapping mapping,
                           plist::Dictionary pattern,
                           const SharedBytes &identifiers)
    : g_table(std::move(table))
    , g_mapping(std::move(mapping))
    , g_pattern(std::move(pattern))
    , g_elements(g_pattern, g_mapping)
    , g_identifiers(identifiers)
{
    for (const TableMapping::FieldColumn &field : g_mapping.fields)
        g_fieldStarts.push_back(startOf(field.field));
}

TextView TableRecords::fieldValue(quint32 place, const FieldKey &field) const
{
    const quint64 start = startOf(field);
    for (size_t i = 0; i < g_fieldStarts.size(); ++i) {
        if (g_fieldStarts[i] == start && g_mapping.fields[i].field.utf8 == field.utf8)
            return fieldCell(cells(place), g_mapping.fields[i].column);
    }
    return {};
}

bool TableRecords::visitFields(quint32 place, const FieldVisitor &visitor) const
{
    const TextTable::Row row = cells(place);
    for (const TableMapping::FieldColumn &mapped : g_mapping.fields) {
        const TextView content = fieldCell(row, mapped.column);
        if (!content.isAbsent())
            visitor(mapped.field.utf8, content);
    }
    return true;
}

TextView TableRecords::textString(quint32 place) const
{
    return textOfRow(*g_table, rowOf(place), g_mapping.textColumns);
}

plist::Dictionary TableRecords::fields(quint32 place) const
{
    const TextTable::Row row = cells(place);
    plist::Dictionary contents;
    for (const TableMapping::FieldColumn &mapped : g_mapping.fields) {
        const TextView content = fieldCell(row, mapped.column);
        if (!content.isAbsent())
            contents.insert(mapped.field.text, content.toString());
    }
    return contents;
}

QString TableRecords::identifier(quint32 place) const
{
    return QString::fromLatin1(identifierBytes(place));
}

QByteArrayView TableRecords::identifierBytes(quint32 place) const
{
    return g_identifiers.view().sliced(place * identifierSize, identifierSize);
}

void TableRecords::writeElement(quint32 place, plist::XmlWriter &writer) const
{
    g_elements.write(*this, place, writer);
}

plist::Value TableRecords::value(quint32 place, const QString &key) const
{
    if (key == RecordKey::identifier)
        return identifier(place);
    if (key == RecordKey::fields)
        return fields(place);
    if (key == RecordKey::textString)
        return textString(place).toString();
    return g_pattern.value(key);
}

plist::Dictionary TableRecords::dictionary(quint32 place) const
{
    plist::Dictionary record = g_pattern;
    record.insert(RecordKey::identifier, identifier(place));
    record.insert(RecordKey::fields, fields(place));
    record.insert(RecordKey::textString, textString(place).toString());
    return record;
}

bool TableRecords::mayHold(quint32 place, const text::TextSieve &sieve) const
{
    const bool isInBytes = g_table->isPlain(rowOf(place)) && g_mapping.textColumns.size() <= 1;
    return !isInBytes || sieve.passes(g_table->bytesOf(rowOf(place)), [](qsizetype) { return true; });
}

} // namespace tavrin
