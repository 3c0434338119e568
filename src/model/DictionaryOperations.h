// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

namespace tavrin {

/// What a missing object does to the key that it is to be stored under.
enum class NilObject { RemovesKey, ChangesNothing };

inline plist::Value
objectForKey(const plist::Dictionary &dictionary, const QString &key, const plist::Value &defaultValue)
{
    const plist::Value *value = dictionary.find(key);
    return value ? *value : defaultValue;
}

/// Stores the default in place of a null object; nothing when both are null.
inline void setObjectOrDefault(plist::Dictionary &dictionary,
                               const plist::Value &object,
                               const QString &key,
                               const plist::Value &defaultValue)
{
    const plist::Value &chosen = object.isNull() ? defaultValue : object;
    if (!chosen.isNull())
        dictionary.insert(key, chosen);
}

inline void
setObject(plist::Dictionary &dictionary, const plist::Value &object, const QString &key, NilObject nilObject)
{
    if (!object.isNull() || nilObject == NilObject::RemovesKey)
        dictionary.insert(key, object);
}

} // namespace tavrin
