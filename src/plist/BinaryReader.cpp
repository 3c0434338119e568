// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/BinaryReader.h"

#include "plist/ReadError.h"
#include "plist/Reader.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tavrin::plist {

namespace {

/// Builds an object and those that it needs, each once.
///
/// An operation that fails says so by null or false, and has then set the error.
class BinaryBuilder
{
public:
    explicit BinaryBuilder(const BinaryTable &table) : g_table(table) {}

    Result<Value> buildRoot();
    /// Keeps no place for the objects that are not needed.
    Result<Value> build(quint64 index);

private:
    enum class State : quint8 { Unread, Reading, Read };

    struct Built
    {
        Value value;
        quint64 extent = 1; ///< The values it unfolds to, itself included.
        int height = 0;     ///< The levels of containers in it, itself included.
        State state = State::Unread;
    };

    bool fail(quint64 offset, const char *reason);
    Built &placeOf(quint64 index) { return g_all.empty() ? g_some[index] : g_all[index]; }

    const Built *built(quint64 index, int depth);
    bool build(Built &built, quint64 index, int depth);
    bool buildArray(Built &built, const BinaryTable::Object &object, int depth);
    bool buildDictionary(Built &built, const BinaryTable::Object &object, int depth);
    const Value *member(Built &container, quint64 index, int depth);

    const BinaryTable &g_table;
    std::vector<Built> g_all;
    std::unordered_map<quint64, Built> g_some;
    quint64 g_current = 0; ///< Offset of the object being built.
    quint64 g_bytesTaken = 0;
    Error g_error;
};

bool BinaryBuilder::fail(quint64 offset, const char *reason)
{
    g_error = corruptAtOffset(offset, reason);
    return false;
}

Result<Value> BinaryBuilder::buildRoot()
{
    g_all.resize(g_table.count());
    Result<Value> root = build(g_table.root());
    if (root && root->isNull())
        return corruptAtOffset(g_table.offsetOf(g_table.root()), BinaryFault::holdsNothing);
    return root;
}

Result<Value> BinaryBuilder::build(quint64 index)
{
    const Built *found = built(index, 0);
    if (!found)
        return g_error;
    return found->value;
}

const BinaryBuilder::Built *BinaryBuilder::built(quint64 index, int depth)
{
    if (index >= g_table.count()) {
        fail(g_current, BinaryFault::noSuchObject);
        return nullptr;
    }
    Built &built = placeOf(index);
    if (built.state == State::Read)
        return &built;
    const quint64 offset = g_table.offsetOf(index);
    if (built.state == State::Reading) {
        fail(offset, BinaryFault::cycle);
        return nullptr;
    }
    built.state = State::Reading;
    const quint64 parent = std::exchange(g_current, offset);
    if (!build(built, index, depth))
        return nullptr;
    g_current = parent;
    built.state = State::Read;
    return &built;
}

bool BinaryBuilder::build(Built &built, quint64 index, int depth)
{
    const Result<BinaryTable::Object> object = g_table.object(index);
    if (!object) {
        g_error = object.error();
        return false;
    }
    // Objects of an honest file do not overlap. Were they allowed to, a small file could hold many large
    // ones.
    g_bytesTaken += object->size;
    if (g_bytesTaken > g_table.fileSize())
        return fail(g_current, BinaryFault::overlap);
    if (!object->isContainer()) {
        // In the XML form a reference of an archive takes a dictionary of its own.
        built.height = object->isUid() ? 1 : 0;
        std::optional<Value> value = BinaryTable::simpleValue(*object);
        if (!value)
            return fail(g_current, BinaryFault::malformed);
        built.value = *std::move(value);
        return true;
    }
    if (depth == maximumDepth)
        return fail(g_current, BinaryFault::tooDeep);
    built.height = 1;
    return object->isDictionary() ? buildDictionary(built, *object, depth + 1)
                                  : buildArray(built, *object, depth + 1);
}

bool BinaryBuilder::buildArray(Built &built, const BinaryTable::Object &object, int depth)
{
    Array array;
    const qsizetype count = g_table.memberCount(object);
    array.reserve(count);
    for (qsizetype place = 0; place < count; ++place) {
        const Value *value = member(built, g_table.member(object, place), depth);
        if (!value)
            return false;
        array.append(*value);
    }
    built.value = std::move(array);
    return true;
}

bool BinaryBuilder::buildDictionary(Built &built, const BinaryTable::Object &object, int depth)
{
    Dictionary dictionary;
    const qsizetype count = g_table.memberCount(object);
    if (count > 0)
        dictionary.reserve(count);
    for (qsizetype place = 0; place < count; ++place) {
        const Value *key = member(built, g_table.member(object, place), depth);
        if (!key)
            return false;
        const QString text = key->toText();
        if (text.isNull())
            return fail(g_current, BinaryFault::keyIsNoText);
        const Value *value = member(built, g_table.valueMember(object, place), depth);
        if (!value)
            return false;
        // Of equal keys the first counts.
        if (!dictionary.contains(text))
            dictionary.insert(text, *value);
    }
    built.value = std::move(dictionary);
    return true;
}

// A member of the container, whose height and extent grow by it.
const Value *BinaryBuilder::member(Built &container, quint64 index, int depth)
{
    const Built *inner = built(index, depth);
    if (!inner)
        return nullptr;
    container.height = std::max(container.height, inner->height + 1);
    container.extent += inner->extent;
    if (container.height > maximumDepth) {
        fail(g_current, BinaryFault::tooDeep);
        return nullptr;
    }
    if (container.extent > g_table.largestExtent()) {
        fail(g_current, BinaryFault::tooLarge);
        return nullptr;
    }
    return &inner->value;
}

} // namespace

Result<Value> readBinary(QByteArrayView bytes)
{
    const Result<BinaryTable> table = BinaryTable::of(bytes);
    if (!table)
        return table.error();
    return BinaryBuilder(*table).buildRoot();
}

Value readBinaryObject(const BinaryTable &table, quint64 index)
{
    const Result<BinaryTable::Object> object = table.object(index);
    if (!object)
        return {};
    const Result<Value> value = object->isContainer() ? BinaryBuilder(table).build(index)
                                                      : BinaryTable::simpleValue(*object).value_or(Value());
    return value.value_or(Value());
}

} // namespace tavrin::plist
