// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Memory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <windows.h>

namespace qor::platform {
namespace {

// From here on a reservation of its own beats the heap: it goes back to the system when it is freed.
constexpr std::size_t OwnReservation = std::size_t{2} << 20;

INIT_ONCE measured = INIT_ONCE_STATIC_INIT;
std::uint64_t usableMemory = SIZE_MAX;

[[gnu::force_align_arg_pointer]] BOOL CALLBACK MeasureUsableMemory(INIT_ONCE*, void*, void**)
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (GlobalMemoryStatusEx(&status))
        usableMemory = std::min<std::uint64_t>(status.ullTotalPhys, status.ullTotalVirtual);
    return TRUE;
}

} // namespace

void* AllocateZeroed(std::size_t bytes) noexcept
{
    if (bytes < OwnReservation) return std::calloc(1, bytes);
    return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void FreeZeroed(void* memory, std::size_t bytes) noexcept
{
    if (!memory) return;
    if (bytes < OwnReservation) {
        std::free(memory);
    } else {
        VirtualFree(memory, 0, MEM_RELEASE);
    }
}

void* GrowZeroed(void* memory, std::size_t bytes, std::size_t newBytes) noexcept
{
    void* const fresh = AllocateZeroed(newBytes);
    if (!fresh) return nullptr;
    if (bytes > 0) std::memcpy(fresh, memory, bytes);
    FreeZeroed(memory, bytes);
    return fresh;
}

std::uint64_t UsableMemory() noexcept
{
    // Asked for with every element that is appended, and it does not change.
    InitOnceExecuteOnce(&measured, &MeasureUsableMemory, nullptr, nullptr);
    return usableMemory;
}

} // namespace qor::platform
