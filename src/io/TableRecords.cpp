// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableRecords.h"

#include "io/RecordBatch.h"
#include "model/RecordKey.h"
#include "text/TextSieve.h"

namespace tavrin {

TableRecords::TableRecords(std::shared_ptr<const TextTable> table,
                           TableMapping mapping,
                           plist::Dictionary pattern,
                           const SharedBytes &identifiers)
    : g_table(std::move(table))
    , g_mapping(std::move(mapping))
    , g_pattern(std::move(pattern))
    , g_identifiers(identifiers)
{}

TextView TableRecords::fieldCell(quint32 place, quint32 column) const
{
    return g_mapping.cleansValues ? g_table->cellAsLine(rowOf(place), column)
                                  : g_table->cell(rowOf(place), column);
}

TextView TableRecords::fieldValue(quint32 place, const FieldKey &field) const
{
    for (const TableMapping::FieldColumn &mapped : g_mapping.fields) {
        if (mapped.field.utf8 == field.utf8)
            return fieldCell(place, mapped.column);
    }
    return {};
}

TextView TableRecords::textString(quint32 place) const
{
    if (g_mapping.textColumns.size() == 1) {
        const TextView text = g_table->cell(rowOf(place), g_mapping.textColumns.front());
        return text.isAbsent() ? TextView(QStringLiteral("")) : text;
    }
    QString joined = QStringLiteral("");
    for (const quint32 column : g_mapping.textColumns) {
        const TextView text = g_table->cell(rowOf(place), column);
        if (!joined.isEmpty() && !text.isEmpty())
            joined.append(u'\n');
        joined.append(text.toString());
    }
    return TextView(joined);
}

plist::Dictionary TableRecords::fields(quint32 place) const
{
    plist::Dictionary contents;
    for (const TableMapping::FieldColumn &mapped : g_mapping.fields) {
        const TextView content = fieldCell(place, mapped.column);
        if (!content.isAbsent())
            contents.insert(mapped.field.text, content.toString());
    }
    return contents;
}

QString TableRecords::identifier(quint32 place) const
{
    return QString::fromLatin1(g_identifiers.view().sliced(place * identifierSize, identifierSize));
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
