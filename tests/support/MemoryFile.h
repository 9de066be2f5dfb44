// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A file in memory, and the bytes that tests put into one.
#pragma once

#include "platform/ByteStream.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace qor::test {

using Bytes = std::vector<std::uint8_t>;

class MemoryFile : public ByteSource, public ByteSink
{
public:
    MemoryFile() = default;
    explicit MemoryFile(Bytes bytes) : bytes_(std::move(bytes)) {}

    const Bytes& Content() const { return bytes_; }

    // From that many bytes on every write fails, as on a full disk.
    void FailBeyond(std::uint64_t size) { limit_ = size; }

    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> target) override
    {
        if (offset >= bytes_.size() || target.empty()) return 0;
        const std::size_t count =
            std::min<std::size_t>(target.size(), bytes_.size() - static_cast<std::size_t>(offset));
        std::memcpy(target.data(), bytes_.data() + offset, count);
        return count;
    }

    bool WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) override
    {
        if (offset + bytes.size() > limit_) return false;
        if (bytes.empty()) return true;
        bytes_.resize(std::max<std::size_t>(bytes_.size(), static_cast<std::size_t>(offset) + bytes.size()));
        std::memcpy(bytes_.data() + offset, bytes.data(), bytes.size());
        return true;
    }

    std::uint64_t Size() const override { return bytes_.size(); }

private:
    Bytes bytes_;
    std::uint64_t limit_ = UINT64_MAX;
};

} // namespace qor::test
