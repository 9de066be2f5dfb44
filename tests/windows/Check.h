// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// As much of a test framework as a program without one needs: named checks, printed as they are made, and files.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace qor::test {

// Prints the check and remembers when one failed.
void Check(bool holds, const char* what);
// The same for equal values, printing them where they differ.
void CheckEqual(std::uint64_t value, std::uint64_t expected, const char* what);

int FailedChecks();

// A hash of values in their order, to compare many results at once (FNV-1a, 64 bits).
class Checksum
{
public:
    void Add(std::uint32_t value);
    void Add(float value);
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

    std::filesystem::path operator/(const char* name) const { return path_ / name; }

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

// The groups of checks, each in a file of its own.
void CheckDocument();
void CheckFiles();
void CheckShapeTable();
void CheckPaths();
void CheckConversions();
void CheckThreads();

} // namespace qor::test
