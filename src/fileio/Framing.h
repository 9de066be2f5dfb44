// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What all document files share beyond single items: preamble, texts, the end marker, and the two general
// helpers of the toolkit. Layout and examples: docs/formats/framing.md.
#pragma once

#include "fileio/RecordReader.h"
#include "fileio/RecordWriter.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

inline constexpr std::int16_t ClosingTag = 255;
inline constexpr std::int16_t EndMarker = static_cast<std::int16_t>(0xAAAA);

// Files from this version on: a reader skips what it does not know by the length of its record.
inline constexpr std::int16_t FirstVersionThatSkips = 9;

// How a file holds its texts: a count and UTF-16 code units, or, in older files, single Windows-1252 bytes
// ended by a zero byte.
enum class TextForm { Counted, ZeroTerminated };

// The text without leading and trailing blanks (U+0020 only).
inline std::u16string_view Trimmed(std::u16string_view text)
{
    // Labels of fixed width mostly end in many blanks: the last ones go four at a time.
    constexpr std::u16string_view blanks = u"    ";
    while (text.ends_with(blanks)) text.remove_suffix(blanks.size());
    while (text.ends_with(u' ')) text.remove_suffix(1);
    while (text.starts_with(u' ')) text.remove_prefix(1);
    return text;
}

// Writes the identification line, the version and the seven reserved words.
void SavePreamble(RecordWriter& file, std::string_view identification, std::int16_t version);

// Finds the preamble by the word BINARY, in any letter case, in the first 199 positions and the line end behind
// it; the rest of the identification is not compared. Returns the version and stands behind it; nothing when
// there is no preamble, standing behind the last bytes tried.
std::optional<std::int16_t> FindPreamble(RecordReader& file);
// Reads past the reserved words behind the version.
void SkipReservedWords(RecordReader& file);

void SaveString(RecordWriter& file, std::u16string_view text);
QOR_INLINE inline void SaveString(ItemWriter& items, std::u16string_view text)
{
    if (sizeof(char16_t) * text.size() > ItemWriter::LongestPiece) {
        items.Directly([text](RecordWriter& file) { SaveString(file, text); });
        return;
    }
    items.PutAll(static_cast<std::int32_t>(text.size()));
    std::memcpy(items.PutPiece(sizeof(char16_t) * text.size()), text.data(), sizeof(char16_t) * text.size());
}
// Reads one text. At the end of the file: the characters that were read whole; a negative count: empty.
std::u16string LoadString(RecordReader& file, TextForm form);
// What stands behind the count of a text.
std::u16string LoadCharacters(RecordReader& file, std::int32_t count);

// Reads one text and hands it to store as a view; without memory of its own where the text is short, as most are.
template <class Store>
QOR_INLINE inline void LoadString(ItemReader& items, TextForm form, Store store)
{
    constexpr std::int32_t longest = ItemReader::MostHeld / sizeof(char16_t);
    if (form == TextForm::ZeroTerminated) {
        store(items.Directly([](RecordReader& file) { return LoadString(file, TextForm::ZeroTerminated); }));
        return;
    }
    const std::int32_t count = items.GetInt32();
    const auto wanted = count > 0 && count <= longest ? static_cast<std::size_t>(count) : 0;
    if (wanted == 0 || !items.Holds(sizeof(char16_t) * wanted)) {
        store(items.Directly([count](RecordReader& file) { return LoadCharacters(file, count); }));
        return;
    }
    std::array<char16_t, longest> units;
    for (std::size_t i = 0; i < wanted; ++i) units[i] = items.GetHeld<std::uint16_t>();
    store(std::u16string_view(units.data(), wanted));
}

// The low byte of every character, zero bytes as blanks, and a terminating zero.
std::vector<std::uint8_t> StringToBytes(std::u16string_view text);

// 16-bit sign-and-magnitude word to integer: 0 to 32767 as it is, any other value is minus its low 15 bits.
std::int16_t WordToInteger(std::int32_t value);

} // namespace qor
