// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Reads the items of a document file. A read beyond the end delivers zeros for the bytes that are missing and
// sets the end-of-file condition; that is the only way in which a read fails. Layout: docs/formats/framing.md.
#pragma once

#include "platform/ByteStream.h"
#include "platform/Inline.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

namespace qor {

// Positions count from 1, the first byte of the file, and must fit 32 bits wherever a record length leads.
using FilePosition = std::int64_t;
inline constexpr FilePosition LastPosition = 2147483647;

template <class Unsigned>
QOR_INLINE inline Unsigned FromLittleEndian(const std::byte* bytes)
{
    // In one expression, which compilers turn into one load.
    return [bytes]<std::size_t... Place>(std::index_sequence<Place...>)
    {
        return static_cast<Unsigned>(((std::to_integer<std::uint32_t>(bytes[Place]) << (8 * Place)) | ...));
    }
    (std::make_index_sequence<sizeof(Unsigned)>());
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

    // Takes so many of the bytes that stood ready, and returns those that stand ready then: at least so many unless the
    // file ends, 4096 at most. See ItemReader.
    std::span<const std::byte> Ready(std::size_t taken, std::size_t least)
    {
        Take(taken);
        if (buffered_ - used_ < least) Fill();
        return {buffer_.get() + used_, buffered_ - used_};
    }
    void Take(std::size_t bytes)
    {
        if (bytes == 0) return;
        used_ += bytes;
        atEnd_ = false;
    }

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
            const auto value = FromLittleEndian<Unsigned>(buffer_.get() + used_);
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
    std::unique_ptr<std::byte[]> buffer_;
    FilePosition bufferStart_ = 1; // position of the buffer's first byte
    std::size_t buffered_ = 0;     // bytes that the buffer holds
    std::size_t used_ = 0;         // and how many of them stand before the position
    bool readsOn_ = true;          // the position was reached by reading, not by moving
    std::size_t nextFill_;         // bytes to ask for next time
};

// What every reader of items offers, by Get<Unsigned>() of its own.
template <class Reader>
class Items
{
public:
    QOR_INLINE constexpr std::int16_t GetInt16() { return static_cast<std::int16_t>(Get<std::uint16_t>()); }
    QOR_INLINE constexpr std::int32_t GetInt32() { return static_cast<std::int32_t>(Get<std::uint32_t>()); }
    QOR_INLINE constexpr std::uint32_t GetRaw32() { return Get<std::uint32_t>(); }
    QOR_INLINE constexpr float GetFloat() { return std::bit_cast<float>(GetRaw32()); }

private:
    template <class Unsigned>
    QOR_INLINE constexpr Unsigned Get()
    {
        return static_cast<Reader*>(this)->template Get<Unsigned>();
    }
};

// Reads the items of one record without a call for each. It is meant to live in registers, so that nothing may take
// its address: make one, get items, and let it go before anything else reads from the file.
class ItemReader : public Items<ItemReader>
{
public:
    QOR_INLINE explicit ItemReader(RecordReader& file) : file_(file) { Refill(); }
    QOR_INLINE ~ItemReader() { file_.Take(Used()); }
    ItemReader(const ItemReader&) = delete;
    ItemReader& operator=(const ItemReader&) = delete;

    template <class Unsigned>
    QOR_INLINE Unsigned Get()
    {
        if (Left() < sizeof(Unsigned)) [[unlikely]] {
            Refill();
            if (Left() < sizeof(Unsigned)) {
                // The file ends inside the item.
                return Directly([](RecordReader& file) {
                    return static_cast<Unsigned>(sizeof(Unsigned) == 2 ? file.GetInt16() : file.GetInt32());
                });
            }
        }
        return GetHeld<Unsigned>();
    }
    // As for the file.
    QOR_INLINE bool AtEnd() const { return next_ == start_ && file_.AtEnd(); }
    // Reads a tag, unless the file ended before or ends inside it.
    QOR_INLINE bool GetTag(std::int16_t& tag)
    {
        const bool standsReady = Left() >= sizeof tag;
        if (!standsReady && AtEnd()) return false;
        tag = GetInt16();
        return standsReady || !AtEnd();
    }

    // The most that can be held.
    static constexpr std::size_t MostHeld = 256;
    // Whether the file has so many bytes more, which are then at hand.
    QOR_INLINE bool Holds(std::size_t bytes)
    {
        if (Left() < bytes) Refill();
        return Left() >= bytes;
    }
    // An item of which all bytes are held. Nothing is looked at again.
    template <class Unsigned>
    QOR_INLINE Unsigned GetHeld()
    {
        const auto value = FromLittleEndian<Unsigned>(next_);
        next_ += sizeof value;
        return value;
    }

    // The file itself, standing behind what was got; for everything that is not an item.
    template <class Read>
    QOR_INLINE auto Directly(Read read)
    {
        file_.Take(Used());
        start_ = end_ = next_; // nothing at hand
        return read(file_);
    }

private:
    QOR_INLINE std::size_t Used() const { return static_cast<std::size_t>(next_ - start_); }
    QOR_INLINE std::size_t Left() const { return static_cast<std::size_t>(end_ - next_); }

    QOR_INLINE void Refill()
    {
        const std::span<const std::byte> ready = file_.Ready(Used(), MostHeld);
        start_ = next_ = ready.data();
        end_ = start_ + ready.size();
    }

    RecordReader& file_;
    const std::byte* start_ = nullptr; // what stood ready
    const std::byte* next_ = nullptr;
    const std::byte* end_ = nullptr;
};

// Items that an ItemReader holds.
class HeldItems : public Items<HeldItems>
{
public:
    QOR_INLINE explicit HeldItems(ItemReader& items) : items_(items) {}

    template <class Unsigned>
    QOR_INLINE Unsigned Get()
    {
        return items_.GetHeld<Unsigned>();
    }

private:
    ItemReader& items_;
};

// Reads zeros and counts their bytes: what a function that reads items takes from a file.
class CountedItems : public Items<CountedItems>
{
public:
    template <class Unsigned>
    constexpr Unsigned Get()
    {
        bytes_ += sizeof(Unsigned);
        return 0;
    }
    constexpr std::size_t Bytes() const { return bytes_; }

private:
    std::size_t bytes_ = 0;
};

} // namespace qor
