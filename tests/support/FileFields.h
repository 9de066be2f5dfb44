// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What stands in a Data Block file, field by field, taken apart without the reader under test. Anything out of
// place, wrong lengths included, throws.
#pragma once

#include "support/DataBlockFile.h"

#include <map>

namespace qor::test {

// What a field takes in a file: bytes, or one of these.
inline constexpr int CountedText = -1;
inline constexpr int OtherWidth = -2; // goes by counts and formats that stand elsewhere

using FieldWidths = std::map<int, int>;

inline void SetWidth(FieldWidths& widths, int first, int last, int width)
{
    for (int tag = first; tag <= last; ++tag) widths[tag] = width;
}

inline FieldWidths DataBlockWidths()
{
    FieldWidths widths;
    for (const int tag : {2, 13, 21, 59}) widths[tag] = CountedText;
    for (const int tag : {10, 11, 65, 99}) widths[tag] = OtherWidth;
    for (const int tag : {1, 3, 5, 6, 19, 20, 22, 32, 53, 57, 58, 96, 97, 98, 100}) widths[tag] = 2;
    for (const int tag : {4, 7, 8, 9, 23, 30, 48, 60, 67, 68, 94, 95, 123, 160}) widths[tag] = 4;
    SetWidth(widths, 14, 18, 4);
    SetWidth(widths, 24, 29, 2);
    SetWidth(widths, 33, 35, 4);
    SetWidth(widths, 36, 46, 2);
    SetWidth(widths, 49, 50, 2);
    SetWidth(widths, 51, 52, 4);
    SetWidth(widths, 54, 56, 4);
    SetWidth(widths, 61, 64, 2);
    SetWidth(widths, 69, 71, 2);
    SetWidth(widths, 73, 92, 2);
    widths[72] = widths[93] = 4;
    widths[12] = 0;
    widths[66] = 18;
    return widths;
}

inline FieldWidths TraceWidths()
{
    FieldWidths widths;
    for (const int tag : {2, 3, 23, 24, 29, 42, 43}) widths[tag] = CountedText;
    for (const int tag : {17, 27, 41}) widths[tag] = OtherWidth;
    for (const int tag : {1, 5, 6, 8, 10, 15, 16, 18, 22, 26, 30, 31, 44, 45}) widths[tag] = 2;
    for (const int tag : {4, 7, 9, 21, 25}) widths[tag] = 4;
    SetWidth(widths, 11, 14, 4);
    SetWidth(widths, 33, 40, 4);
    widths[28] = 0;
    widths[32] = 28;
    return widths;
}

// A value of that width that no default equals.
inline Bytes SomeValue(int width)
{
    if (width == CountedText) return Text(u"Some text");
    Bytes bytes(static_cast<std::size_t>(width));
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(0x41 + i);
    return bytes;
}

inline std::int64_t NumberIn(const Bytes& bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) value = (value << 8) | bytes[i];
    return bytes.size() == 2 ? static_cast<std::int16_t>(value) : static_cast<std::int32_t>(value);
}

struct FileRecord;

struct FileField {
    int tag = 0;
    Bytes value;
    std::vector<FileRecord> records; // of a list
};

struct FileRecord {
    int type = 0;
    std::vector<FileField> fields;

    std::vector<int> Tags() const
    {
        std::vector<int> tags;
        for (const FileField& field : fields) tags.push_back(field.tag);
        return tags;
    }
    bool Has(int tag) const { return Find(tag) != nullptr; }
    const Bytes& Value(int tag) const { return Get(tag).value; }
    const std::vector<FileRecord>& Records(int tag) const { return Get(tag).records; }

private:
    const FileField* Find(int tag) const
    {
        for (const FileField& field : fields) {
            if (field.tag == tag) return &field;
        }
        return nullptr;
    }
    const FileField& Get(int tag) const
    {
        const FileField* const field = Find(tag);
        if (!field) throw std::runtime_error("no field " + std::to_string(tag));
        return *field;
    }
};

class FileFields
{
public:
    // The Data Block record of a file that is whole.
    static FileRecord Of(const Bytes& file)
    {
        FileFields reader(file);
        reader.Take(51);
        FileRecord record = reader.Record();
        if (reader.Take(2) != Hex("AA AA") || reader.next_ != file.size()) throw std::runtime_error("no end marker");
        return record;
    }

private:
    explicit FileFields(const Bytes& bytes) : bytes_(bytes) {}

    Bytes Take(std::int64_t count)
    {
        const auto size = static_cast<std::size_t>(count);
        if (count < 0 || size > bytes_.size() - next_) throw std::runtime_error("the file ends too early");
        const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(next_);
        next_ += size;
        return {first, first + static_cast<std::ptrdiff_t>(size)};
    }
    int TakeTag() { return static_cast<int>(NumberIn(Take(2))); }

    FileRecord Record()
    {
        FileRecord record;
        record.type = TakeTag();
        const std::int64_t length = NumberIn(Take(4));
        const std::size_t end = next_ + static_cast<std::size_t>(length);
        for (int tag = TakeTag(); tag != 255; tag = TakeTag()) record.fields.push_back(Field(record.type, tag));
        if (next_ != end) throw std::runtime_error("wrong length");
        return record;
    }

    FileField Field(int type, int tag)
    {
        static const FieldWidths blockWidths = DataBlockWidths();
        static const FieldWidths traceWidths = TraceWidths();
        FileField field;
        field.tag = tag;
        const int width = type == SubRecordType ? 4 : (type == TraceType ? traceWidths : blockWidths).at(tag);
        const int list = type == TraceType ? 27 : 11;
        if (width == CountedText) {
            const Bytes count = Take(4);
            field.value = count + Take(2 * NumberIn(count));
        } else if (width != OtherWidth) {
            field.value = Take(width);
        } else if (tag == list) {
            while (Ahead() != list + 1) field.records.push_back(Record());
        } else {
            field.value = Array(type, tag);
        }
        if (type == DataBlockType && tag == 4) samples_ = NumberIn(field.value);
        if (type == DataBlockType && tag == 20) format_ = NumberIn(field.value);
        return field;
    }

    Bytes Array(int type, int tag)
    {
        if (type == TraceType) return Take(samples_ * (tag == 17 && format_ != 2 ? 4 : 8));
        if (tag == 10) return Take(samples_ * 4);
        if (tag == 65) return Take(samples_ * 8);
        const Bytes count = Take(2);
        return count + Take(NumberIn(count) * samples_ * 8);
    }

    // The type code or tag that comes next.
    int Ahead()
    {
        const std::size_t here = next_;
        const int tag = TakeTag();
        next_ = here;
        return tag;
    }

    const Bytes& bytes_;
    std::size_t next_ = 0;
    std::int64_t samples_ = 0;
    std::int64_t format_ = 1;
};

} // namespace qor::test
