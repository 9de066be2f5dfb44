// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "platform/ShortPath.h"

#include <algorithm>
#include <vector>
#include <windows.h>

namespace qor::platform {
namespace {

std::string ToAnsi(std::u16string_view text)
{
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr)), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide, length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::u16string FromAnsi(const char* bytes, std::size_t size)
{
    std::wstring wide(size, L'\0');
    const int length =
        MultiByteToWideChar(CP_ACP, 0, bytes, static_cast<int>(size), wide.data(), static_cast<int>(size));
    return {wide.begin(), wide.begin() + length};
}

} // namespace

std::u16string ShortPath(std::u16string_view path, std::size_t room)
{
    if (path.empty()) return {};
    std::vector<char> buffer(room, '\0');
    const DWORD length = GetShortPathNameA(ToAnsi(path).c_str(), buffer.data(), static_cast<DWORD>(room));
    return FromAnsi(buffer.data(), std::min<std::size_t>(length, room));
}

bool EqualIgnoringCase(std::u16string_view text1, std::u16string_view text2)
{
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, reinterpret_cast<const wchar_t*>(text1.data()),
                          static_cast<int>(text1.size()), reinterpret_cast<const wchar_t*>(text2.data()),
                          static_cast<int>(text2.size())) == CSTR_EQUAL;
}

} // namespace qor::platform
