// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/RecordData.h"

#include "model/ValueRecords.h"

namespace tavrin {

using namespace Qt::StringLiterals;

RecordData::RecordData(const Environment &environment) : QVKeyedRecordData(environment)
{
    fillIn();
}

RecordData::RecordData(const plist::Dictionary &dictionary, const Environment &environment)
    : QVKeyedRecordData(dictionary, environment)
{
    fillIn();
}

plist::Dictionary RecordData::fields() const
{
    const plist::Value *stored = storedValue(u"Fields"_s);
    return stored && stored->isDictionary() ? *stored->dictionary() : plist::Dictionary();
}

QString RecordData::fieldValue(const QString &identifier) const
{
    return fieldValueIn(storedValue(u"Fields"_s), identifier);
}

QString RecordData::textString() const
{
    return textForKey(u"TextString"_s);
}

QByteArray RecordData::textRTFD() const
{
    const plist::Value *stored = storedValue(u"TextRTFD"_s);
    return stored && stored->isData() ? *stored->data() : QByteArray();
}

void RecordData::setFields(const plist::Dictionary &fields)
{
    store(fields, u"Fields"_s);
}

void RecordData::setFieldValue(const QString &value, const QString &identifier)
{
    plist::Dictionary contents = fields();
    contents.insert(identifier, value.isNull() ? plist::Value() : plist::Value(value));
    setFields(contents);
}

void RecordData::setTextString(const QString &text)
{
    store(text, u"TextString"_s);
}

void RecordData::setTextRTFD(const QByteArray &data)
{
    store(data, u"TextRTFD"_s);
}

void RecordData::fillIn()
{
    if (!storedValue(u"Fields"_s))
        setFields({});
    if (!storedValue(u"TextString"_s))
        setTextString(u""_s);
    if (!storedValue(u"TextRTFD"_s))
        setTextRTFD({});
}

} // namespace tavrin
