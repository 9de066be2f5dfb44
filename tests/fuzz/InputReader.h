// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Takes an input's bytes apart into arguments of calls. Behind the last byte everything is 0, so that every input is
// a whole one; small changes of an input make small changes of the calls.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace qor::test {

class InputReader
{
public:
    explicit InputReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool AtEnd() const { return bytes_.empty(); }

    std::uint8_t Byte()
    {
        if (bytes_.empty()) return 0;
        const std::uint8_t byte = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return byte;
    }

    // From first to last, both included, which are less than 256 apart.
    std::int32_t From(std::int32_t first, std::int32_t last) { return first + Byte() % (last - first + 1); }

    template <class Values>
    auto OneOf(const Values& values)
    {
        return std::data(values)[Byte() % std::size(values)];
    }

    // Any number, most often one around 0, or around one of those that matter here.
    std::int32_t Number(std::int32_t matters = 0)
    {
        using Limits = std::numeric_limits<std::int32_t>;
        constexpr std::int32_t edges[] = {Limits::min(), -32769, -32768, 255,   256,   32000,
                                          32001,         32767,  32768,  65535, 65536, Limits::max()};
        const std::uint8_t kind = Byte();
        if (kind < 112) return kind % 16 - 2;
        if (kind < 208) return matters < Limits::max() - 16 ? matters + kind % 8 - 4 : matters;
        if (kind < 240) return OneOf(edges);
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i) number = number << 8 | Byte();
        return static_cast<std::int32_t>(number);
    }

    float Float()
    {
        using Limits = std::numeric_limits<float>;
        constexpr float edges[] = {0.0F,
                                   -0.0F,
                                   1.0F,
                                   -1.0F,
                                   90.0F,
                                   180.0F,
                                   359.999F,
                                   1e-5F,
                                   Limits::max(),
                                   Limits::lowest(),
                                   Limits::min(),
                                   Limits::denorm_min(),
                                   1e30F,
                                   Limits::infinity(),
                                   -Limits::infinity(),
                                   Limits::quiet_NaN()};
        const std::uint8_t kind = Byte();
        if (kind < 192) return kind % 16 < 12 ? static_cast<float>(kind) / 4 : edges[kind / 12];
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i) bits = bits << 8 | Byte();
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // Seldom a long one; of all characters, unpaired surrogates, blanks and zeros among them.
    std::u16string Text()
    {
        constexpr char16_t letters[] = {' ',    'a',    'Z',    '9',    '\\',   0,   '\t', 0x00E4,
                                        0x0085, 0xD800, 0xDC00, 0xFFFD, 0xFFFF, '.', ':',  '/'};
        const std::uint8_t size = Byte();
        if (size >= 252) return std::u16string(static_cast<std::size_t>(size) * 20, letters[Byte() % 16]);
        std::u16string text;
        for (int i = 0; i < size % 24 && !AtEnd(); ++i) {
            const std::uint8_t byte = Byte();
            text += byte < 0x80 ? static_cast<char16_t>(byte) : letters[byte % 16];
        }
        return text;
    }

    // The next bytes as they are, a few hundred at the most.
    std::vector<std::uint8_t> Block()
    {
        const std::size_t wanted = std::size_t{2} * Byte(); // of the bytes that are left then
        const std::size_t size = std::min(wanted, bytes_.size());
        const std::vector<std::uint8_t> block(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(size));
        bytes_ = bytes_.subspan(size);
        return block;
    }

private:
    std::span<const std::uint8_t> bytes_;
};

} // namespace qor::test
