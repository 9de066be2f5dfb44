// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// UTF-16 to UTF-8 and back, valid and invalid.
#include "platform/Unicode.h"

#include <gtest/gtest.h>

namespace qor::platform {
namespace {

struct BothForms {
    std::u16string utf16;
    std::string utf8;
};

// The first and last code point of each length, the neighbours of the surrogates, and a mixture.
const BothForms ValidTexts[] = {
    {u"", ""},
    {u"plain", "plain"},
    {std::u16string(1, u'\0'), std::string(1, '\0')},
    {{0x007F}, "\x7F"},
    {{0x0080}, "\xC2\x80"},
    {{0x07FF}, "\xDF\xBF"},
    {{0x0800}, "\xE0\xA0\x80"},
    {{0xD7FF}, "\xED\x9F\xBF"},
    {{0xE000}, "\xEE\x80\x80"},
    {{0xFFFD}, "\xEF\xBF\xBD"},
    {{0xFFFF}, "\xEF\xBF\xBF"},
    {{0xD800, 0xDC00}, "\xF0\x90\x80\x80"},
    {{0xD83D, 0xDE00}, "\xF0\x9F\x98\x80"},
    {{0xDBFF, 0xDFFF}, "\xF4\x8F\xBF\xBF"},
    {{u'a', 0x00E4, 0x20AC, 0xD83D, 0xDE00, u'z'}, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z"},
};

class ValidText : public testing::TestWithParam<BothForms>
{};

TEST_P(ValidText, BecomesUtf8) { EXPECT_EQ(ToUtf8(GetParam().utf16), GetParam().utf8); }
TEST_P(ValidText, BecomesUtf16) { EXPECT_EQ(FromUtf8(GetParam().utf8), GetParam().utf16); }

INSTANTIATE_TEST_SUITE_P(Unicode, ValidText, testing::ValuesIn(ValidTexts));

TEST(ToUtf8, AnUnpairedSurrogateBecomesTheReplacementCharacter)
{
    const BothForms table[] = {
        {{0xD800}, "\xEF\xBF\xBD"},
        {{0xDBFF, u'x'}, "\xEF\xBF\xBDx"},
        {{0xDC00}, "\xEF\xBF\xBD"},
        {{0xDFFF, u'x'}, "\xEF\xBF\xBDx"},
        {{0xDC00, 0xD800}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {{0xD800, 0xD83D, 0xDE00}, "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {{0xD83D, 0xDE00, 0xDE00}, "\xF0\x9F\x98\x80\xEF\xBF\xBD"},
    };
    for (const auto& [utf16, utf8] : table) EXPECT_EQ(ToUtf8(utf16), utf8);
}

TEST(FromUtf8, RefusesWhatIsNotValid)
{
    const std::string invalid[] = {
        "\x80",                 // continuation without lead
        "a\xBF",                // the same, later
        "\xC2",                 // cut off
        "\xE2\x82",             // cut off
        "\xF0\x9F\x98",         // cut off
        "\xC2x",                // lead without continuation
        "\xE2\x82x",            // too few continuations
        "\xC3\xC3",             // lead in the place of a continuation
        "\xC0\x80",             // longer than needed: 0
        "\xC1\xBF",             // longer than needed: 0x7F
        "\xE0\x80\x80",         // longer than needed: 0
        "\xE0\x9F\xBF",         // longer than needed: 0x7FF
        "\xF0\x80\x80\x80",     // longer than needed: 0
        "\xF0\x8F\xBF\xBF",     // longer than needed: 0xFFFF
        "\xED\xA0\x80",         // surrogate 0xD800
        "\xED\xBF\xBF",         // surrogate 0xDFFF
        "\xF4\x90\x80\x80",     // 0x110000
        "\xF5\x80\x80\x80",     // beyond Unicode
        "\xF8\x90\x80\x80",     // no lead of four bytes
        "\xF8\x88\x80\x80\x80", // five bytes
        "\xFF",
        "\xFE",
    };
    for (const std::string& bytes : invalid) EXPECT_EQ(FromUtf8(bytes), std::nullopt) << bytes;
    for (const std::string& bytes : invalid)
        EXPECT_EQ(FromUtf8(std::string("good ").append(bytes)), std::nullopt) << bytes;
}

TEST(FromUtf8, LooksAtNothingBehindTheEndOfTheBytes)
{
    constexpr std::string_view whole = "\xC3\xA4\xE2\x82\xAC";
    EXPECT_EQ(FromUtf8(whole.substr(0, 1)), std::nullopt);
    EXPECT_EQ(FromUtf8(whole.substr(0, 2)), u"\u00E4");
    EXPECT_EQ(FromUtf8(whole.substr(0, 4)), std::nullopt);
}

TEST(Unicode, EveryCodePointGoesThereAndBack)
{
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF) continue;
        std::u16string text;
        if (point < 0x10000) {
            text.push_back(static_cast<char16_t>(point));
        } else {
            text.push_back(static_cast<char16_t>(0xD800 | ((point - 0x10000) >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 | ((point - 0x10000) & 0x3FF)));
        }
        ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << static_cast<std::uint32_t>(point);
    }
}

} // namespace
} // namespace qor::platform
