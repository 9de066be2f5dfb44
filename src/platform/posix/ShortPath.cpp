// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/ShortPath.h"

#include "platform/posix/SystemPath.h"

#include <algorithm>
#include <sys/stat.h>

namespace qor::platform {
namespace {

char16_t LowerCase(char16_t letter)
{
    const bool ascii = letter >= u'A' && letter <= u'Z';
    const bool latin1 = letter >= 0xC0 && letter <= 0xDE && letter != 0xD7; // 0xD7 is the multiplication sign
    return ascii || latin1 ? static_cast<char16_t>(letter + 0x20) : letter;
}

} // namespace

std::u16string ShortPath(std::u16string_view path, std::size_t room)
{
    struct stat status {};
    const auto name = SystemPath(path);
    if (!name || stat(name->c_str(), &status) != 0) return {};
    return std::u16string(path.substr(0, room));
}

bool EqualIgnoringCase(std::u16string_view text1, std::u16string_view text2)
{
    return std::equal(text1.begin(), text1.end(), text2.begin(), text2.end(),
                      [](char16_t a, char16_t b) { return LowerCase(a) == LowerCase(b); });
}

} // namespace qor::platform
