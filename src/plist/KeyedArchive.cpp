// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/KeyedArchive.h"

#include "plist/Reader.h"

#include <algorithm>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

std::optional<KeyedArchive> KeyedArchive::open(const QByteArray &bytes)
{
    const Result<Dictionary> archive = readDictionary(bytes);
    if (!archive || archive->value(u"$archiver"_s) != Value(u"NSKeyedArchiver"_s))
        return {};
    const Value objects = archive->value(u"$objects"_s);
    const Value top = archive->value(u"$top"_s);
    if (!objects.isArray() || !top.isDictionary())
        return {};
    return KeyedArchive(*objects.array(), top.dictionary()->value(u"root"_s));
}

Value KeyedArchive::resolved(const Value &value) const
{
    const Uid *uid = value.uid();
    if (!uid)
        return value;
    // The first object stands for nil.
    if (uid->index == 0 || static_cast<qsizetype>(uid->index) >= g_objects.size())
        return {};
    const Value &object = g_objects[static_cast<qsizetype>(uid->index)];
    return object.uid() ? Value() : object;
}

bool KeyedArchive::isKindOf(const Dictionary &object, const QString &className) const
{
    const Value archivedClass = member(object, u"$class"_s);
    const Dictionary *description = archivedClass.dictionary();
    if (!description)
        return false;
    const Value names = description->value(u"$classes"_s);
    return description->value(u"$classname"_s) == Value(className)
           || (names.isArray() && names.array()->contains(Value(className)));
}

} // namespace tavrin::plist
