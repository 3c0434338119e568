// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/StoredTexts.h"

#include "model/DatafileRecordsData.h"
#include "model/DatafileSettingsData.h"
#include "model/Preferences.h"

namespace tavrin {

namespace {

/// The text where it stands, if it can be read there; else in the buffer.
QAnyStringView viewOf(const TextView &text, QString &buffer)
{
    constexpr QByteArrayView mark("\xEF\xBB\xBF");
    switch (text.form()) {
    case TextView::Form::Absent:
        return {};
    case TextView::Form::Utf8:
        // Whoever decodes it would take a first U+FEFF for a byte-order mark and drop it.
        if (!text.bytes().startsWith(mark))
            return text.isEmpty() ? QAnyStringView(u"") : QAnyStringView(QUtf8StringView(text.bytes()));
        break;
    case TextView::Form::Encoded:
    case TextView::Form::Decoded:
        break;
    }
    buffer = text.toString();
    return buffer;
}

} // namespace

StoredTexts::StoredTexts(const DatafileRecordsData &records, const DatafileSettingsData &settings)
    : g_records(records)
    , g_addressPlace(AddressPlace::of(settings))
{
    for (const FieldDefinition &field : settings.fields())
        g_fieldIdentifiers.append(field.identifier());
}

RecordTextReader StoredTexts::fieldReader(const QString &fieldIdentifier) const
{
    return [this, field = FieldKey(fieldIdentifier)](quint32 record, QString &buffer) {
        return viewOf(view(record).fieldValue(field), buffer);
    };
}

RecordTextReader StoredTexts::textReader() const
{
    return [this](quint32 record, QString &buffer) { return viewOf(view(record).textString(), buffer); };
}

QString StoredTexts::freeformAddressBlock(quint32 record) const
{
    return tavrin::freeformAddressBlock(view(record).textString().toString(), g_addressPlace);
}

Date StoredTexts::createdDate(quint32 record) const
{
    return view(record).createdDate();
}

Date StoredTexts::modifiedDate(quint32 record) const
{
    return view(record).modifiedDate();
}

SortSettings sortSettings(const Preferences *preferences)
{
    return {sortTitleList(preferences), QLocale()};
}

} // namespace tavrin
