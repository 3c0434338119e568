// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/ExportedRecords.h"

#include "document/DatafileDocument.h"
#include "richtext/FontName.h"
#include "richtext/Rtfd.h"

#include <algorithm>
#include <iterator>

namespace tavrin {

namespace {

QString withoutExtension(const QString &name)
{
    return datafileKindOfPath(name) ? name.left(name.lastIndexOf(u'.')) : name;
}

} // namespace

ExportedRecords::ExportedRecords(const DatafileDocument &document)
    : ExportedRecords(
        document, document.datafileCatalog().selectedNumbers(0, document.datafileCatalog().countSelected()))
{}

ExportedRecords::ExportedRecords(const DatafileDocument &document, const std::vector<quint32> &records)
    : g_texts(document.datafileRecords(), document.datafileSettings())
    , g_fields(document.datafileSettings().fields())
    , g_textName(document.datafileSettings().textName())
    , g_fieldsFont(document.datafileSettings().fieldsFont())
    , g_textFont(document.datafileSettings().textFont())
    , g_datafileName(withoutExtension(document.displayName()))
{
    for (const FieldDefinition &field : g_fields)
        g_keys.emplace_back(field.identifier());
    // A catalog may name records that are not there.
    g_numbers.reserve(records.size());
    std::ranges::copy_if(
        records, std::back_inserter(g_numbers), [this](quint32 record) { return g_texts.contains(record); });
}

richtext::CharacterFormat formatOf(const FontDescription &font)
{
    const richtext::FontFace face = richtext::faceOfName(font.family);
    richtext::CharacterFormat format;
    format.family = face.family;
    format.bold = face.bold;
    format.italic = face.italic;
    format.size = static_cast<qint32>(font.size * 1000);
    return format;
}

richtext::AttributedText attributedTextOf(const RecordView &record, const FontDescription &font)
{
    if (const QByteArray stored = record.textRTFD(); !stored.isEmpty()) {
        if (Result<richtext::AttributedText> text = richtext::readRichText(stored))
            return *std::move(text);
    }
    return richtext::AttributedText(record.textString().toString(), formatOf(font));
}

} // namespace tavrin
