// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/CopiedRecord.h"

#include "document/DatafileDocument.h"
#include "richtext/RtfWriter.h"
#include "richtext/Rtfd.h"

#include <QMimeData>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

richtext::CharacterFormat formatOf(const FontDescription &font)
{
    richtext::CharacterFormat format;
    format.family = font.family;
    constexpr qint64 largest = 1000;
    format.size = static_cast<qint32>(qBound(qint64(1), font.size, largest) * 1000);
    return format;
}

} // namespace

QMimeData *copiedRecord(const RecordData &record, const DatafileDocument &document, FieldNames names)
{
    const DatafileSettingsData &settings = document.datafileSettings();
    QString fields;
    for (const FieldDefinition &field : settings.fields()) {
        if (names == FieldNames::With)
            fields += field.name() + u":\t"_s;
        fields += record.fieldValue(field.identifier()) + u'\n';
    }
    const richtext::CharacterFormat plain = formatOf(settings.textFont());
    richtext::AttributedText rich(fields, plain);
    const QByteArray stored = document.isMobile() ? QByteArray() : record.textRTFD();
    const auto text = richtext::readRichText(stored);
    rich.append(!stored.isEmpty() && text ? *text : richtext::AttributedText(record.textString(), plain));
    auto *data = new QMimeData;
    const QByteArray rtf = richtext::writeRtf(rich);
    data->setText(fields + record.textString());
    data->setData(flatRtfdType, richtext::writeRichText(rich));
    data->setData(u"text/rtf"_s, rtf);
    data->setData(u"application/rtf"_s, rtf);
    return data;
}

} // namespace tavrin
