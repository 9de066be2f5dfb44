// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "datablock/SampleArray.h"

#include "platform/Memory.h"

namespace qor {
namespace {

constexpr std::size_t OwnMapping = std::size_t{2} << 20; // arrays from here on are worth a mapping of their own
constexpr std::size_t SmallestBlock = std::size_t{64} << 10;
constexpr std::size_t LargestBlock = std::size_t{8} << 20;
constexpr std::size_t Alignment = 16;

std::shared_ptr<std::byte> AllocateBlock(std::size_t bytes) noexcept
{
    auto* const memory = static_cast<std::byte*>(platform::AllocateZeroed(bytes));
    if (!memory) return nullptr;
    try {
        return std::shared_ptr<std::byte>(memory, [bytes](std::byte* block) { platform::FreeZeroed(block, bytes); });
    } catch (const std::bad_alloc&) {
        return nullptr; // the deleter has run
    }
}

} // namespace

std::shared_ptr<void> SampleMemory::Allocate(std::size_t bytes) noexcept
{
    if (bytes >= OwnMapping) return AllocateBlock(bytes);
    const std::size_t aligned = (bytes + Alignment - 1) / Alignment * Alignment;
    if (!block_ || blockSize_ - used_ < aligned) {
        const std::size_t size = std::max(aligned, std::clamp(2 * blockSize_, SmallestBlock, LargestBlock));
        block_ = AllocateBlock(size);
        blockSize_ = block_ ? size : 0;
        used_ = 0;
        if (!block_) return nullptr;
    }
    std::shared_ptr<void> array(block_, block_.get() + used_);
    used_ += aligned;
    return array;
}

} // namespace qor
