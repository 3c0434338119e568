// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/QVKeyedAccessorData.h"

#include "base/Log.h"
#include "model/DictionaryOperations.h"

namespace tavrin {

using namespace Qt::StringLiterals;

const plist::Dictionary &QVKeyedAccessorData::dictionary()
{
    const plist::Value *stamp = g_dictionary.find(u"DataFormat"_s);
    if (!stamp || *stamp != plist::Value(currentFormat()))
        setDataFormat(currentFormat());
    return g_dictionary;
}

qint64 QVKeyedAccessorData::dataVersion() const
{
    return integerForKey(u"DataVersion"_s, currentVersion());
}

void QVKeyedAccessorData::setDataVersion(qint64 version)
{
    setInteger(version, u"DataVersion"_s);
}

qint64 QVKeyedAccessorData::dataFormat() const
{
    return integerForKey(u"DataFormat"_s, currentFormat());
}

void QVKeyedAccessorData::setDataFormat(qint64 format)
{
    setInteger(format, u"DataFormat"_s);
}

bool QVKeyedAccessorData::boolForKey(const QString &key, bool defaultValue) const
{
    const plist::Value *stored = g_dictionary.find(key);
    return stored ? stored->toBool() : defaultValue;
}

void QVKeyedAccessorData::setBool(bool value, const QString &key)
{
    setObject(value, key);
}

qint64 QVKeyedAccessorData::integerForKey(const QString &key, qint64 defaultValue) const
{
    const plist::Value *stored = g_dictionary.find(key);
    return stored ? stored->toInt32() : defaultValue;
}

void QVKeyedAccessorData::setInteger(qint64 value, const QString &key)
{
    setObject(value, key);
}

float QVKeyedAccessorData::floatForKey(const QString &key, float defaultValue) const
{
    const plist::Value *stored = g_dictionary.find(key);
    return stored ? stored->toFloat() : defaultValue;
}

void QVKeyedAccessorData::setFloat(float value, const QString &key)
{
    setObject(value, key);
}

plist::Value QVKeyedAccessorData::numberForKey(const QString &key, const plist::Value &defaultValue) const
{
    return objectForKey(key, defaultValue);
}

void QVKeyedAccessorData::setNumber(const plist::Value &value, const QString &key)
{
    setObject(value, key);
}

QString QVKeyedAccessorData::stringForKey(const QString &key, const QString &defaultValue) const
{
    const plist::Value *stored = g_dictionary.find(key);
    const QString text = stored ? stored->toText() : QString();
    return text.isEmpty() ? defaultValue : text;
}

void QVKeyedAccessorData::setString(const QString &value, const QString &key)
{
    setObject(value.isNull() ? plist::Value() : plist::Value(value), key);
}

std::optional<plist::Array>
QVKeyedAccessorData::arrayForKey(const QString &key, const std::optional<plist::Array> &defaultValue) const
{
    const plist::Value *stored = g_dictionary.find(key);
    return stored && stored->isArray() ? *stored->array() : defaultValue;
}

void QVKeyedAccessorData::setArray(const std::optional<plist::Array> &value, const QString &key)
{
    setObject(value ? plist::Value(*value) : plist::Value(), key);
}

std::optional<plist::Dictionary>
QVKeyedAccessorData::dictionaryForKey(const QString &key,
                                      const std::optional<plist::Dictionary> &defaultValue) const
{
    const plist::Value *stored = g_dictionary.find(key);
    return stored && stored->isDictionary() ? *stored->dictionary() : defaultValue;
}

void QVKeyedAccessorData::setDictionary(const std::optional<plist::Dictionary> &value, const QString &key)
{
    setObject(value ? plist::Value(*value) : plist::Value(), key);
}

plist::Value QVKeyedAccessorData::objectForKey(const QString &key, const plist::Value &defaultValue) const
{
    return tavrin::objectForKey(g_dictionary, key, defaultValue);
}

void QVKeyedAccessorData::setObject(const plist::Value &value, const QString &key)
{
    if (!key.isNull())
        tavrin::setObject(g_dictionary, value, key, NilObject::RemovesKey);
}

bool QVKeyedAccessorData::takeDictionary(const plist::Dictionary &dictionary)
{
    g_dictionary = dictionary;
    if (dataFormat() <= currentFormat())
        return true;
    qCWarning(
        log,
        "The data is too new for this version of the application.  (Data format is %lld, latest the app "
        "knowns about is format %lld.)",
        dataFormat(),
        currentFormat());
    return false;
}

} // namespace tavrin
