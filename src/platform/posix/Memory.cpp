// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Memory.h"

#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>

namespace qor::platform {
namespace {

constexpr std::size_t HugePage = std::size_t{2} << 20;

bool IsMapped(std::size_t bytes) { return bytes >= HugePage; }

std::size_t RoundedUp(std::size_t bytes, std::size_t unit) { return (bytes + unit - 1) / unit * unit; }

// Whole huge pages where that costs a twentieth more at most: the hundreds of small pages behind the last huge one
// would take as long to fill as that one and all before it.
std::size_t MappedSize(std::size_t bytes)
{
    const std::size_t wholePages = RoundedUp(bytes, HugePage);
    if (wholePages - bytes <= bytes / 20) return wholePages;
    return RoundedUp(bytes, static_cast<std::size_t>(sysconf(_SC_PAGESIZE)));
}

// Takes the pages along to memory of that many bytes or more, which they replace there; nothing is copied. False where
// the system cannot.
bool MovePages(void* from, std::size_t bytes, void* to)
{
#ifdef MREMAP_FIXED
    return mremap(from, bytes, bytes, MREMAP_MAYMOVE | MREMAP_FIXED, to) != MAP_FAILED;
#else
    return false;
#endif
}

} // namespace

void* AllocateZeroed(std::size_t bytes) noexcept
{
    if (!IsMapped(bytes)) return std::calloc(1, bytes);
    if (bytes > SIZE_MAX - 2 * HugePage) return nullptr;

    // Huge pages start at multiples of their size: map some more, and give back what lies outside.
    const std::size_t used = MappedSize(bytes);
    void* const mapping = mmap(nullptr, used + HugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) return nullptr;
    auto* const start = static_cast<std::byte*>(mapping);
    const std::size_t before = (HugePage - reinterpret_cast<std::uintptr_t>(start) % HugePage) % HugePage;
    if (before > 0) munmap(start, before);
    munmap(start + before + used, HugePage - before); // at least a page: the mapping starts at one
#ifdef MADV_HUGEPAGE
    madvise(start + before, used, MADV_HUGEPAGE);
#endif
    return start + before;
}

void FreeZeroed(void* memory, std::size_t bytes) noexcept
{
    if (!memory) return;
    if (IsMapped(bytes)) {
        munmap(memory, MappedSize(bytes));
    } else {
        std::free(memory);
    }
}

void* GrowZeroed(void* memory, std::size_t bytes, std::size_t newBytes) noexcept
{
    void* fresh = AllocateZeroed(newBytes);
    if (fresh && IsMapped(bytes)) {
        if (MovePages(memory, MappedSize(bytes), fresh)) return fresh;
        // The system may have given up a part of it, and another thread got that since. So the addresses, which is all
        // that it takes, stay lost.
        fresh = AllocateZeroed(newBytes);
    }
    if (!fresh) return nullptr;
    if (bytes > 0) std::memcpy(fresh, memory, bytes);
    FreeZeroed(memory, bytes);
    return fresh;
}

std::uint64_t UsableMemory() noexcept
{
    // Asked for with every element that is appended, and it does not change.
    static const std::uint64_t usable = [] {
        const long pages = sysconf(_SC_PHYS_PAGES);
        const long page = sysconf(_SC_PAGESIZE);
        if (pages <= 0 || page <= 0) return std::uint64_t{SIZE_MAX};
        return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page);
    }();
    return usable;
}

} // namespace qor::platform
