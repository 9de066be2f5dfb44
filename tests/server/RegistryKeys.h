// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Registry keys as a test compares them: names and values of all keys below one.
#pragma once

#include <cwchar>
#include <map>
#include <string>
#include <vector>
#include <windows.h>

namespace qor::test {

// By its name, as "CLSID\{...}" for a key and "CLSID\{...}@ThreadingModel" for a value; the default value has no name.
struct IgnoringCase {
    bool operator()(const std::wstring& left, const std::wstring& right) const
    {
        return _wcsicmp(left.c_str(), right.c_str()) < 0;
    }
};
using Keys = std::map<std::wstring, std::wstring, IgnoringCase>;

inline void AddKeys(Keys& keys, HKEY key, const std::wstring& path)
{
    wchar_t name[512];
    for (DWORD number = 0;; ++number) {
        DWORD length = 512;
        DWORD type = 0;
        DWORD size = 0;
        if (RegEnumValueW(key, number, name, &length, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) break;
        std::vector<BYTE> bytes(size + sizeof(wchar_t));
        RegQueryValueExW(key, name, nullptr, nullptr, bytes.data(), &size);
        keys[path + L"@" + name] =
            type == REG_SZ ? reinterpret_cast<const wchar_t*>(bytes.data()) : std::wstring(bytes.begin(), bytes.end());
    }
    for (DWORD number = 0;; ++number) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, number, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        if (path.empty() && _wcsicmp(name, L"Wow6432Node") == 0) continue; // of the other word size, or seen already
        const std::wstring below = path.empty() ? name : path + L"\\" + name;
        keys[below] = L"";
        HKEY opened = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &opened) != ERROR_SUCCESS) continue;
        AddKeys(keys, opened, below);
        RegCloseKey(opened);
    }
}

// All of a machine's or a user's classes; root is HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
inline Keys ClassesOf(HKEY root)
{
    Keys keys;
    HKEY classes = nullptr;
    if (RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &classes) == ERROR_SUCCESS) {
        AddKeys(keys, classes, L"");
        RegCloseKey(classes);
    }
    return keys;
}

inline bool HasKey(HKEY root, const std::wstring& name)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, (L"Software\\Classes\\" + name).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

// What after has and before has not, or otherwise, marked with a plus, and the other way round with a minus.
inline std::string Difference(const Keys& before, const Keys& after)
{
    std::string text;
    const auto addMissing = [&](char mark, const Keys& from, const Keys& in) {
        for (const auto& [name, value] : in) {
            const auto found = from.find(name);
            if (found != from.end() && found->second == value) continue;
            text +=
                mark + std::string(name.begin(), name.end()) + " = " + std::string(value.begin(), value.end()) + "\n";
        }
    };
    addMissing('+', before, after);
    addMissing('-', after, before);
    return text;
}

// The keys of both.
inline Keys operator+(Keys keys, const Keys& others)
{
    keys.insert(others.begin(), others.end());
    return keys;
}

} // namespace qor::test
