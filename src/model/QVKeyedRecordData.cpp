// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/QVKeyedRecordData.h"

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

QVKeyedRecordData::QVKeyedRecordData(const Environment &environment)
{
    fillIn(environment);
}

QVKeyedRecordData::QVKeyedRecordData(const plist::Dictionary &dictionary, const Environment &environment)
    : g_dictionary(dictionary)
    , g_savedData(dictionary)
{
    fillIn(environment);
}

QString QVKeyedRecordData::identifier() const
{
    return textForKey(u"RecordIdentifier"_s);
}

QString QVKeyedRecordData::name() const
{
    return textForKey(u"RecordName"_s);
}

bool QVKeyedRecordData::needsSync() const
{
    return flagForKey(u"NeedsSync"_s);
}

bool QVKeyedRecordData::isSum() const
{
    return flagForKey(u"IsSum"_s);
}

bool QVKeyedRecordData::recordLocked() const
{
    return flagForKey(u"RecordLocked"_s);
}

bool QVKeyedRecordData::recordWasLocked() const
{
    return flagForKey(u"RecordWasLocked"_s);
}

Date QVKeyedRecordData::createdDate() const
{
    return dateForKey(u"RecordCreatedDate"_s);
}

Date QVKeyedRecordData::modifiedDate() const
{
    return dateForKey(u"RecordModifiedDate"_s);
}

Date QVKeyedRecordData::viewedDate() const
{
    return dateForKey(u"RecordViewedDate"_s);
}

QString QVKeyedRecordData::createdBy() const
{
    return textForKey(u"RecordCreatedBy"_s);
}

QString QVKeyedRecordData::modifiedBy() const
{
    return textForKey(u"RecordModifiedBy"_s);
}

QString QVKeyedRecordData::viewedBy() const
{
    return textForKey(u"RecordViewedBy"_s);
}

int QVKeyedRecordData::compare(const QVKeyedRecordData &other) const
{
    return description().compare(other.description());
}

void QVKeyedRecordData::setIdentifier(const QString &identifier)
{
    store(identifier, u"RecordIdentifier"_s);
}

void QVKeyedRecordData::setName(const QString &name)
{
    store(name, u"RecordName"_s);
}

void QVKeyedRecordData::setNeedsSync(bool needsSync)
{
    setFlag(needsSync, u"NeedsSync"_s);
}

void QVKeyedRecordData::setIsSum(bool isSum)
{
    setFlag(isSum, u"IsSum"_s);
}

void QVKeyedRecordData::setRecordLocked(bool locked)
{
    setFlag(locked, u"RecordLocked"_s);
}

void QVKeyedRecordData::setRecordWasLocked(bool wasLocked)
{
    setFlag(wasLocked, u"RecordWasLocked"_s);
}

void QVKeyedRecordData::setCreatedDate(Date date)
{
    store(date, u"RecordCreatedDate"_s);
}

void QVKeyedRecordData::setModifiedDate(Date date)
{
    store(date, u"RecordModifiedDate"_s);
}

void QVKeyedRecordData::setViewedDate(Date date)
{
    store(date, u"RecordViewedDate"_s);
}

void QVKeyedRecordData::setCreatedBy(const QString &person)
{
    store(person, u"RecordCreatedBy"_s);
}

void QVKeyedRecordData::setModifiedBy(const QString &person)
{
    store(person, u"RecordModifiedBy"_s);
}

void QVKeyedRecordData::setViewedBy(const QString &person)
{
    store(person, u"RecordViewedBy"_s);
}

void QVKeyedRecordData::modified(const Environment &environment)
{
    setModifiedDate(environment.now());
    setModifiedBy(environment.userName);
    setNeedsSync(true);
}

void QVKeyedRecordData::viewed(const Environment &environment)
{
    setViewedDate(environment.now());
    setViewedBy(environment.userName);
}

bool QVKeyedRecordData::toggleRecordLocked()
{
    const bool locked = recordLocked();
    setRecordWasLocked(locked);
    setRecordLocked(!locked);
    return !locked;
}

QString QVKeyedRecordData::textForKey(const QString &key) const
{
    const plist::Value *stored = storedValue(key);
    return stored ? stored->toText() : QString();
}

QString QVKeyedRecordData::descriptionWithClassName(QLatin1StringView className) const
{
    return className + u' ' + identifier() + u": name = "_s + name();
}

// Nothing is asked of the environment for a record that is complete, as nearly all are: a datafile may
// bring a million.
void QVKeyedRecordData::fillIn(const Environment &environment)
{
    const auto fill = [this](const QString &key, const auto &newValue) {
        if (!storedValue(key))
            store(newValue(), key);
    };
    const auto no = [] { return plist::Value(false); };
    std::optional<Date> loaded;
    const auto now = [&loaded, &environment] {
        if (!loaded)
            loaded = environment.now();
        return plist::Value(*loaded);
    };
    const auto user = [&environment] { return plist::Value(environment.userName); };

    fill(u"RecordIdentifier"_s, [&environment] { return plist::Value(environment.identifier()); });
    fill(u"RecordName"_s, [] { return plist::Value(u""_s); });
    for (const QString &key : {u"IsSum"_s, u"RecordLocked"_s, u"RecordWasLocked"_s, u"NeedsSync"_s})
        fill(key, no);
    for (const QString &key : {u"RecordCreatedDate"_s, u"RecordModifiedDate"_s, u"RecordViewedDate"_s})
        fill(key, now);
    for (const QString &key : {u"RecordCreatedBy"_s, u"RecordModifiedBy"_s, u"RecordViewedBy"_s})
        fill(key, user);
}

Date QVKeyedRecordData::dateForKey(const QString &key) const
{
    const plist::Value *stored = storedValue(key);
    return stored && stored->isDate() ? *stored->date() : Date();
}

bool QVKeyedRecordData::flagForKey(const QString &key) const
{
    const plist::Value *stored = storedValue(key);
    return stored && stored->toBool();
}

void QVKeyedRecordData::setFlag(bool flag, const QString &key)
{
    if (flagForKey(key) != flag)
        store(flag, key);
}

} // namespace tavrin
