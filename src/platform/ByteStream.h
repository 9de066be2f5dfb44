// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Where bytes come from and go to: a file, or memory in tests. Offsets count from 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace qor {

class ByteSource
{
public:
    virtual ~ByteSource() = default;
    // Fills target from the offset on. Returns how many bytes there were; fewer than asked for at the end.
    virtual std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> target) = 0;
    virtual std::uint64_t Size() const = 0;
};

class ByteSink
{
public:
    virtual ~ByteSink() = default;
    // Writes all bytes at the offset; false when that was not possible.
    virtual bool WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) = 0;
};

} // namespace qor
