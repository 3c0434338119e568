// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace tavrin {

/// A list that grows at its end without ever moving what it holds: a list of a hundred million elements never
/// needs twice its memory.
template <typename T>
class BlockList
{
public:
    size_t size() const { return g_size; }
    const T &operator[](size_t place) const { return (*g_blocks[place / blockSize])[place % blockSize]; }

    void append(const T &element)
    {
        if (g_size % blockSize == 0)
            g_blocks.push_back(std::make_unique_for_overwrite<Block>());
        (*g_blocks.back())[g_size % blockSize] = element;
        ++g_size;
    }

private:
    static constexpr size_t blockSize = size_t(1) << 12;
    using Block = std::array<T, blockSize>;

    std::vector<std::unique_ptr<Block>> g_blocks;
    size_t g_size = 0;
};

} // namespace tavrin
