// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/DatafileSettingsData.h"

#include "model/Preferences.h"
#include "plist/KeyedArchive.h"

#include <QCoreApplication>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

std::optional<DatafileSettingsData>
DatafileSettingsData::settingsWithDictionary(const plist::Dictionary &dictionary,
                                             const Preferences *preferences)
{
    return accessorWithDictionary<DatafileSettingsData>(dictionary, preferences);
}

// Asked for once a record in long loops, so the parsed list is kept for as long as the stored array is the
// one that it was parsed from; holding that array keeps its address from being used again.
const QList<FieldDefinition> &DatafileSettingsData::fields() const
{
    const plist::Value *value = storedDictionary().find(u"Fields"_s);
    const plist::Array *stored = value ? value->array() : nullptr;
    if (!stored) {
        g_parsedFrom.clear();
        g_fields.clear();
        return g_fields;
    }
    if (stored->constData() == g_parsedFrom.constData() && stored->size() == g_parsedFrom.size())
        return g_fields;
    g_parsedFrom = *stored;
    g_fields.clear();
    for (const plist::Value &definition : *stored) {
        if (definition.isDictionary())
            g_fields.append(FieldDefinition(*definition.dictionary()));
    }
    return g_fields;
}

void DatafileSettingsData::setFields(const QList<FieldDefinition> &fields)
{
    plist::Array array;
    for (const FieldDefinition &field : fields)
        array.append(field.dictionary());
    // What is no definition to us may be something to another version.
    for (const plist::Value &other : arrayForKey(u"Fields"_s, {}).value_or(plist::Array())) {
        if (!other.isDictionary())
            array.append(other);
    }
    setArray(array, u"Fields"_s);
}

const FieldDefinition *DatafileSettingsData::fieldWithName(const QString &name) const
{
    const QList<FieldDefinition> &all = fields();
    const auto found = std::ranges::find(all, name, &FieldDefinition::name);
    return found == all.end() ? nullptr : &*found;
}

const FieldDefinition *DatafileSettingsData::fieldWithIdentifier(const QString &identifier) const
{
    const QList<FieldDefinition> &all = fields();
    const auto found = std::ranges::find(all, identifier, &FieldDefinition::identifier);
    return found == all.end() ? nullptr : &*found;
}

QStringList DatafileSettingsData::deletedIdentifiers() const
{
    QStringList identifiers;
    for (const plist::Value &value : arrayForKey(u"DeletedRecords"_s, {}).value_or(plist::Array())) {
        if (const QString text = value.toText(); !text.isNull())
            identifiers.append(text);
    }
    return identifiers;
}

void DatafileSettingsData::setDeletedIdentifiers(const QStringList &identifiers)
{
    setArray(plist::Array(identifiers.cbegin(), identifiers.cend()), u"DeletedRecords"_s);
}

void DatafileSettingsData::addDeletedIdentifier(const QString &identifier)
{
    plist::Array identifiers = arrayForKey(u"DeletedRecords"_s, {}).value_or(plist::Array());
    // Take the array out of its place while it grows: shared with the store it would be copied each time.
    setInteger(0, u"DeletedRecords"_s);
    identifiers.append(identifier);
    setArray(identifiers, u"DeletedRecords"_s);
}

QString DatafileSettingsData::basicViewFrame() const
{
    return stringForKey(u"BasicViewFrame"_s, u""_s);
}

QString DatafileSettingsData::listViewFrame() const
{
    return stringForKey(u"ListViewFrame"_s, u""_s);
}

void DatafileSettingsData::setBasicViewFrame(const QString &frame, bool preparing)
{
    setFrame(frame, u"BasicViewFrame"_s, preparing);
}

void DatafileSettingsData::setListViewFrame(const QString &frame, bool preparing)
{
    setFrame(frame, u"ListViewFrame"_s, preparing);
}

bool DatafileSettingsData::noUpdateForViewChanges() const
{
    return g_preferences && g_preferences->boolForKey(u"GeneralNoUpdateForViewChanges"_s);
}

Color DatafileSettingsData::backgroundFTAcolor() const
{
    const QByteArray data = dataForKey(u"FTAbackgrouneColor"_s);
    const auto color = data.isEmpty() ? std::nullopt : plist::unarchiveColor(data);
    return color ? Color{color->red, color->green, color->blue, color->alpha} : Color::white();
}

void DatafileSettingsData::setBackgroundFTAcolor(const Color &color)
{
    // The stored data may say more than red, green and blue (a colour space, a name), so it stays while
    // the colour does.
    if (color == backgroundFTAcolor())
        return;
    setData(plist::archiveColor({color.red, color.green, color.blue, color.alpha}), u"FTAbackgrouneColor"_s);
}

plist::Dictionary DatafileSettingsData::sortTasksList() const
{
    return dictionaryForKey(u"SortTaskDict"_s, {}).value_or(plist::Dictionary());
}

void DatafileSettingsData::setSortTasksList(const plist::Dictionary &tasks)
{
    setDictionary(tasks, u"SortTaskDict"_s);
}

QString DatafileSettingsData::textName() const
{
    return stringForKey(u"TextName"_s,
                        QCoreApplication::translate("DatafileSettingsData", "Freeform Text Area"));
}

void DatafileSettingsData::setTextName(const QString &name)
{
    setString(name, u"TextName"_s);
}

QString DatafileSettingsData::fieldsFontName() const
{
    return fontName(u"FieldsFontName"_s);
}

qint64 DatafileSettingsData::fieldsFontSize() const
{
    return fontSize(u"FieldsFontSize"_s);
}

void DatafileSettingsData::setFieldsFontName(const QString &name)
{
    setString(name, u"FieldsFontName"_s);
}

void DatafileSettingsData::setFieldsFontSize(qint64 size)
{
    setInteger(size, u"FieldsFontSize"_s);
}

QString DatafileSettingsData::findBoxFontName() const
{
    return fontName(u"FindBoxFontName"_s);
}

qint64 DatafileSettingsData::findBoxFontSize() const
{
    return fontSize(u"FindBoxFontSize"_s);
}

void DatafileSettingsData::setFindBoxFontName(const QString &name)
{
    setString(name, u"FindBoxFontName"_s);
}

void DatafileSettingsData::setFindBoxFontSize(qint64 size)
{
    setInteger(size, u"FindBoxFontSize"_s);
}

QString DatafileSettingsData::textFontName() const
{
    return fontName(u"TextFontName"_s);
}

qint64 DatafileSettingsData::textFontSize() const
{
    return fontSize(u"TextFontSize"_s);
}

void DatafileSettingsData::setTextFontName(const QString &name)
{
    setString(name, u"TextFontName"_s);
}

void DatafileSettingsData::setTextFontSize(qint64 size)
{
    setInteger(size, u"TextFontSize"_s);
}

void DatafileSettingsData::setFrame(const QString &frame, const QString &key, bool preparing)
{
    setString(frame, key);
    if (!preparing && !noUpdateForViewChanges())
        setDatafileSettingsDidChange(true);
}

// The preference that stands behind a font setting has the setting's name after "Default".

QString DatafileSettingsData::fontName(const QString &key) const
{
    const QString preferred = g_preferences ? g_preferences->stringForKey(u"Default"_s + key) : QString();
    return stringForKey(key, preferred.isEmpty() ? u"Helvetica"_s : preferred);
}

qint64 DatafileSettingsData::fontSize(const QString &key) const
{
    const qint64 preferred = g_preferences ? g_preferences->integerForKey(u"Default"_s + key) : 0;
    return integerForKey(key, preferred > 0 ? preferred : 12);
}

} // namespace tavrin
