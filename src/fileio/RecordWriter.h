// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Writes the items of a document file, buffered, and patches record lengths once they are known. The first
// write that fails, or that would pass the last 32-bit position, makes the writer failed for good; nothing is
// written from then on. Layout: docs/formats/framing.md.
#pragma once

#include "fileio/RecordReader.h" // FilePosition

namespace qor {

class RecordWriter
{
public:
    explicit RecordWriter(ByteSink& sink);

    FilePosition Position() const { return position_; }
    bool Failed() const { return failed_; }

    void PutInt16(std::int16_t value) { PutUnsigned(static_cast<std::uint16_t>(value)); }
    void PutInt32(std::int32_t value) { PutUnsigned(static_cast<std::uint32_t>(value)); }
    void PutRaw32(std::uint32_t value) { PutUnsigned(value); }
    void PutFloat(float value) { PutUnsigned(std::bit_cast<std::uint32_t>(value)); }
    void PutBytes(std::span<const std::byte> bytes);
    void PutZeros(std::int64_t bytes);
    // Writes the type code and reserves the length. Hand the result to PatchRecordLength behind the closing tag.
    FilePosition BeginRecord(std::int16_t recordType);
    void PatchRecordLength(FilePosition lengthField);
    // Hands what is still buffered to the sink. False when any write failed.
    bool Flush();

private:
    template <class Unsigned>
    static std::array<std::byte, sizeof(Unsigned)> LittleEndian(Unsigned value);
    template <class Unsigned>
    void PutUnsigned(Unsigned value);

    ByteSink& sink_;
    FilePosition position_ = 1;
    bool failed_ = false;
    std::vector<std::byte> buffer_;
    std::size_t buffered_ = 0; // the buffer's bytes stand just before the position
};

template <class Unsigned>
std::array<std::byte, sizeof(Unsigned)> RecordWriter::LittleEndian(Unsigned value)
{
    std::array<std::byte, sizeof(Unsigned)> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>((value >> (8 * i)) & 0xFF);
    return bytes;
}

// In the header, as what a document with thousands of short records spends its time on.
template <class Unsigned>
void RecordWriter::PutUnsigned(Unsigned value)
{
    constexpr std::size_t width = sizeof(Unsigned);
    const auto bytes = LittleEndian(value);
    const bool fits = buffered_ + width <= buffer_.size() && position_ - 1 <= LastPosition - FilePosition{width};
    if (failed_ || !fits) return PutBytes(bytes);
    std::memcpy(buffer_.data() + buffered_, bytes.data(), width);
    buffered_ += width;
    position_ += FilePosition{width};
}

} // namespace qor
