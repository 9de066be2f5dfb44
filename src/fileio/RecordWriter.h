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
#include <memory>
#include <type_traits>

namespace qor {

template <class Unsigned>
std::array<std::byte, sizeof(Unsigned)> LittleEndian(Unsigned value)
{
    std::array<std::byte, sizeof(Unsigned)> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>((value >> (8 * i)) & 0xFF);
    return bytes;
}

template <class Unsigned>
void PutLittleEndian(std::byte* place, Unsigned value)
{
    const auto bytes = LittleEndian(value);
    std::memcpy(place, bytes.data(), bytes.size());
}

class RecordWriter
{
public:
    explicit RecordWriter(ByteSink& sink);

    FilePosition Position() const { return position_; }
    bool Failed() const { return failed_; }

    // Whether so many bytes still have 32-bit positions; the writer fails where not.
    bool FitsPositions(std::size_t bytes)
    {
        if (static_cast<std::uint64_t>(LastPosition - (position_ - 1)) >= bytes) return true;
        RunOut();
        return false;
    }

    void PutInt16(std::int16_t value);
    void PutInt32(std::int32_t value);
    void PutRaw32(std::uint32_t value);
    void PutFloat(float value);
    void PutBytes(std::span<const std::byte> bytes);
    void PutZeros(std::int64_t bytes);
    // Writes the type code and reserves the length. Hand the result to PatchRecordLength behind the closing tag.
    FilePosition BeginRecord(std::int16_t recordType);
    void PatchRecordLength(FilePosition lengthField)
    {
        if (failed_) return;
        const auto length = static_cast<std::uint32_t>(position_ - (lengthField + 4));
        const FilePosition bufferStart = position_ - static_cast<FilePosition>(buffered_);
        if (lengthField >= bufferStart) { // items are never cut by the buffer's start
            PutLittleEndian(buffer_.get() + (lengthField - bufferStart), length);
        } else {
            PatchWritten(lengthField, length);
        }
    }
    // Hands what is still buffered to the sink. False when any write failed.
    bool Flush();

    // Takes so many bytes that were put into the room of before, and returns new room in the buffer, for least bytes at
    // least; for up to 256 bytes. See ItemWriter.
    std::span<std::byte> Room(std::size_t put, std::size_t least)
    {
        Commit(put);
        if (BufferSize - buffered_ < least) Flush();
        return std::span(buffer_.get(), BufferSize).subspan(buffered_);
    }
    void Commit(std::size_t put)
    {
        if (failed_ || !FitsPositions(put)) return;
        buffered_ += put;
        position_ += static_cast<FilePosition>(put);
    }

private:
    template <class Unsigned>
    void PutUnsigned(Unsigned value);
    void PatchWritten(FilePosition lengthField, std::uint32_t length);
    void RunOut();

    static constexpr std::size_t BufferSize = std::size_t{256} << 10;

    ByteSink& sink_;
    FilePosition position_ = 1;
    bool failed_ = false;
    std::unique_ptr<std::byte[]> buffer_;
    std::size_t buffered_ = 0; // the buffer's bytes stand just before the position
};

// Writes the items of one record without a call for each. It is meant to live in registers, so that nothing may take
// its address: make one, put items, and let it go before anything else writes to the file.
class ItemWriter
{
public:
    QOR_INLINE explicit ItemWriter(RecordWriter& file) : file_(file) { Refill(); }
    QOR_INLINE ~ItemWriter() { file_.Commit(Used()); }
    ItemWriter(const ItemWriter&) = delete;
    ItemWriter& operator=(const ItemWriter&) = delete;

    QOR_INLINE void PutInt16(std::int16_t value) { PutAll(value); }
    // Several items that stand together, each a 16-bit or 32-bit value or an array of such.
    template <class... Values>
    QOR_INLINE void PutAll(const Values&... values)
    {
        std::byte* place = PutPiece((sizeof(Values) + ...));
        (PutAt(place, values), ...);
    }
    // The longest piece.
    static constexpr std::size_t LongestPiece = 256;
    // A place for so many bytes, which are all to be put there.
    QOR_INLINE std::byte* PutPiece(std::size_t bytes)
    {
        if (Left() < bytes) Refill();
        next_ += bytes;
        return next_ - bytes;
    }

    // The file itself, everything put before handed over; for long texts, arrays and records inside the record.
    template <class Write>
    QOR_INLINE void Directly(Write write)
    {
        file_.Commit(Used());
        write(file_);
        start_ = end_ = next_; // no room at hand
    }

private:
    QOR_INLINE std::size_t Used() const { return static_cast<std::size_t>(next_ - start_); }
    QOR_INLINE std::size_t Left() const { return static_cast<std::size_t>(end_ - next_); }

    QOR_INLINE void Refill()
    {
        const std::span<std::byte> room = file_.Room(Used(), LongestPiece);
        start_ = next_ = room.data();
        end_ = start_ + room.size();
    }

    template <class Value>
    QOR_INLINE static void PutAt(std::byte*& place, const Value& value)
    {
        using Unsigned = std::conditional_t<sizeof(Value) == 2, std::uint16_t, std::uint32_t>;
        PutLittleEndian(std::exchange(place, place + sizeof value), std::bit_cast<Unsigned>(value));
    }
    template <class Value, std::size_t Count>
    QOR_INLINE static void PutAt(std::byte*& place, const std::array<Value, Count>& values)
    {
        for (const Value& value : values) PutAt(place, value);
    }

    RecordWriter& file_;
    std::byte* start_ = nullptr; // the room
    std::byte* next_ = nullptr;
    std::byte* end_ = nullptr;
};

} // namespace qor
