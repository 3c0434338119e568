// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/LargeMemory.h"

#include <bit>
#include <type_traits>
#include <vector>

namespace tavrin {

/// A list that grows at its end without ever moving what it holds: a list of a hundred million elements never
/// needs twice its memory. Each block has twice the room of the one before, and takes memory as it is filled.
template <typename T>
class BlockList
{
    static_assert(std::is_trivially_copyable_v<T>);

public:
    BlockList() = default;
    BlockList(const BlockList &) = delete;
    BlockList &operator=(const BlockList &) = delete;
    ~BlockList()
    {
        for (size_t block = 0; block < g_blocks.size(); ++block)
            LargeMemory::Allocator<T>().deallocate(g_blocks[block], firstSize << block);
    }

    size_t size() const
    {
        return (firstSize << g_blocks.size()) - firstSize - static_cast<size_t>(g_end - g_next);
    }

    const T &operator[](size_t place) const
    {
        // Counted so, each block begins at a power of two.
        const size_t number = place + firstSize;
        const auto block = static_cast<size_t>(std::bit_width(number / firstSize)) - 1;
        return g_blocks[block][number - (firstSize << block)];
    }

    void append(const T &element)
    {
        if (g_next == g_end)
            addBlock();
        *g_next++ = element;
    }

private:
    static constexpr size_t firstSize = size_t(1) << 12;

    void addBlock()
    {
        const size_t size = firstSize << g_blocks.size();
        g_blocks.reserve(g_blocks.size() + 1);
        g_next = LargeMemory::Allocator<T>().allocate(size);
        g_end = g_next + size;
        g_blocks.push_back(g_next);
    }

    std::vector<T *> g_blocks;
    T *g_next = nullptr; ///< In the last block: where the next element goes.
    T *g_end = nullptr;
};

} // namespace tavrin
