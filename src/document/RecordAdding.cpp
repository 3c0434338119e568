// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordAdding.h"

#include "document/DatafileDocument.h"
#include "document/RecordChanges.h"
#include "model/FieldText.h"
#include "model/RecordKey.h"

#include <algorithm>
#include <limits>

namespace tavrin {

using namespace Qt::StringLiterals;

RecordPlace RecordAdding::place() const
{
    switch (g_document.datafileSettings().newRecordLocation()) {
    case 1:
        return RecordPlace::First;
    case 2:
        return RecordPlace::Last;
    default:
        return RecordPlace::AfterCurrent;
    }
}

QString RecordAdding::addRecord(const QString &afterIdentifier)
{
    return addRecord(afterIdentifier, {}, place());
}

QString RecordAdding::duplicateRecord(const QString &identifier)
{
    const DatafileSettingsData &settings = g_document.datafileSettings();
    const std::optional<RecordView> source = g_document.datafileRecords().view(identifier);
    if (!source || isEmptyRecord(*source, settings))
        return {};
    Content content;
    // What stands in fields that are no longer defined, too: the person might want them back.
    const plist::Value fields = source->value(RecordKey::fields);
    if (fields.isDictionary())
        fields.dictionary()->forEach([&](const QString &field, const plist::Value &value) {
            if (const QString text = value.toText();
                field != settings.autoAddContentFieldID() && !text.isNull())
                content.fields.append({field, text});
        });
    content.text = RecordText{source->textString().toString(),
                              g_document.isMobile() ? QByteArray() : source->textRTFD()};
    const bool placed = settings.duplicateRecordLocationMatchesNewRecordLocation();
    return addRecord(
        identifier, content, placed ? place() : RecordPlace::AfterCurrent, tr("Duplicate Record"));
}

QString RecordAdding::addRecord(const QString &afterIdentifier,
                                const Content &content,
                                RecordPlace place,
                                const QString &name)
{
    DatafileSettingsData &settings = g_document.datafileSettings();
    auto record = std::make_unique<RecordData>(g_document.services().environment);
    const qint64 numberBefore = settings.lastAutoAddInteger();
    if (content.isSum)
        record->setIsSum(true);
    else
        updateAutoAddContentField(*record, settings);
    for (const auto &[field, value] : content.fields)
        record->setFieldValue(singleLineFieldText(value), field);
    if (content.text) {
        record->setTextString(content.text->plain);
        record->setTextRTFD(content.text->textRTFD);
    }
    const QString identifier = g_document.addRecord(std::move(record), afterIdentifier);
    SubsetSortedData &catalog = g_document.datafileCatalog();
    if (place != RecordPlace::AfterCurrent) {
        catalog.moveIdentifier(identifier, place == RecordPlace::First ? 0 : catalog.count());
        g_document.announceCatalogChange();
    }
    g_document.undoHistory().push(
        PresenceChange::added(g_document.datafileRecords().identifiers().number(identifier),
                              name,
                              PresenceChange::NumberCount{numberBefore, settings.lastAutoAddInteger()}));
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    return identifier;
}

void updateAutoAddContentField(RecordData &record, DatafileSettingsData &settings)
{
    const QString field = settings.autoAddContentFieldID();
    if (field.isEmpty())
        return;
    QString value = settings.autoAddPrefix();
    if (settings.autoAddNumber()) {
        const qint64 last = settings.lastAutoAddInteger();
        const qint64 number = last < std::numeric_limits<qint64>::max() ? last + 1 : last;
        constexpr qint64 mostDigits = 1000;
        const qint64 digits = std::clamp<qint64>(settings.autoAddDigitCount(), 0, mostDigits);
        value += QString::number(number).rightJustified(digits, u'0');
        settings.setLastAutoAddInteger(number);
        settings.setDatafileSettingsDidChange(true);
    }
    record.setFieldValue(singleLineFieldText(value + settings.autoAddSuffix()), field);
}

bool isEmptyRecord(const RecordView &record, const DatafileSettingsData &settings)
{
    return record.textString().isEmpty()
           && std::ranges::all_of(settings.fields(), [&record](const FieldDefinition &field) {
                  return record.fieldValue(field.identifier()).isEmpty();
              });
}

} // namespace tavrin
