// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableElements.h"

#include "io/TableRecords.h"
#include "model/RecordKey.h"
#include "plist/XmlWriter.h"

#include <utility>

namespace tavrin {

namespace {

constexpr QByteArrayView stringStart("<string>");
constexpr QByteArrayView stringEnd("</string>\n");
const QByteArray indentation(elementLevel + 1, '\t');

/// What a writer writes there.
template <typename Write>
QByteArray written(Write write)
{
    QByteArray bytes;
    const plist::Sink sink = [&bytes](QByteArrayView piece) {
        bytes.append(piece);
        return true;
    };
    plist::XmlWriter writer(sink);
    write(writer);
    writer.flush();
    return bytes;
}

void writeString(const TextView &text, plist::XmlWriter &writer)
{
    QByteArray buffer;
    writer.writeContent(text.utf8(buffer));
    writer.writeBytes(stringEnd);
}

} // namespace

TableElements::TableElements(const plist::Dictionary &pattern, const TableMapping &mapping)
{
    constexpr int inside = elementLevel + 1;
    QByteArray same = written([](plist::XmlWriter &writer) { writer.beginContainer("dict", elementLevel); });
    const auto addStep = [&](Part part, QByteArrayView start) {
        same += indentation;
        g_steps.push_back({std::exchange(same, {}) + start.toByteArray(), part});
    };
    pattern.forEach([&](const QString &key, const plist::Value &value) {
        same += written([&](plist::XmlWriter &writer) { writer.writeKey(key, inside); });
        if (key == RecordKey::identifier)
            addStep(Part::Identifier, stringStart);
        else if (key == RecordKey::fields)
            addStep(Part::Fields, {});
        else if (key == RecordKey::textString)
            addStep(Part::Text, stringStart);
        else
            same += written([&](plist::XmlWriter &writer) { writer.writeValue(value, inside); });
    });
    g_end = same + written([](plist::XmlWriter &writer) { writer.endContainer("dict", elementLevel); });
    for (const TableMapping::FieldColumn &field : mapping.fields) {
        const QByteArray key =
            written([&](plist::XmlWriter &writer) { writer.writeKey(field.field.text, inside + 1); });
        g_fields.push_back({key + indentation + '\t' + stringStart.toByteArray(), field.column});
    }
}

void TableElements::write(const TableRecords &records, quint32 place, plist::XmlWriter &writer) const
{
    for (const Step &step : g_steps) {
        writer.writeBytes(step.bytes);
        switch (step.part) {
        case Part::Identifier:
            writer.writeContent(records.identifierBytes(place));
            writer.writeBytes(stringEnd);
            break;
        case Part::Fields:
            writeFields(records, place, writer);
            break;
        case Part::Text:
            writeString(records.textString(place), writer);
            break;
        }
    }
    writer.writeBytes(g_end);
}

void TableElements::writeFields(const TableRecords &records, quint32 place, plist::XmlWriter &writer) const
{
    const TextTable::Row row = records.cells(place);
    bool isEmpty = true;
    for (const Field &field : g_fields) {
        const TextView cell = records.fieldCell(row, field.column);
        if (cell.isAbsent())
            continue;
        if (std::exchange(isEmpty, false))
            writer.writeBytes("<dict>\n");
        writer.writeBytes(field.bytes);
        writeString(cell, writer);
    }
    if (isEmpty) {
        writer.writeBytes("<dict/>\n");
        return;
    }
    writer.writeBytes(indentation);
    writer.writeBytes("</dict>\n");
}

} // namespace tavrin
