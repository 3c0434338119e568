// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/BinaryCheck.h"

#include "plist/ReadError.h"
#include "plist/Reader.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace tavrin::plist {

namespace {

/// What the bounds need to know of an object.
struct Unfolded
{
    quint64 extent = 1; ///< The values it unfolds to, itself included.
    int height = 0;     ///< The levels of containers in it, itself included.
};

/// An operation that fails says so by none or false, and has then set the error.
class BinaryChecker
{
public:
    explicit BinaryChecker(const BinaryTable &table) : g_table(table), g_states(table.count(), unread) {}

    bool checkRoot();
    const Error &error() const { return g_error; }

private:
    // A state from `container` on is that of a container whose bounds are g_containers[state - container].
    static constexpr quint32 unread = 0;
    static constexpr quint32 reading = 1;
    static constexpr quint32 simple = 2;
    static constexpr quint32 uid = 3;
    static constexpr quint32 container = 4;

    bool fail(quint64 offset, const char *reason);
    std::optional<Unfolded> unfolded(quint64 index, int depth);
    std::optional<quint32> stateOf(quint64 index, int depth);
    std::optional<quint32> stateOfContainer(const BinaryTable::Object &object, int depth);
    bool addMember(Unfolded &to, quint64 index, int depth);
    bool checkKey(quint64 index);

    const BinaryTable &g_table;
    std::vector<quint32> g_states;
    std::vector<Unfolded> g_containers;
    quint64 g_current = 0; ///< Offset of the object being looked at.
    quint64 g_bytesTaken = 0;
    Error g_error;
};

bool BinaryChecker::fail(quint64 offset, const char *reason)
{
    g_error = corruptAtOffset(offset, reason);
    return false;
}

bool BinaryChecker::checkRoot()
{
    if (!unfolded(g_table.root(), 0))
        return false;
    return !g_table.isNull(g_table.root())
           || fail(g_table.offsetOf(g_table.root()), BinaryFault::holdsNothing);
}

std::optional<Unfolded> BinaryChecker::unfolded(quint64 index, int depth)
{
    if (index >= g_table.count()) {
        fail(g_current, BinaryFault::noSuchObject);
        return {};
    }
    if (g_states[index] == unread) {
        g_states[index] = reading;
        const quint64 parent = std::exchange(g_current, g_table.offsetOf(index));
        const std::optional<quint32> state = stateOf(index, depth);
        if (!state)
            return {};
        g_current = parent;
        g_states[index] = *state;
    } else if (g_states[index] == reading) {
        fail(g_table.offsetOf(index), BinaryFault::cycle);
        return {};
    }
    const quint32 state = g_states[index];
    if (state >= container)
        return g_containers[state - container];
    return Unfolded{1, state == uid ? 1 : 0};
}

std::optional<quint32> BinaryChecker::stateOf(quint64 index, int depth)
{
    const Result<BinaryTable::Object> object = g_table.object(index);
    if (!object) {
        g_error = object.error();
        return {};
    }
    g_bytesTaken += object->size;
    if (g_bytesTaken > g_table.fileSize()) {
        fail(g_current, BinaryFault::overlap);
        return {};
    }
    if (object->isContainer())
        return stateOfContainer(*object, depth);
    if (!BinaryTable::isSound(*object)) {
        fail(g_current, BinaryFault::malformed);
        return {};
    }
    return object->isUid() ? uid : simple;
}

std::optional<quint32> BinaryChecker::stateOfContainer(const BinaryTable::Object &object, int depth)
{
    if (depth == maximumDepth) {
        fail(g_current, BinaryFault::tooDeep);
        return {};
    }
    Unfolded bounds{1, 1};
    const qsizetype count = g_table.memberCount(object);
    for (qsizetype place = 0; place < count; ++place) {
        const quint64 index = g_table.member(object, place);
        if (!addMember(bounds, index, depth + 1))
            return {};
        if (object.isDictionary()
            && (!checkKey(index) || !addMember(bounds, g_table.valueMember(object, place), depth + 1)))
            return {};
    }
    g_containers.push_back(bounds);
    return static_cast<quint32>(container + g_containers.size() - 1);
}

bool BinaryChecker::addMember(Unfolded &to, quint64 index, int depth)
{
    const std::optional<Unfolded> inner = unfolded(index, depth);
    if (!inner)
        return false;
    to.height = std::max(to.height, inner->height + 1);
    to.extent += inner->extent;
    if (to.height > maximumDepth)
        return fail(g_current, BinaryFault::tooDeep);
    return to.extent <= g_table.largestExtent() || fail(g_current, BinaryFault::tooLarge);
}

bool BinaryChecker::checkKey(quint64 index)
{
    return g_table.object(index)->hasText() || fail(g_current, BinaryFault::keyIsNoText);
}

} // namespace

Result<> checkObjects(const BinaryTable &table)
{
    if (table.count() > std::numeric_limits<quint32>::max() - 4)
        return Error{Error::Kind::Unsupported, {}, QStringLiteral("too many objects")};
    BinaryChecker checker(table);
    if (!checker.checkRoot())
        return checker.error();
    return {};
}

} // namespace tavrin::plist
