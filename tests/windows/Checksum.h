// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A hash of many values, to compare them at once, and files to take it of.
#pragma once

#include <bit>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace qor::test {

// Of values in their order (FNV-1a, 64 bits).
class Checksum
{
public:
    void Add(std::uint32_t value)
    {
        for (int shift = 0; shift < 32; shift += 8) value_ = (value_ ^ ((value >> shift) & 0xFF)) * 0x100000001B3U;
    }
    void Add(std::int32_t value) { Add(static_cast<std::uint32_t>(value)); }
    void Add(float value) { Add(std::bit_cast<std::uint32_t>(value)); }
    void Add(std::u16string_view text)
    {
        for (const char16_t unit : text) Add(std::uint32_t{unit});
        Add(static_cast<std::uint32_t>(text.size()));
    }
    std::uint64_t Value() const { return value_; }

private:
    std::uint64_t value_ = 0xCBF29CE484222325U;
};

// A folder for a test's files, removed with them. The name has a number of its own behind it.
class Folder
{
public:
    explicit Folder(const std::u16string& name)
    {
        // No name that a run before may have left: a process id would not do under an emulated system.
        const auto number = std::to_string(std::chrono::system_clock::now().time_since_epoch().count());
        path_ = std::filesystem::temp_directory_path() / (name + std::u16string(number.begin(), number.end()));
        std::filesystem::create_directory(path_);
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

inline std::vector<char> BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::uint64_t ChecksumOf(const std::filesystem::path& path)
{
    Checksum bytes;
    for (const char byte : BytesOf(path)) bytes.Add(std::uint32_t{static_cast<unsigned char>(byte)});
    return bytes.Value();
}

} // namespace qor::test
