// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A folder of its own for a test, removed with everything in it.
#pragma once

#include "platform/Unicode.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qor::test {

class TemporaryFolder
{
public:
    explicit TemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path())
    {
        std::string name = (parent / "QOR_File_XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

// The path as the interface takes it.
inline std::u16string Utf16(const std::filesystem::path& path) { return platform::FromUtf8(path.string()).value(); }

inline std::vector<std::uint8_t> BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint8_t> bytes(file ? std::filesystem::file_size(path) : 0);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

inline void WriteBytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace qor::test
