// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "fileio/RecordReader.h"

#include <algorithm>
#include <cstring>

namespace qor {
namespace {

// A reader that jumps from header to header wants few bytes at a time, one that reads on wants many.
constexpr std::size_t SmallestFill = 1024;
constexpr std::size_t LargestFill = 65536;

} // namespace

RecordReader::RecordReader(ByteSource& source)
    : source_(source), size_(static_cast<std::int64_t>(source.Size())), buffer_(LargestFill), nextFill_(SmallestFill)
{}

std::int64_t RecordReader::BytesLeft() const { return std::max<std::int64_t>(0, size_ - (position_ - 1)); }

void RecordReader::Fill()
{
    const bool readsOn = position_ == bufferStart_ + static_cast<FilePosition>(buffered_);
    nextFill_ = readsOn ? std::min(nextFill_ * 2, LargestFill) : SmallestFill;
    bufferStart_ = position_;
    buffered_ = source_.ReadAt(static_cast<std::uint64_t>(position_ - 1), std::span(buffer_).first(nextFill_));
}

void RecordReader::GetBytes(std::span<std::byte> target)
{
    std::size_t done = 0;
    while (done < target.size()) {
        const FilePosition offset = position_ - bufferStart_;
        std::size_t got = 0;
        if (IsBuffered(1)) {
            got = std::min(target.size() - done, buffered_ - static_cast<std::size_t>(offset));
            std::memcpy(target.data() + done, buffer_.data() + offset, got);
        } else if (target.size() - done >= LargestFill) {
            // Arrays go to their place without the buffer.
            got = source_.ReadAt(static_cast<std::uint64_t>(position_ - 1), target.subspan(done));
            bufferStart_ = position_ + static_cast<FilePosition>(got);
            buffered_ = 0;
        } else {
            Fill();
            if (buffered_ > 0) continue;
        }
        if (got == 0) break;
        done += got;
        position_ += static_cast<FilePosition>(got);
    }
    std::fill(target.begin() + static_cast<std::ptrdiff_t>(done), target.end(), std::byte{0});
    atEnd_ = done < target.size();
}

bool RecordReader::GetTag(std::int16_t& tag)
{
    tag = GetInt16();
    return !atEnd_;
}

void RecordReader::MoveTo(FilePosition position) { position_ = position; }

void RecordReader::Skip(std::int64_t bytes)
{
    atEnd_ = bytes > BytesLeft();
    position_ += std::min(bytes, BytesLeft());
}

FilePosition RecordReader::GetRecordEnd()
{
    const FilePosition behindLength = position_ + 4;
    return behindLength + GetInt32();
}

bool RecordReader::JumpTo(FilePosition end)
{
    if (end < position_ || end > LastPosition) return false;
    position_ = end;
    return true;
}

bool RecordReader::SkipRecord()
{
    const bool atEnd = atEnd_;
    const FilePosition end = GetRecordEnd();
    atEnd_ = atEnd; // looking at a length is no read of its own
    return JumpTo(end);
}

} // namespace qor
