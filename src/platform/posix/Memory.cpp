// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Memory.h"

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace qor::platform {
namespace {

constexpr std::size_t HugePage = std::size_t{2} << 20;

bool IsMapped(std::size_t bytes) { return bytes >= HugePage; }

} // namespace

void* AllocateZeroed(std::size_t bytes) noexcept
{
    if (!IsMapped(bytes)) return std::calloc(1, bytes);
    if (bytes > SIZE_MAX - HugePage) return nullptr;

    // Huge pages start at multiples of their size: map some more, and give back what lies outside.
    void* const mapping = mmap(nullptr, bytes + HugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) return nullptr;
    auto* const start = static_cast<std::byte*>(mapping);
    const std::size_t before = (HugePage - reinterpret_cast<std::uintptr_t>(start) % HugePage) % HugePage;
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t used = (bytes + page - 1) / page * page;
    if (before > 0) munmap(start, before);
    if (before + used < bytes + HugePage) munmap(start + before + used, bytes + HugePage - before - used);
#ifdef MADV_HUGEPAGE
    madvise(start + before, used, MADV_HUGEPAGE);
#endif
    return start + before;
}

void FreeZeroed(void* memory, std::size_t bytes) noexcept
{
    if (!memory) return;
    if (IsMapped(bytes)) {
        munmap(memory, bytes);
    } else {
        std::free(memory);
    }
}

std::uint64_t UsableMemory() noexcept
{
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long page = sysconf(_SC_PAGESIZE);
    if (pages <= 0 || page <= 0) return SIZE_MAX;
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page);
}

} // namespace qor::platform
