// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/StoredTexts.h"
#include "model/FieldDefinition.h"
#include "model/FieldKey.h"
#include "model/FontDescription.h"
#include "model/RecordView.h"
#include "richtext/AttributedText.h"

#include <vector>

namespace tavrin {

class DatafileDocument;

/// The selected records of a datafile in their order, as they are when this is made, with what an export
/// needs besides. It can be read on another thread while the datafile changes; no record is opened.
class ExportedRecords
{
public:
    explicit ExportedRecords(const DatafileDocument &document);
    /// Those records alone, by number, in that order.
    ExportedRecords(const DatafileDocument &document, const std::vector<quint32> &records);

    qsizetype count() const { return static_cast<qsizetype>(g_numbers.size()); }
    RecordView record(qsizetype index) const { return g_texts.view(g_numbers[static_cast<size_t>(index)]); }

    const QList<FieldDefinition> &fields() const { return g_fields; }
    /// In the order of the fields.
    const std::vector<FieldKey> &keys() const { return g_keys; }
    const QString &textName() const { return g_textName; }
    const FontDescription &fieldsFont() const { return g_fieldsFont; }
    const FontDescription &textFont() const { return g_textFont; }
    /// The datafile's name without its extension.
    const QString &datafileName() const { return g_datafileName; }

private:
    StoredTexts g_texts;
    std::vector<quint32> g_numbers;
    QList<FieldDefinition> g_fields;
    std::vector<FieldKey> g_keys;
    QString g_textName;
    FontDescription g_fieldsFont;
    FontDescription g_textFont;
    QString g_datafileName;
};

/// The text of a record with its formats: its rich text, or, without one that can be read, its plain text in
/// the font.
richtext::AttributedText attributedTextOf(const RecordView &record, const FontDescription &font);

/// How characters in a font look.
richtext::CharacterFormat formatOf(const FontDescription &font);

} // namespace tavrin
