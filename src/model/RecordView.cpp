// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/RecordView.h"

#include "model/RecordData.h"
#include "model/RecordKey.h"

#include <functional>

namespace tavrin {

namespace {

Date dateIn(const plist::Value &value)
{
    return value.isDate() ? *value.date() : Date();
}

} // namespace

TextView RecordView::fieldValue(const FieldKey &field) const
{
    return g_record ? TextView(g_record->fieldValue(field.text)) : g_source->fieldValue(g_place, field);
}

void RecordView::fieldValues(std::span<const FieldKey> fields, std::span<TextView> values) const
{
    for (TextView &value : values)
        value = TextView();
    size_t next = 0;
    const auto take = [&](QByteArrayView identifier, const TextView &content) {
        const size_t place = placeOf(fields, identifier, next);
        if (place == fields.size())
            return;
        values[place] = TextView(content); // Moved, which is quicker than to assign a copy.
        next = place + 1;
    };
    // By reference, so that nothing is allocated for it.
    if (visitFields(std::ref(take)))
        return;
    for (size_t place = 0; place < fields.size(); ++place)
        values[place] = fieldValue(fields[place]);
}

TextView RecordView::textString() const
{
    return g_record ? TextView(g_record->textString()) : g_source->textString(g_place);
}

bool RecordView::visitFields(const FieldVisitor &visitor) const
{
    return !g_record && g_source->visitFields(g_place, visitor);
}

bool RecordView::mayHold(const text::TextSieve &sieve) const
{
    return g_record || g_source->mayHold(g_place, sieve);
}

void RecordView::fetch() const
{
    if (!g_record)
        g_source->fetch(g_place);
}

QByteArray RecordView::textRTFD() const
{
    const plist::Value data = value(RecordKey::textRTFD);
    return data.isData() ? *data.data() : QByteArray();
}

QString RecordView::name() const
{
    return value(RecordKey::name).toText();
}

QString RecordView::createdBy() const
{
    return value(RecordKey::createdBy).toText();
}

QString RecordView::modifiedBy() const
{
    return value(RecordKey::modifiedBy).toText();
}

QString RecordView::viewedBy() const
{
    return value(RecordKey::viewedBy).toText();
}

Date RecordView::createdDate() const
{
    return dateIn(value(RecordKey::createdDate));
}

Date RecordView::modifiedDate() const
{
    return dateIn(value(RecordKey::modifiedDate));
}

Date RecordView::viewedDate() const
{
    return dateIn(value(RecordKey::viewedDate));
}

bool RecordView::isSum() const
{
    return value(RecordKey::isSum).toBool();
}

bool RecordView::needsSync() const
{
    return value(RecordKey::needsSync).toBool();
}

bool RecordView::recordLocked() const
{
    return value(RecordKey::locked).toBool();
}

plist::Value RecordView::value(const QString &key) const
{
    return g_record ? g_record->dictionary().value(key) : g_source->value(g_place, key);
}

plist::Dictionary RecordView::dictionary() const
{
    return g_record ? g_record->dictionary() : g_source->dictionary(g_place);
}

} // namespace tavrin
