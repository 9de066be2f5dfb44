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

    void PutInt16(std::int16_t value);
    void PutInt32(std::int32_t value);
    void PutRaw32(std::uint32_t value);
    void PutFloat(float value);
    void PutBytes(std::span<const std::byte> bytes);
    void PutZeros(std::int64_t bytes);
    // Writes the type code and reserves the length. Hand the result to PatchRecordLength behind the closing tag.
    FilePosition BeginRecord(std::int16_t recordType);
    void PatchRecordLength(FilePosition lengthField);
    // Hands what is still buffered to the sink. False when any write failed.
    bool Flush();

private:
    template <class Unsigned>
    void PutUnsigned(Unsigned value);

    ByteSink& sink_;
    FilePosition position_ = 1;
    bool failed_ = false;
    std::vector<std::byte> buffer_;
    std::size_t buffered_ = 0; // the buffer's bytes stand just before the position
};

} // namespace qor
