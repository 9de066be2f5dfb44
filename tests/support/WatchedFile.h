// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Files in memory that count what is done to them, or refuse one write.
#pragma once

#include "support/MemoryFile.h"

namespace qor::test {

// Counts the bytes that are read, repetitions included.
class CountingFile : public MemoryFile
{
public:
    using MemoryFile::MemoryFile;

    std::size_t BytesRead() const { return bytesRead_; }

    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> target) override
    {
        const std::size_t got = MemoryFile::ReadAt(offset, target);
        bytesRead_ += got;
        return got;
    }

private:
    std::size_t bytesRead_ = 0;
};

// Refuses the write of that number, counted from 1, and takes all others. 0 refuses none.
class FailingOnce : public MemoryFile
{
public:
    explicit FailingOnce(int refused) : refused_(refused) {}

    int Writes() const { return writes_; }

    bool WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) override
    {
        return ++writes_ != refused_ && MemoryFile::WriteAt(offset, bytes);
    }

private:
    int refused_;
    int writes_ = 0;
};

// Keeps no bytes, only how far they reached: for files that no test could hold.
class BottomlessSink : public ByteSink
{
public:
    std::uint64_t End() const { return end_; }

    bool WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) override
    {
        end_ = std::max(end_, offset + bytes.size());
        return true;
    }

private:
    std::uint64_t end_ = 0;
};

} // namespace qor::test
