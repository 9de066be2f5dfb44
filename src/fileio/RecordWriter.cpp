// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "fileio/RecordWriter.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace qor {
namespace {

constexpr std::size_t BufferSize = std::size_t{256} << 10; // fewer system calls; more gains nothing

} // namespace

RecordWriter::RecordWriter(ByteSink& sink) : sink_(sink), buffer_(BufferSize) {}

bool RecordWriter::Flush()
{
    if (!failed_ && buffered_ > 0) {
        const auto offset = static_cast<std::uint64_t>(position_ - 1) - buffered_;
        failed_ = !sink_.WriteAt(offset, std::span(buffer_).first(buffered_));
        buffered_ = 0;
    }
    return !failed_;
}

void RecordWriter::PutBytes(std::span<const std::byte> bytes)
{
    if (failed_) return;
    if (static_cast<std::uint64_t>(LastPosition - (position_ - 1)) < bytes.size()) {
        Flush();
        failed_ = true;
        return;
    }
    if (buffered_ + bytes.size() > buffer_.size() && !Flush()) return;
    if (bytes.size() > buffer_.size()) {
        // Arrays go out in one piece, past the buffer.
        failed_ = !sink_.WriteAt(static_cast<std::uint64_t>(position_ - 1), bytes);
    } else if (!bytes.empty()) {
        std::memcpy(buffer_.data() + buffered_, bytes.data(), bytes.size());
        buffered_ += bytes.size();
    }
    position_ += static_cast<FilePosition>(bytes.size());
}

void RecordWriter::PutZeros(std::int64_t bytes)
{
    static constexpr std::array<std::byte, 4096> zeros{};
    while (bytes > 0 && !failed_) {
        const auto piece = std::min<std::int64_t>(bytes, zeros.size());
        PutBytes(std::span(zeros).first(static_cast<std::size_t>(piece)));
        bytes -= piece;
    }
}

FilePosition RecordWriter::BeginRecord(std::int16_t recordType)
{
    PutInt16(recordType);
    const FilePosition lengthField = position_;
    // The field's own position stands in for the length until the record is closed.
    PutInt32(static_cast<std::int32_t>(lengthField));
    return lengthField;
}

void RecordWriter::PatchRecordLength(FilePosition lengthField)
{
    if (failed_) return;
    const auto bytes = LittleEndian(static_cast<std::uint32_t>(position_ - (lengthField + 4)));
    const FilePosition bufferStart = position_ - static_cast<FilePosition>(buffered_);
    if (lengthField < bufferStart && lengthField + 4 > bufferStart && !Flush()) return;
    if (lengthField >= bufferStart && buffered_ > 0) {
        std::memcpy(buffer_.data() + (lengthField - bufferStart), bytes.data(), bytes.size());
    } else {
        failed_ = !sink_.WriteAt(static_cast<std::uint64_t>(lengthField - 1), bytes);
    }
}

} // namespace qor
