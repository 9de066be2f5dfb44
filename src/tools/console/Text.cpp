// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/Text.h"

#include "fileio/Framing.h"
#include "platform/Unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace qor::tool {
namespace {

constexpr std::string_view Replacement = "\xEF\xBF\xBD";

struct Range {
    char32_t first;
    char32_t last;
};

// Marks that add to the character before them, and characters without a width.
constexpr Range ZeroWidth[] = {
    {0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200D}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F},
};
// East Asian characters and pictures, which take two columns.
constexpr Range DoubleWidth[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD},
};

template <std::size_t Count>
bool IsIn(const Range (&ranges)[Count], char32_t point)
{
    return std::any_of(ranges, ranges + Count,
                       [point](Range range) { return point >= range.first && point <= range.last; });
}

bool IsUnsafe(char32_t point)
{
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || (point >= 0x200E && point <= 0x200F) ||
           (point >= 0x2028 && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

// Takes one code point off the front of the bytes; nothing, and one byte taken, where they are no UTF-8.
std::optional<char32_t> TakePoint(std::string_view& bytes)
{
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const auto units = platform::FromUtf8(bytes.substr(0, length));
    if (!units) {
        bytes.remove_prefix(1);
        return std::nullopt;
    }
    bytes.remove_prefix(length);
    if (units->size() == 1) return (*units)[0];
    return 0x10000 + ((char32_t{(*units)[0]} - 0xD800U) << 10) + (char32_t{(*units)[1]} - 0xDC00U);
}

std::size_t PointWidth(char32_t point)
{
    if (IsIn(ZeroWidth, point)) return 0;
    return IsIn(DoubleWidth, point) ? 2 : 1;
}

// What needs no decoding, which is nearly all that is ever shown.
bool IsPlain(std::string_view text)
{
    return std::ranges::all_of(text, [](char letter) { return letter >= 0x20 && letter < 0x7F; });
}

class BytesInMemory final : public ByteSource
{
public:
    explicit BytesInMemory(std::string_view bytes) : bytes_(bytes) {}
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> target) override
    {
        const std::size_t from = std::min<std::size_t>(static_cast<std::size_t>(offset), bytes_.size());
        const std::size_t count = std::min(target.size(), bytes_.size() - from);
        std::memcpy(target.data(), bytes_.data() + from, count);
        return count;
    }
    std::uint64_t Size() const override { return bytes_.size(); }

private:
    std::string_view bytes_;
};

} // namespace

std::string Shown(std::string_view bytes)
{
    if (IsPlain(bytes)) return std::string(bytes);
    std::string shown;
    shown.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::string_view before = bytes;
        const auto point = TakePoint(bytes);
        shown += point && !IsUnsafe(*point) ? before.substr(0, before.size() - bytes.size()) : Replacement;
    }
    return shown;
}

std::string Shown(std::u16string_view text) { return Shown(platform::ToUtf8(text)); }

std::u16string TextOf(std::string_view bytes)
{
    if (auto text = platform::FromUtf8(bytes)) return *text;
    // The form in which older documents hold their texts is just that: Windows-1252 and a zero.
    BytesInMemory source(bytes);
    RecordReader reader(source);
    return LoadString(reader, TextForm::ZeroTerminated);
}

std::size_t Width(std::string_view text)
{
    if (IsPlain(text)) return text.size();
    std::size_t width = 0;
    while (!text.empty()) width += PointWidth(TakePoint(text).value_or(U'?'));
    return width;
}

std::string Shortened(std::string_view text, std::size_t width)
{
    if (Width(text) <= width) return std::string(text);
    std::string_view rest = text;
    std::size_t taken = 0;
    for (std::size_t used = 1; !rest.empty();) { // one column is for the dots
        taken = text.size() - rest.size();
        used += PointWidth(TakePoint(rest).value_or(U'?'));
        if (used > width) break;
    }
    return std::string(text.substr(0, taken)) + "…";
}

std::string_view TrimmedBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

Heading SplitHeading(std::string_view text)
{
    text = TrimmedBlanks(text);
    if (!text.ends_with(']')) return {std::string(text), ""};
    int depth = 0;
    for (std::size_t place = text.size(); place-- > 0;) {
        if (text[place] == ']') ++depth;
        if (text[place] == '[' && --depth == 0) {
            const auto units = text.substr(place + 1, text.size() - place - 2);
            return {std::string(TrimmedBlanks(text.substr(0, place))), std::string(TrimmedBlanks(units))};
        }
    }
    return {std::string(text), ""};
}

std::string JoinHeading(const Heading& heading)
{
    if (heading.units.empty() && !heading.label.ends_with(']')) return heading.label;
    return fmt::format("{} [{}]", heading.label, heading.units);
}

std::string Grouped(long long number)
{
    if (number < 0) return fmt::format("-{}", Grouped(-number));
    if (number < 1000) return std::to_string(number);
    return fmt::format("{},{:03}", Grouped(number / 1000), number % 1000);
}

std::string Counted(long long count, std::string_view thing)
{
    return fmt::format("{} {}{}", Grouped(count), thing, count == 1 ? "" : "s");
}

} // namespace qor::tool
