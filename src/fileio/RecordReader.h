// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reads the items of a document file. A read beyond the end delivers zeros for the bytes that are missing and
// sets the end-of-file condition; that is the only way in which a read fails. Layout: docs/formats/framing.md.
#pragma once

#include "platform/ByteStream.h"

#include <cstddef>
#include <cstdint>
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

    std::int16_t GetInt16();
    std::int32_t GetInt32();
    std::uint32_t GetRaw32();
    float GetFloat();
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

} // namespace qor
