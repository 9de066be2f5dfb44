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
#include <span>
#include <vector>

namespace qor {

// Positions count from 1, the first byte of the file, and must fit 32 bits wherever a record length leads.
using FilePosition = std::int64_t;
inline constexpr FilePosition LastPosition = 2147483647;

template <class Unsigned>
Unsigned FromLittleEndian(const std::byte* bytes)
{
    Unsigned value = 0;
    for (std::size_t i = 0; i < sizeof value; ++i) {
        value = static_cast<Unsigned>(value | (std::to_integer<std::uint32_t>(bytes[i]) << (8 * i)));
    }
    return value;
}

class RecordReader
{
public:
    explicit RecordReader(ByteSource& source);

    FilePosition Position() const { return bufferStart_ + static_cast<FilePosition>(used_); }
    // Bytes from the position to the end of the file.
    std::int64_t BytesLeft() const;
    // The end-of-file condition: the last read could not be completed. Moving leaves it as it is.
    bool AtEnd() const { return atEnd_; }

    std::int16_t GetInt16() { return static_cast<std::int16_t>(GetUnsigned<std::uint16_t>()); }
    std::int32_t GetInt32() { return static_cast<std::int32_t>(GetUnsigned<std::uint32_t>()); }
    std::uint32_t GetRaw32() { return GetUnsigned<std::uint32_t>(); }
    float GetFloat() { return std::bit_cast<float>(GetRaw32()); }
    // Reads a tag or a record type code. False when the file ends inside it, whatever bytes there were.
    bool GetTag(std::int16_t& tag)
    {
        tag = GetInt16();
        return !atEnd_;
    }
    void GetBytes(std::span<std::byte> target);

    // The bytes that stand ready from the position on, at least so many unless the file ends, 4096 at most; those
    // that were used are taken with Take. See ItemReader.
    std::span<const std::byte> Ready(std::size_t bytes);
    void Take(std::size_t bytes);

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
    Unsigned GetUnsigned()
    {
        if (buffered_ - used_ >= sizeof(Unsigned)) {
            const auto value = FromLittleEndian<Unsigned>(buffer_.data() + used_);
            used_ += sizeof(Unsigned);
            atEnd_ = false;
            return value;
        }
        std::array<std::byte, sizeof(Unsigned)> bytes;
        GetBytes(bytes);
        return FromLittleEndian<Unsigned>(bytes.data());
    }
    void Fill();

    ByteSource& source_;
    std::int64_t size_;
    bool atEnd_ = false;
    std::vector<std::byte> buffer_;
    FilePosition bufferStart_ = 1; // position of the buffer's first byte
    std::size_t buffered_ = 0;     // bytes that the buffer holds
    std::size_t used_ = 0;         // and how many of them stand before the position
    bool readsOn_ = true;          // the position was reached by reading, not by moving
    std::size_t nextFill_;         // bytes to ask for next time
};

// Reads the items of one record without a call for each. It is meant to live in registers: make one, get items,
// and let it go before anything else reads from the file.
class ItemReader
{
public:
    explicit ItemReader(RecordReader& file) : file_(file), ready_(file.Ready(Least)) {}
    ~ItemReader() { file_.Take(used_); }
    ItemReader(const ItemReader&) = delete;
    ItemReader& operator=(const ItemReader&) = delete;

    std::int16_t GetInt16() { return static_cast<std::int16_t>(Get<std::uint16_t>()); }
    std::int32_t GetInt32() { return static_cast<std::int32_t>(Get<std::uint32_t>()); }
    std::uint32_t GetRaw32() { return Get<std::uint32_t>(); }
    float GetFloat() { return std::bit_cast<float>(GetRaw32()); }
    // As for the file.
    bool AtEnd() const { return used_ == 0 && file_.AtEnd(); }
    bool GetTag(std::int16_t& tag)
    {
        tag = GetInt16();
        return !AtEnd();
    }

    // The file itself, standing behind what was got; for everything that is not an item.
    template <class Read>
    auto Directly(Read read)
    {
        file_.Take(used_);
        used_ = 0;
        ready_ = {};
        return read(file_);
    }

private:
    static constexpr std::size_t Least = 256;

    template <class Unsigned>
    Unsigned Get()
    {
        if (ready_.size() - used_ < sizeof(Unsigned)) {
            file_.Take(used_);
            used_ = 0;
            ready_ = file_.Ready(Least);
            if (ready_.size() < sizeof(Unsigned)) return AtFileEnd<Unsigned>();
        }
        const auto value = FromLittleEndian<Unsigned>(ready_.data() + used_);
        used_ += sizeof value;
        return value;
    }

    // The file ends inside the item.
    template <class Unsigned>
    Unsigned AtFileEnd()
    {
        ready_ = {};
        if constexpr (sizeof(Unsigned) == 2) {
            return static_cast<Unsigned>(file_.GetInt16());
        } else {
            return file_.GetRaw32();
        }
    }

    RecordReader& file_;
    std::span<const std::byte> ready_;
    std::size_t used_ = 0;
};

} // namespace qor
