// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/Unicode.h"

#include <array>

namespace qor::platform {
namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendUtf8(std::string& bytes, char32_t point)
{
    const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        bytes += static_cast<char>(point);
    } else if (point < 0x800) {
        bytes += static_cast<char>(0xC0 | (point >> 6));
        tail(0);
    } else if (point < 0x10000) {
        bytes += static_cast<char>(0xE0 | (point >> 12));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

void AppendUtf16(std::u16string& text, char32_t point)
{
    if (point < 0x10000) {
        text += static_cast<char16_t>(point);
    } else {
        text += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
    }
}

} // namespace

std::string ToUtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (IsHighSurrogate(point) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800U) << 10) + (char32_t{text[i + 1]} - 0xDC00U);
            ++i;
        } else if (IsHighSurrogate(point) || IsLowSurrogate(point)) {
            point = ReplacementCharacter;
        }
        AppendUtf8(bytes, point);
    }
    return bytes;
}

std::optional<std::u16string> FromUtf8(std::string_view bytes)
{
    // The smallest code point that needs so many continuation bytes; a longer form than needed is refused.
    constexpr std::array<char32_t, 4> smallest = {0, 0x80, 0x800, 0x10000};

    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i++]);
        std::size_t tails = 0;
        char32_t point = lead;
        if (lead >= 0xF8) return std::nullopt;
        if (lead >= 0xF0) {
            tails = 3;
            point = lead & 0x07;
        } else if (lead >= 0xE0) {
            tails = 2;
            point = lead & 0x0F;
        } else if (lead >= 0xC0) {
            tails = 1;
            point = lead & 0x1F;
        } else if (lead >= 0x80) {
            return std::nullopt;
        }
        if (bytes.size() - i < tails) return std::nullopt;
        for (std::size_t k = 0; k < tails; ++k) {
            const auto tail = static_cast<unsigned char>(bytes[i++]);
            if ((tail & 0xC0) != 0x80) return std::nullopt;
            point = (point << 6) | (tail & 0x3F);
        }
        if (point < smallest[tails] || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) return std::nullopt;
        AppendUtf16(text, point);
    }
    return text;
}

} // namespace qor::platform
