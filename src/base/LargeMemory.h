// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace tavrin {

/// Memory in huge pages where the system has them, for what grows with the number of records: touching a page
/// for the first time costs more than most of what is done with it, and huge ones cost the least.
namespace LargeMemory {

/// Whatever is smaller would waste too much of a page.
constexpr size_t smallest = size_t(4) << 20;

/// So many zero bytes; untouched, they take no memory. Null when there is not so much.
void *allocate(size_t size);
void release(void *memory, size_t size);

/// Gives large blocks such memory, and small ones the usual one.
template <typename T>
struct Allocator
{
    using value_type = T;

    Allocator() = default;
    template <typename Other>
    explicit Allocator(const Allocator<Other> & /*other*/)
    {}

    T *allocate(size_t count)
    {
        const size_t size = count * sizeof(T);
        if (size < smallest)
            return static_cast<T *>(::operator new(size));
        if (void *memory = LargeMemory::allocate(size))
            return static_cast<T *>(memory);
        throw std::bad_alloc();
    }

    void deallocate(T *memory, size_t count)
    {
        const size_t size = count * sizeof(T);
        if (size < smallest)
            ::operator delete(memory);
        else
            LargeMemory::release(memory, size);
    }

    bool operator==(const Allocator & /*other*/) const { return true; }
};

} // namespace LargeMemory

template <typename T>
using LargeVector = std::vector<T, LargeMemory::Allocator<T>>;

} // namespace tavrin
