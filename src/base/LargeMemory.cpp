// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/LargeMemory.h"

#include <sys/mman.h>

#include <memory>

namespace tavrin {

namespace {

constexpr size_t hugePage = size_t(2) << 20;
constexpr size_t page = size_t(4) << 10;

constexpr size_t roundedUp(size_t size)
{
    return (size + page - 1) / page * page;
}

} // namespace

void *LargeMemory::allocate(size_t size)
{
    const size_t wanted = roundedUp(size);
    const size_t mapped = wanted + hugePage;
    void *memory = ::mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        return nullptr;
    void *aligned = memory;
    size_t room = mapped;
    std::align(hugePage, wanted, aligned, room);
    // What is around it goes back.
    if (mapped > room)
        ::munmap(memory, mapped - room);
    if (room > wanted)
        ::munmap(static_cast<char *>(aligned) + wanted, room - wanted);
#ifdef MADV_HUGEPAGE
    ::madvise(aligned, wanted, MADV_HUGEPAGE);
#endif
    return aligned;
}

void LargeMemory::release(void *memory, size_t size)
{
    ::munmap(memory, roundedUp(size));
}

} // namespace tavrin
