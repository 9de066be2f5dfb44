// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "fileio/RecordWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace qor {

RecordWriter::RecordWriter(ByteSink& sink)
    : sink_(sink), buffer_(std::make_unique_for_overwrite<std::byte[]>(BufferSize))
{}

bool RecordWriter::Flush()
{
    if (!failed_ && buffered_ > 0) {
        const auto offset = static_cast<std::uint64_t>(position_ - 1) - buffered_;
        failed_ = !sink_.WriteAt(offset, {buffer_.get(), buffered_});
    }
    buffered_ = 0;
    return !failed_;
}

void RecordWriter::PutBytes(std::span<const std::byte> bytes)
{
    if (failed_) return;
    if (!FitsPositions(bytes.size())) return;
    if (buffered_ + bytes.size() > BufferSize && !Flush()) return;
    if (bytes.size() > BufferSize) {
        // Arrays go out in one piece, past the buffer.
        failed_ = !sink_.WriteAt(static_cast<std::uint64_t>(position_ - 1), bytes);
    } else if (!bytes.empty()) {
        std::memcpy(buffer_.get() + buffered_, bytes.data(), bytes.size());
        buffered_ += bytes.size();
    }
    position_ += static_cast<FilePosition>(bytes.size());
}

void RecordWriter::RunOut()
{
    Flush();
    failed_ = true;
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

template <class Unsigned>
void RecordWriter::PutUnsigned(Unsigned value)
{
    PutBytes(LittleEndian(value));
}

void RecordWriter::PutInt16(std::int16_t value) { PutUnsigned(static_cast<std::uint16_t>(value)); }
void RecordWriter::PutInt32(std::int32_t value) { PutUnsigned(static_cast<std::uint32_t>(value)); }
void RecordWriter::PutRaw32(std::uint32_t value) { PutUnsigned(value); }
void RecordWriter::PutFloat(float value) { PutUnsigned(std::bit_cast<std::uint32_t>(value)); }

FilePosition RecordWriter::BeginRecord(std::int16_t recordType)
{
    PutInt16(recordType);
    const FilePosition lengthField = position_;
    // The field's own position stands in for the length until the record is closed.
    PutInt32(static_cast<std::int32_t>(lengthField));
    return lengthField;
}

// The record began before what the buffer holds.
void RecordWriter::PatchWritten(FilePosition lengthField, std::uint32_t length)
{
    failed_ = !sink_.WriteAt(static_cast<std::uint64_t>(lengthField - 1), LittleEndian(length));
}

} // namespace qor
