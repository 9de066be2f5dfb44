// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reads the items of a document file. A read beyond the end delivers zeros for the bytes that are missing and
// sets the end-of-file condition; that is the only way in which a read fails. Layout: docs/formats/framing.md.
#pragma once

#include "platform/ByteStream.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace qor {

// Positions count from 1, the first byte of the file, and must fit 32 bits wherever a record length leads.
using FilePosition = std::int64_t;
inline constexpr FilePosition LastPosition = 2147483647;

class RecordReader
{
public:
    explicit RecordReader(ByteSource& source);

    FilePosition Position() const { return position_; }
    // Bytes from the position to the end of the file.
    std::int64_t BytesLeft() const;
    // The end-of-file condition: the last read could not be completed. Moving leaves it as it is.
    bool AtEnd() const { return atEnd_; }

    std::int16_t GetInt16() { return static_cast<std::int16_t>(GetUnsigned<std::uint16_t>()); }
    std::int32_t GetInt32() { return static_cast<std::int32_t>(GetUnsigned<std::uint32_t>()); }
    std::uint32_t GetRaw32() { return GetUnsigned<std::uint32_t>(); }
    float GetFloat() { return std::bit_cast<float>(GetRaw32()); }
    // Reads a tag or a record type code. False when the file ends inside it, whatever bytes there were.
    bool GetTag(std::int16_t& tag);
    void GetBytes(std::span<std::byte> target);

    // Moves to any position, also behind the end of the file.
    void MoveTo(FilePosition position);
    // Reads past that many bytes; the end-of-file condition is set when the file does not hold them.
    void Skip(std::int64_t bytes);
    // Reads a record's body length and returns the position just behind the record, unchecked.
    FilePosition GetRecordEnd();
    // Moves to a record's end. False, and no move, where that would go back or beyond 32 bits.
    [[nodiscard]] bool JumpTo(FilePosition end);
    // Reads past a record whose type code has been read. False as for JumpTo.
    [[nodiscard]] bool SkipRecord();

private:
    template <class Unsigned>
    Unsigned GetUnsigned();
    bool IsBuffered(std::size_t bytes) const;
    void Fill();

    ByteSource& source_;
    std::int64_t size_;
    FilePosition position_ = 1;
    bool atEnd_ = false;
    std::vector<std::byte> buffer_;
    FilePosition bufferStart_ = 1; // position of the buffer's first byte
    std::size_t buffered_ = 0;     // bytes that the buffer holds
    std::size_t nextFill_;         // bytes to ask for next time
};

// In the header, as what a document with thousands of short records spends its time on.
inline bool RecordReader::IsBuffered(std::size_t bytes) const
{
    const FilePosition offset = position_ - bufferStart_;
    return offset >= 0 && offset + static_cast<FilePosition>(bytes) <= static_cast<FilePosition>(buffered_);
}

template <class Unsigned>
Unsigned RecordReader::GetUnsigned()
{
    std::array<std::byte, sizeof(Unsigned)> bytes;
    if (IsBuffered(bytes.size())) {
        std::memcpy(bytes.data(), buffer_.data() + (position_ - bufferStart_), bytes.size());
        position_ += static_cast<FilePosition>(bytes.size());
        atEnd_ = false;
    } else {
        GetBytes(bytes);
    }
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) value = (value << 8) | std::to_integer<std::uint32_t>(bytes[i]);
    return static_cast<Unsigned>(value);
}

} // namespace qor
