// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Memory for sample arrays: zeroed, and in huge pages where the system has them, because filling fresh small
// pages costs several times the reading of a file.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qor::platform {

// Zeroed memory, aligned for any type; null when the system refuses. Give it back with FreeZeroed.
void* AllocateZeroed(std::size_t bytes) noexcept;
void FreeZeroed(void* memory, std::size_t bytes) noexcept;
// The same memory with more bytes, zeros behind those that there were; it may have moved. Null, the memory then as it
// was, when the system refuses. Memory that is null has no bytes.
void* GrowZeroed(void* memory, std::size_t bytes, std::size_t newBytes) noexcept;

// Bytes that a process can hope to use: the machine's memory, on Windows no more than the address space.
std::uint64_t UsableMemory() noexcept;

} // namespace qor::platform
