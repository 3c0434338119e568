// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/NotFound.h"
#include "plist/Value.h"

#include <QList>
#include <QSet>

#include <algorithm>

namespace tavrin {

template <typename List>
bool isValidIndex(const List &list, qint64 index)
{
    return index >= 0 && index < static_cast<qint64>(list.size());
}

/// The index of the first element that holds the value under the key, or NotFound. The search ends at the
/// first element that is no dictionary.
inline qint64 indexOfObjectMatching(const plist::Array &array, const plist::Value &value, const QString &key)
{
    for (qsizetype i = 0; i < array.size(); ++i) {
        const plist::Dictionary *element = array[i].dictionary();
        if (!element)
            break;
        if (const plist::Value *found = element->find(key); found && *found == value)
            return i;
    }
    return NotFound;
}

/// The element itself; a null value when there is none.
inline plist::Value objectMatching(const plist::Array &array, const plist::Value &value, const QString &key)
{
    const qint64 index = indexOfObjectMatching(array, value, key);
    return index == NotFound ? plist::Value() : array[index];
}

template <typename T>
QList<T> reverseArray(const QList<T> &list)
{
    return QList<T>(list.crbegin(), list.crend());
}

/// Inserts where the index allows; otherwise at the end, or at the front. The index used.
template <typename T>
qint64 insertObject(QList<T> &list, const T &object, qint64 index, bool orEnd)
{
    if (index < 0 || index > list.size())
        index = orEnd ? list.size() : 0;
    list.insert(index, object);
    return index;
}

template <typename T>
void insertObjectsFromArray(QList<T> &list, const QList<T> &objects, qint64 index)
{
    QList<T> result;
    result.reserve(list.size() + objects.size());
    result << list.first(index) << objects << list.sliced(index);
    list = result;
}

/// Moves rows: takes the objects that are already there out of the list, then inserts all of them before
/// the element that stood at the index, or at the end when there was none.
template <typename T>
void insertOrMoveObjectsFromArray(QList<T> &list, const QList<T> &objects, qint64 index)
{
    const QSet<T> moving(objects.cbegin(), objects.cend());
    const auto isMoving = [&moving](const T &element) { return moving.contains(element); };
    if (isValidIndex(list, index))
        index -= std::count_if(list.cbegin(), list.cbegin() + index, isMoving);
    list.removeIf(isMoving);
    insertObjectsFromArray(list, objects, isValidIndex(list, index) ? index : list.size());
}

/// The elements at the indexes, in that order.
template <typename T, typename Indexes>
QList<T> arrayWithIndexes(const QList<T> &list, const Indexes &indexes)
{
    QList<T> result;
    for (const auto index : indexes)
        result.append(list.at(index));
    return result;
}

} // namespace tavrin
