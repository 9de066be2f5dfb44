// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Makes the bytes of Data Block files without the writer under test: items, records whose lengths are computed
// here, and whole files.
#pragma once

#include "datablock/Load_DataBlock.h"
#include "support/MemoryFile.h"

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qor::test {

inline Bytes LittleEndian(std::uint64_t value, std::size_t width)
{
    Bytes bytes(width);
    for (std::size_t i = 0; i < width; ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
    return bytes;
}

inline Bytes Int16(int value) { return LittleEndian(static_cast<std::uint64_t>(value), 2); }
inline Bytes Int32(std::int64_t value) { return LittleEndian(static_cast<std::uint64_t>(value), 4); }
inline Bytes Float(float value) { return LittleEndian(std::bit_cast<std::uint32_t>(value), 4); }

inline Bytes& operator+=(Bytes& bytes, const Bytes& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}
inline Bytes operator+(Bytes bytes, const Bytes& more) { return bytes += more; }

inline Bytes Floats(std::initializer_list<float> values)
{
    Bytes bytes;
    for (const float value : values) bytes += Float(value);
    return bytes;
}

inline Bytes Ascii(std::string_view text) { return {text.begin(), text.end()}; }

// A text as files from version 12 on hold it.
inline Bytes Text(std::u16string_view text)
{
    Bytes bytes = Int32(static_cast<std::int64_t>(text.size()));
    for (const char16_t unit : text) bytes += Int16(unit);
    return bytes;
}

// A text as older files hold it.
inline Bytes OldText(std::string_view text) { return Ascii(text) + Bytes{0}; }

// Hex digits with blanks and line ends between them; from // to the end of a line is a comment.
inline Bytes Hex(std::string_view text)
{
    Bytes bytes;
    std::string digits;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == "//") i = std::min(text.find('\n', i), text.size() - 1);
        if (text[i] == ' ' || text[i] == '\n') continue;
        digits += text[i];
        if (digits.size() < 2) continue;
        std::size_t used = 0;
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(digits, &used, 16)));
        if (used != 2) throw std::invalid_argument("not a hex digit");
        digits.clear();
    }
    if (!digits.empty()) throw std::invalid_argument("half a byte");
    return bytes;
}

inline constexpr int DataBlockType = 2048;
inline constexpr int TraceType = 2304;
inline constexpr int SubRecordType = 2560;

// One record, its length computed unless the test claims another.
class RecordBytes
{
public:
    explicit RecordBytes(int type) : type_(type) {}

    RecordBytes& Field(int tag, const Bytes& value = {}) { return Raw(Int16(tag) + value); }
    RecordBytes& Nested(const RecordBytes& record) { return Raw(record.Build()); }
    RecordBytes& Raw(const Bytes& bytes)
    {
        body_ += bytes;
        return *this;
    }
    RecordBytes& ClaimLength(std::int64_t length)
    {
        claimed_ = length;
        return *this;
    }

    Bytes Build() const
    {
        const Bytes body = body_ + Int16(255);
        return Int16(type_) + Int32(claimed_.value_or(static_cast<std::int64_t>(body.size()))) + body;
    }

private:
    int type_;
    Bytes body_;
    std::optional<std::int64_t> claimed_;
};

inline RecordBytes TraceBytes() { return RecordBytes(TraceType); }

// A file with one Data Block record, to which Field, Raw and Nested add.
class DataBlockFile
{
public:
    DataBlockFile& Version(int version)
    {
        version_ = version;
        return *this;
    }
    DataBlockFile& FirstLine(std::string_view text)
    {
        firstLine_ = text;
        return *this;
    }
    DataBlockFile& Field(int tag, const Bytes& value = {})
    {
        record_.Field(tag, value);
        return *this;
    }
    DataBlockFile& Raw(const Bytes& bytes)
    {
        record_.Raw(bytes);
        return *this;
    }
    DataBlockFile& Nested(const RecordBytes& record)
    {
        record_.Nested(record);
        return *this;
    }
    DataBlockFile& ClaimLength(std::int64_t length)
    {
        record_.ClaimLength(length);
        return *this;
    }
    // Puts bytes between the preamble and the record, or between the record and the end marker.
    DataBlockFile& Before(const Bytes& bytes)
    {
        before_ += bytes;
        return *this;
    }
    DataBlockFile& Behind(const Bytes& bytes)
    {
        behind_ += bytes;
        return *this;
    }
    DataBlockFile& WithoutRecord()
    {
        hasRecord_ = false;
        return *this;
    }
    DataBlockFile& WithoutEndMarker()
    {
        endMarker_.clear();
        return *this;
    }

    Bytes Build() const
    {
        Bytes bytes = Ascii(firstLine_) + Ascii("\r\n") + Int16(version_);
        bytes.resize(bytes.size() + 14); // reserved
        return bytes + before_ + (hasRecord_ ? record_.Build() : Bytes{}) + behind_ + endMarker_;
    }

private:
    std::string firstLine_ = "DUlmeerQOR Binary DataBlock File.";
    int version_ = 12;
    RecordBytes record_{DataBlockType};
    Bytes before_;
    Bytes behind_;
    bool hasRecord_ = true;
    Bytes endMarker_ = Hex("AA AA");
};

// A file whose header says that many traces and samples of that format, and nothing else yet.
inline DataBlockFile SizedFile(int traces, std::int64_t samples, int format = 1)
{
    return DataBlockFile().Field(3, Int16(traces)).Field(4, Int32(samples)).Field(20, Int16(format));
}

struct Loaded : LoadResult {
    DataBlock block;
};

inline Loaded LoadFrom(ByteSource& file, const ArraySelection& selection = ArraySelection::Everything())
{
    Loaded loaded;
    static_cast<LoadResult&>(loaded) = LoadDataBlock(file, loaded.block, selection);
    return loaded;
}

inline Loaded LoadBytes(const Bytes& bytes, const ArraySelection& selection = ArraySelection::Everything())
{
    MemoryFile file(bytes);
    return LoadFrom(file, selection);
}

} // namespace qor::test
