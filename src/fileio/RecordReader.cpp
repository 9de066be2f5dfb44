// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "fileio/RecordReader.h"

#include <algorithm>
#include <cstring>

namespace qor {
namespace {

// A reader that jumps from header to header wants few bytes at a time, one that reads on wants many.
constexpr std::size_t SmallestFill = 1024;
constexpr std::size_t LargestFill = std::size_t{128} << 10;

} // namespace

RecordReader::RecordReader(ByteSource& source)
    : source_(source),
      size_(static_cast<std::int64_t>(source.Size())),
      buffer_(std::make_unique_for_overwrite<std::byte[]>(LargestFill)),
      nextFill_(SmallestFill)
{}

std::int64_t RecordReader::BytesLeft() const { return std::max<std::int64_t>(0, size_ - (Position() - 1)); }

// Fills the buffer from the position on.
void RecordReader::Fill()
{
    nextFill_ = readsOn_ ? std::min(nextFill_ * 2, LargestFill) : SmallestFill;
    readsOn_ = true;
    bufferStart_ = Position();
    used_ = 0;
    buffered_ = source_.ReadAt(static_cast<std::uint64_t>(bufferStart_ - 1), {buffer_.get(), nextFill_});
}

void RecordReader::GetBytes(std::span<std::byte> target)
{
    std::size_t done = 0;
    while (done < target.size()) {
        if (used_ == buffered_ && target.size() - done >= LargestFill) {
            // Arrays go to their place without the buffer.
            const std::size_t got = source_.ReadAt(static_cast<std::uint64_t>(Position() - 1), target.subspan(done));
            bufferStart_ = Position() + static_cast<FilePosition>(got);
            buffered_ = used_ = 0;
            done += got;
            break; // all of it, or the file ended
        }
        if (used_ == buffered_) Fill();
        const std::size_t got = std::min(target.size() - done, buffered_ - used_);
        if (got == 0) break;
        std::memcpy(target.data() + done, buffer_.get() + used_, got);
        used_ += got;
        done += got;
    }
    std::fill(target.begin() + static_cast<std::ptrdiff_t>(done), target.end(), std::byte{0});
    atEnd_ = done < target.size();
}

void RecordReader::MoveTo(FilePosition position)
{
    const FilePosition offset = position - bufferStart_;
    if (offset >= 0 && offset <= static_cast<FilePosition>(buffered_)) {
        used_ = static_cast<std::size_t>(offset);
    } else {
        bufferStart_ = position;
        buffered_ = used_ = 0;
        readsOn_ = false;
    }
}

void RecordReader::Skip(std::int64_t bytes)
{
    atEnd_ = bytes > BytesLeft();
    MoveTo(Position() + std::min(bytes, BytesLeft()));
}

FilePosition RecordReader::GetRecordEnd()
{
    const FilePosition behindLength = Position() + 4;
    return behindLength + GetInt32();
}

bool RecordReader::JumpTo(FilePosition end)
{
    if (end < Position() || end > LastPosition) return false;
    MoveTo(end);
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
