// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>

#include <utility>
#include <vector>

namespace tavrin {

/// A map that keeps the order in which keys came: small ones are searched, large ones hashed.
///
/// Look-up, insertion and removal are constant time (amortised); a value set again keeps its place.
/// Removed places are closed up now and then, so that iteration stays proportional to size().
template <typename Key, typename Value>
class OrderedMap
{
public:
    qsizetype size() const { return g_size; }
    bool isEmpty() const { return g_size == 0; }

    bool contains(const Key &key) const { return indexOf(key) >= 0; }

    /// The value under the key, null when there is none. Valid until the next insertion or removal.
    const Value *find(const Key &key) const
    {
        const qsizetype index = indexOf(key);
        return index < 0 ? nullptr : &g_slots[static_cast<size_t>(index)].value;
    }
    Value *find(const Key &key) { return const_cast<Value *>(std::as_const(*this).find(key)); }

    void insert(const Key &key, Value value)
    {
        if (Value *present = find(key)) {
            *present = std::move(value);
            return;
        }
        g_slots.push_back({key, std::move(value), true});
        ++g_size;
        if (!g_index.isEmpty())
            g_index.insert(key, static_cast<qsizetype>(g_slots.size()) - 1);
        else if (g_slots.size() > hashedFrom)
            rebuildIndex();
    }

    /// Removes the key; the value that stood there, or a default one.
    Value take(const Key &key)
    {
        const qsizetype index = indexOf(key);
        if (index < 0)
            return Value();
        Slot &slot = g_slots[static_cast<size_t>(index)];
        Value value = std::move(slot.value);
        slot = Slot{Key(), Value(), false};
        --g_size;
        g_index.remove(key);
        if (g_slots.size() > 2 * static_cast<size_t>(g_size) + hashedFrom || g_size == 0)
            compact();
        return value;
    }

    /// Calls visitor(key, value) for each entry in order; a visitor must not insert or remove.
    template <typename Visitor>
    void forEach(Visitor &&visitor) const
    {
        for (const Slot &slot : g_slots) {
            if (slot.used)
                visitor(slot.key, slot.value);
        }
    }

    void reserve(qsizetype count)
    {
        g_slots.reserve(static_cast<size_t>(count));
        if (static_cast<size_t>(count) > hashedFrom)
            g_index.reserve(count);
    }

    void clear() { *this = OrderedMap(); }

private:
    struct Slot
    {
        Key key;
        Value value;
        bool used;
    };

    static constexpr size_t hashedFrom = 16;

    qsizetype indexOf(const Key &key) const
    {
        if (!g_index.isEmpty())
            return g_index.value(key, -1);
        for (size_t i = 0; i < g_slots.size(); ++i) {
            if (g_slots[i].used && g_slots[i].key == key)
                return static_cast<qsizetype>(i);
        }
        return -1;
    }

    void compact()
    {
        std::erase_if(g_slots, [](const Slot &slot) { return !slot.used; });
        rebuildIndex();
    }

    void rebuildIndex()
    {
        g_index.clear();
        if (g_slots.size() <= hashedFrom)
            return;
        g_index.reserve(static_cast<qsizetype>(g_slots.size()));
        for (size_t i = 0; i < g_slots.size(); ++i) {
            if (g_slots[i].used)
                g_index.insert(g_slots[i].key, static_cast<qsizetype>(i));
        }
    }

    std::vector<Slot> g_slots;
    QHash<Key, qsizetype> g_index; ///< Empty while the map is small.
    qsizetype g_size = 0;
};

} // namespace tavrin
