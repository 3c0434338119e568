// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"
#include "plist/Value.h"

#include <QString>

#include <optional>

namespace tavrin {

/// One record's bookkeeping: identifier, name, flags, dates and people.
///
/// A value; copies are cheap and independent. Everything is kept as it is stored, in one dictionary that
/// always has the twelve keys: what nobody changes is written back as it was read, in whatever type
/// ("YES" for a flag, say), and keys that this version does not know are carried along.
class QVKeyedRecordData
{
public:
    /// A new record: a fresh identifier, made now by the environment's user.
    explicit QVKeyedRecordData(const Environment &environment);
    /// A stored record; a key that it lacks takes the value of a new record.
    QVKeyedRecordData(const plist::Dictionary &dictionary, const Environment &environment);

    QVKeyedRecordData(const QVKeyedRecordData &) = default;
    /// Another content is a change.
    QVKeyedRecordData &operator=(const QVKeyedRecordData &other)
    {
        g_dictionary = other.g_dictionary;
        g_savedData = other.g_savedData;
        g_isChanged = true;
        return *this;
    }

    QString identifier() const;
    QString name() const;
    bool needsSync() const;
    bool isSum() const;
    bool recordLocked() const;
    bool recordWasLocked() const;
    Date createdDate() const;
    Date modifiedDate() const;
    Date viewedDate() const;
    QString createdBy() const;
    QString modifiedBy() const;
    QString viewedBy() const;

    QString searchableString() const { return name(); }
    QString description() const { return descriptionWithClassName(QLatin1StringView("QVKeyedRecordData")); }
    /// Orders by description: below, at or above 0.
    int compare(const QVKeyedRecordData &other) const;

    void setIdentifier(const QString &identifier);
    void setName(const QString &name);
    void setNeedsSync(bool needsSync);
    void setIsSum(bool isSum);
    void setRecordLocked(bool locked);
    void setRecordWasLocked(bool wasLocked);
    void setCreatedDate(Date date);
    void setModifiedDate(Date date);
    void setViewedDate(Date date);
    void setCreatedBy(const QString &person);
    void setModifiedBy(const QString &person);
    void setViewedBy(const QString &person);

    /// Stamps a change of content: date, person, and that it has to be synchronized.
    void modified(const Environment &environment);
    /// Stamps that somebody looked: date and person.
    void viewed(const Environment &environment);
    /// The new state; the old one becomes recordWasLocked().
    bool toggleRecordLocked();

    /// What is stored.
    plist::Dictionary dictionary() const { return g_dictionary; }
    /// Whether it is other than what it was loaded from. A new record is.
    bool isChanged() const { return g_isChanged; }
    void markChanged() { g_isChanged = true; }
    /// What the record was loaded from; none for a new one.
    std::optional<plist::Dictionary> savedData() const { return g_savedData; }

protected:
    const plist::Value *storedValue(const QString &key) const { return g_dictionary.find(key); }
    void store(const plist::Value &value, const QString &key)
    {
        g_dictionary.insert(key, value);
        g_isChanged = true;
    }
    QString textForKey(const QString &key) const;
    QString descriptionWithClassName(QLatin1StringView className) const;

private:
    void fillIn(const Environment &environment);
    Date dateForKey(const QString &key) const;
    bool flagForKey(const QString &key) const;
    void setFlag(bool flag, const QString &key);

    plist::Dictionary g_dictionary;
    std::optional<plist::Dictionary> g_savedData;
    bool g_isChanged = false;
};

} // namespace tavrin
