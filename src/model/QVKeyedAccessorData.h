// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <QString>

#include <optional>
#include <utility>

namespace tavrin {

/// A dictionary of settings with typed getters, each with a default, and setters.
///
/// A value; copies are cheap and independent. The dictionary is its only state: keys that nobody asks for
/// stay as they are. A null key is ignored by every setter; setting nothing (a null string, a null value,
/// an empty optional) removes the key.
class QVKeyedAccessorData
{
public:
    /// What this version of the program writes, and the newest format that it reads.
    static constexpr qint64 currentVersion() { return 1; }
    static constexpr qint64 currentFormat() { return 1; }

    /// An accessor over the dictionary; none, and a line in the log, when the data is too new. Further
    /// arguments go to the accessor's constructor.
    template <typename Accessor, typename... Arguments>
    static std::optional<Accessor> accessorWithDictionary(const plist::Dictionary &dictionary,
                                                          Arguments &&...arguments)
    {
        std::optional<Accessor> accessor(std::in_place, std::forward<Arguments>(arguments)...);
        QVKeyedAccessorData &base = *accessor;
        if (!base.takeDictionary(dictionary))
            accessor.reset();
        return accessor;
    }

    /// The dictionary to be stored: stamps it with the current format first.
    const plist::Dictionary &dictionary();
    plist::Dictionary &mutableDictionary() { return g_dictionary; }
    const plist::Dictionary &storedDictionary() const { return g_dictionary; } ///< Without the stamp.
    void setDictionary(const plist::Dictionary &dictionary) { g_dictionary = dictionary; }

    qint64 dataVersion() const;
    void setDataVersion(qint64 version);
    qint64 dataFormat() const;
    void setDataFormat(qint64 format);

    bool settingExistsForKey(const QString &key) const { return g_dictionary.contains(key); }

    bool boolForKey(const QString &key, bool defaultValue) const;
    void setBool(bool value, const QString &key);
    /// Reads 32 bits: a larger stored number comes back truncated, as it always has.
    qint64 integerForKey(const QString &key, qint64 defaultValue) const;
    void setInteger(qint64 value, const QString &key);
    float floatForKey(const QString &key, float defaultValue) const;
    void setFloat(float value, const QString &key);
    plist::Value numberForKey(const QString &key, const plist::Value &defaultValue) const;
    void setNumber(const plist::Value &value, const QString &key);
    /// The default stands for an empty string, too.
    QString stringForKey(const QString &key, const QString &defaultValue) const;
    void setString(const QString &value, const QString &key);
    std::optional<plist::Array> arrayForKey(const QString &key,
                                            const std::optional<plist::Array> &defaultValue) const;
    void setArray(const std::optional<plist::Array> &value, const QString &key);
    std::optional<plist::Dictionary>
    dictionaryForKey(const QString &key, const std::optional<plist::Dictionary> &defaultValue) const;
    void setDictionary(const std::optional<plist::Dictionary> &value, const QString &key);
    plist::Value objectForKey(const QString &key, const plist::Value &defaultValue = {}) const;
    void setObject(const plist::Value &value, const QString &key);

    /// The accessor over the dictionary under the key (an empty one when absent); none when too new.
    template <typename Accessor>
    std::optional<Accessor> keyedAccessorForKey(const QString &key) const
    {
        return accessorWithDictionary<Accessor>(dictionaryForKey(key, plist::Dictionary()).value());
    }

    /// Stores the accessor's stamped dictionary; an empty optional removes the key.
    template <typename Accessor>
    void setKeyedAccessor(std::optional<Accessor> accessor, const QString &key)
    {
        setObject(accessor ? plist::Value(accessor->dictionary()) : plist::Value(), key);
    }
    template <typename Accessor>
    void setKeyedAccessor(Accessor accessor, const QString &key)
    {
        setObject(accessor.dictionary(), key);
    }

protected:
    QVKeyedAccessorData() = default;

private:
    bool takeDictionary(const plist::Dictionary &dictionary);

    plist::Dictionary g_dictionary;
};

} // namespace tavrin
