// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "fileio/Framing.h"

#include <algorithm>
#include <array>

namespace qor {
namespace {

// The keyword and the line end must start before this position.
constexpr FilePosition SearchEnd = 200;

constexpr int ReservedWords = 7;

// Characters 0x80 to 0x9F of Windows-1252; all others have their own code. The five bytes without a character
// map to the code point of the same number.
constexpr std::array<char16_t, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char16_t FromWindows1252(std::byte byte)
{
    const auto code = std::to_integer<std::uint8_t>(byte);
    return code >= 0x80 && code < 0xA0 ? Windows1252[code - 0x80U] : char16_t{code};
}

std::byte UpperCase(std::byte letter)
{
    return letter >= std::byte{'a'} && letter <= std::byte{'z'} ? letter & std::byte{0xDF} : letter;
}

// Tries the text at every position from start on, up to the search's end. Returns where it stands; the reader
// is then behind it.
template <std::size_t Length>
std::optional<FilePosition> FindText(RecordReader& file, FilePosition start, const char (&text)[Length])
{
    for (; start < SearchEnd; ++start) {
        std::array<std::byte, Length - 1> bytes;
        file.MoveTo(start);
        file.GetBytes(bytes);
        const bool found = std::equal(bytes.begin(), bytes.end(), text, [](std::byte byte, char letter) {
            return UpperCase(byte) == static_cast<std::byte>(letter);
        });
        if (found) return start;
    }
    return std::nullopt;
}

std::u16string LoadZeroTerminated(RecordReader& file)
{
    std::u16string text;
    std::byte byte{};
    for (file.GetBytes({&byte, 1}); byte != std::byte{0}; file.GetBytes({&byte, 1})) text += FromWindows1252(byte);
    return text;
}

} // namespace

void SavePreamble(RecordWriter& file, std::string_view identification, std::int16_t version)
{
    file.PutBytes(std::as_bytes(std::span(identification)));
    file.PutBytes(std::as_bytes(std::span("\r\n", 2)));
    file.PutInt16(version);
    file.PutZeros(std::int64_t{2} * ReservedWords);
}

std::optional<std::int16_t> FindPreamble(RecordReader& file)
{
    const auto keyword = FindText(file, 1, "BINARY");
    if (!keyword || !FindText(file, *keyword, "\r\n")) return std::nullopt;
    return file.GetInt16();
}

void SkipReservedWords(RecordReader& file)
{
    for (int i = 0; i < ReservedWords; ++i) file.GetInt16();
}

void SaveString(RecordWriter& file, std::u16string_view text)
{
    file.PutInt32(static_cast<std::int32_t>(text.size()));
    for (const char16_t unit : text) file.PutInt16(static_cast<std::int16_t>(unit));
}

std::u16string LoadCharacters(RecordReader& file, std::int32_t count)
{
    std::u16string text;
    if (count <= 0) return text;
    // No more room than the file has characters for, whatever the count claims.
    const std::int64_t whole = std::min<std::int64_t>(count, file.BytesLeft() / 2);
    text.reserve(static_cast<std::size_t>(whole));
    for (std::int64_t i = 0; i < whole; ++i) text += static_cast<char16_t>(file.GetInt16());
    if (whole < count) file.Skip(2 * (count - whole));
    return text;
}

std::u16string LoadString(RecordReader& file, TextForm form)
{
    return form == TextForm::Counted ? LoadCharacters(file, file.GetInt32()) : LoadZeroTerminated(file);
}

std::vector<std::uint8_t> StringToBytes(std::u16string_view text)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() + 1);
    for (const char16_t unit : text) {
        const auto low = static_cast<std::uint8_t>(unit & 0xFF);
        bytes.push_back(low == 0 ? std::uint8_t{' '} : low);
    }
    bytes.push_back(0);
    return bytes;
}

std::int16_t WordToInteger(std::int32_t value)
{
    if (value >= 0 && value <= 0x7FFF) return static_cast<std::int16_t>(value);
    return static_cast<std::int16_t>(-(value & 0x7FFF));
}

} // namespace qor
