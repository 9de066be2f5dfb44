// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Writes the items of a document file, buffered, and patches record lengths once they are known. The first
// write that fails, or that would pass the last 32-bit position, makes the writer failed for good; nothing is
// written from then on. Layout: docs/formats/framing.md.
#pragma once

#include "fileio/RecordReader.h" // FilePosition

#include <array>
#include <bit>
#include <cstring>

namespace qor {

template <class Unsigned>
std::array<std::byte, sizeof(Unsigned)> LittleEndian(Unsigned value)
{
    std::array<std::byte, sizeof(Unsigned)> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>((value >> (8 * i)) & 0xFF);
    return bytes;
}

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

    // Room in the buffer for at least so many bytes, 4096 at most; what was put there is taken with Commit. See
    // ItemWriter.
    std::span<std::byte> Room(std::size_t bytes);
    void Commit(std::size_t bytes);

private:
    template <class Unsigned>
    void PutUnsigned(Unsigned value);
    bool FitsPositions(std::size_t bytes);

    ByteSink& sink_;
    FilePosition position_ = 1;
    bool failed_ = false;
    std::vector<std::byte> buffer_;
    std::size_t buffered_ = 0; // the buffer's bytes stand just before the position
};

// Writes the items of one record without a call for each. It is meant to live in registers: make one, put items,
// and let it go before anything else writes to the file.
class ItemWriter
{
public:
    explicit ItemWriter(RecordWriter& file) : file_(file), room_(file.Room(Least)) {}
    ~ItemWriter() { file_.Commit(used_); }
    ItemWriter(const ItemWriter&) = delete;
    ItemWriter& operator=(const ItemWriter&) = delete;

    void PutInt16(std::int16_t value) { Put(static_cast<std::uint16_t>(value)); }
    void PutInt32(std::int32_t value) { Put(static_cast<std::uint32_t>(value)); }
    void PutRaw32(std::uint32_t value) { Put(value); }
    void PutFloat(float value) { Put(std::bit_cast<std::uint32_t>(value)); }

    // The file itself, everything put before handed over; for texts, arrays and records inside the record.
    template <class Write>
    void Directly(Write write)
    {
        file_.Commit(used_);
        write(file_);
        room_ = file_.Room(Least);
        used_ = 0;
    }

private:
    static constexpr std::size_t Least = 256;

    template <class Unsigned>
    void Put(Unsigned value)
    {
        if (room_.size() - used_ < sizeof value) Directly([](RecordWriter&) {});
        const auto bytes = LittleEndian(value);
        std::memcpy(room_.data() + used_, bytes.data(), bytes.size());
        used_ += sizeof value;
    }

    RecordWriter& file_;
    std::span<std::byte> room_;
    std::size_t used_ = 0;
};

} // namespace qor
